#pragma once

#include "ui/dialogs/list_dialog.h"
#include "ui/resources/wizard_templates.h"

namespace quorvel {

/// Asks for the type of a new document.
class CNewTypeDialog : public ListDialog {
 public:
  explicit CNewTypeDialog(QWidget* parent = nullptr) : ListDialog(kNewTypeTemplate, IDC_NEW_TYPES, parent) {}
};

}  // namespace quorvel
