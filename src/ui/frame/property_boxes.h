#pragma once

#include <map>

#include <QPointer>
#include <QWidget>

namespace quorvel {

class CMemberCombo;
class CMemberEdit;
class CToolOptionsBar;
class CVastrelDoc;
class MemberDef;

/// The boxes in the tool options bar for a document's property editors: an edit box or a drop-down list for
/// each, to the right of the combo box of members, made when it is first shown and shown one at a time. What
/// is typed or chosen goes into the editors, which keep it while another document is in front.
class PropertyBoxes {
 public:
  explicit PropertyBoxes(CToolOptionsBar& bar) : bar_(bar) {}
  ~PropertyBoxes() { Clear(); }
  PropertyBoxes(const PropertyBoxes&) = delete;
  PropertyBoxes& operator=(const PropertyBoxes&) = delete;

  /// Shows the box of the member that the document paints; another document's boxes go.
  void Show(CVastrelDoc& document);
  /// The document has gone, or another one is in front.
  void Clear();

 private:
  QWidget* BoxOf(CVastrelDoc& document, const MemberDef& member);
  QWidget* MakeBox(CVastrelDoc& document, const MemberDef& member);
  QWidget* MakeEdit(CVastrelDoc& document, const MemberDef& member, const CMemberEdit& editor);
  QWidget* MakeCombo(CVastrelDoc& document, const MemberDef& member, const CMemberCombo& editor);

  CToolOptionsBar& bar_;
  const CVastrelDoc* document_ = nullptr;
  std::map<int, QPointer<QWidget>> boxes_;  ///< by the editor's control number
};

}  // namespace quorvel
