#pragma once

#include <QDialog>

namespace quorvel {

/// The About box, dialog template 200, with the program's file version.
class CAboutDialog : public QDialog {
  Q_OBJECT
 public:
  explicit CAboutDialog(QWidget* parent);
};

}  // namespace quorvel
