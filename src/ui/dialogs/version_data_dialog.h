#pragma once

#include "ui/dialogs/list_dialog.h"

namespace quorvel {

/// Asks in which form a map is written. The choices are the names of the data types in the order of their
/// numbers.
class CVersionDataDialog : public ListDialog {
 public:
  explicit CVersionDataDialog(QWidget* parent = nullptr)
      : ListDialog(kVersionDataTemplate, IDC_DATA_TYPE, parent) {}
};

}  // namespace quorvel
