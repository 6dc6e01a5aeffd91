#include "platform/documents/view.h"

#include "platform/documents/document.h"

namespace quorvel {

CView::~CView() {
  if (document_) document_->RemoveView(*this);
}

}  // namespace quorvel
