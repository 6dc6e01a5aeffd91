#pragma once

#include "platform/documents/document.h"

namespace quorvel {

/// Keeps the application busy during its life, so that no command breaks into a long operation. Null: there
/// is no application.
class BusyScope {
 public:
  explicit BusyScope(DocumentOwner* owner) : owner_(owner) {
    if (owner_) owner_->BeginBusy();
  }
  ~BusyScope() {
    if (owner_) owner_->EndBusy();
  }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

 private:
  DocumentOwner* owner_;
};

}  // namespace quorvel
