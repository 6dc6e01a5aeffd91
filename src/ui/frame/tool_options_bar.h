#pragma once

#include <functional>

#include <QComboBox>
#include <QToolBar>

namespace quorvel {

/// The bar beside the toolbar, built on dialog template 100: combo box 1000 with the members of the cell
/// class, and to its right the editor of the member that is painted.
class CToolOptionsBar : public QToolBar {
  Q_OBJECT
 public:
  explicit CToolOptionsBar(QWidget* parent);

  QComboBox& MemberCombo() { return *memberCombo_; }
  /// The parent of the combo box and of the property editors.
  QWidget& Controls() { return *controls_; }

 signals:
  /// The user did something with a control of the bar: its number, a notification code, its selection.
  void Command(int id, int notification, int position);

 private:
  QWidget* controls_;
  QComboBox* memberCombo_;
};

}  // namespace quorvel
