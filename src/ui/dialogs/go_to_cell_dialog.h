#pragma once

#include <QDialog>

#include "platform/documents/cell_coord.h"

class QLabel;
class QLineEdit;

namespace quorvel {

class CellGrid;

/// Asks for a cell of a grid, typed as "12:40" or as an index. Text that names none is refused with a line
/// that says what would do.
class GoToCellDialog : public QDialog {
  Q_OBJECT
 public:
  /// The grid outlives the dialog. Shows the place of `current` first, where it is a cell of the grid.
  GoToCellDialog(const CellGrid& grid, CellCoord current, QWidget* parent);

  /// The cell chosen, once the dialog was accepted.
  CellCoord Cell() const { return cell_; }

  void accept() override;

 private:
  QString RangeText() const;
  void RefuseText();

  const CellGrid& grid_;
  CellCoord cell_;
  QLineEdit* place_;
  QLabel* hint_;
};

}  // namespace quorvel
