#pragma once

#include <vector>

#include <QPointer>
#include <QWidget>

namespace quorvel {

class CMemberCombo;
class CMemberEdit;
class CVastrelDoc;
class MemberEditor;
class CToolOptionsBar;

/// The boxes in the tool options bar for a document's property editors: an edit box or a drop-down list for
/// each, to the right of the combo box of members, made once and shown one at a time. What is typed or chosen
/// goes into the editors, which keep it.
class PropertyBoxes {
 public:
  explicit PropertyBoxes(CToolOptionsBar& bar) : bar_(bar) {}
  ~PropertyBoxes() { Clear(); }
  PropertyBoxes(const PropertyBoxes&) = delete;
  PropertyBoxes& operator=(const PropertyBoxes&) = delete;

  /// Shows the box of the member that the document paints; makes the document's boxes if another's are there.
  void Show(CVastrelDoc& document);
  /// The document has gone, or another one is in front.
  void Clear();

 private:
  void Build(CVastrelDoc& document);
  QWidget* MakeEdit(CVastrelDoc& document, const CMemberEdit& editor);
  QWidget* MakeCombo(CVastrelDoc& document, const CMemberCombo& editor);

  CToolOptionsBar& bar_;
  const CVastrelDoc* document_ = nullptr;
  std::vector<QPointer<QWidget>> boxes_;  // as the document's m_editors
};

}  // namespace quorvel
