#include "platform/view.h"

#include "platform/document.h"

namespace quorvel {

CView::~CView() {
  if (document_ != nullptr) document_->RemoveView(*this);
}

}  // namespace quorvel
