#pragma once

#include "platform/documents/cell_coord.h"

namespace quorvel {

class CDocument;

/// What a change of the document touches. `cell` counts for Cell and CurrentCell, `previous` for CurrentCell
/// only.
struct UpdateHint {
  enum Code {
    All,          ///< anything may have changed: size, marks, filter
    Cell,         ///< the value or mark of one cell
    CurrentCell,  ///< the current cell moved from `previous` to `cell`; either may name no cell
    Tool,         ///< another tool: the cursor over the map, and nothing that is drawn
  } code = All;
  CellCoord cell{};
  CellCoord previous{};
};

/// One picture of a document. Owned by its frame; its destructor takes it off the document's list.
class CView {
 public:
  CView() = default;
  CView(const CView&) = delete;
  CView& operator=(const CView&) = delete;
  virtual ~CView();

  /// The document shown, null before `CDocument::AddView` and after the document is destroyed.
  CDocument* GetDocument() const { return document_; }

  /// The document changed; `sender` is the view that changed it, null when none did. Never called for the
  /// sender.
  virtual void OnUpdate(CView* sender, const UpdateHint& hint) = 0;

  /// The document's title, path or modified flag changed: time to write window titles again.
  virtual void OnTitleChanged() {}

 private:
  friend class CDocument;
  CDocument* document_ = nullptr;
};

}  // namespace quorvel
