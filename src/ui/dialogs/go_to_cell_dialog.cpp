#include "ui/dialogs/go_to_cell_dialog.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "map/grid/cell_place.h"
#include "map/grid/hex_grid.h"

namespace quorvel {
namespace {

/// What is longer names no cell of any map.
constexpr int kMaxCharacters = 30;

}  // namespace

GoToCellDialog::GoToCellDialog(const CellGrid& grid, CellCoord current, QWidget* parent)
    : QDialog(parent), grid_(grid), place_(new QLineEdit(this)), hint_(new QLabel(this)) {
  setWindowTitle(tr("Go To Cell"));
  auto* label = new QLabel(tr("&Cell (column:row, or index):"), this);
  label->setBuddy(place_);
  if (grid.IsValid(current)) place_->setText(QStringLiteral("%1:%2").arg(current.column).arg(current.row));
  place_->setMaxLength(kMaxCharacters);
  place_->selectAll();
  hint_->setTextFormat(Qt::PlainText);
  hint_->setText(RangeText());

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &GoToCellDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &GoToCellDialog::reject);

  auto* rows = new QVBoxLayout(this);
  rows->addWidget(label);
  rows->addWidget(place_);
  rows->addWidget(hint_);
  rows->addWidget(buttons);
  rows->setSizeConstraint(QLayout::SetFixedSize);
}

QString GoToCellDialog::RangeText() const {
  return tr("From 0:0 to %1:%2, or from 0 to %3.")
      .arg(grid_.Width() - 1)
      .arg(grid_.Height() - 1)
      .arg(grid_.CellCount() - 1);
}

void GoToCellDialog::accept() {
  const auto cell = ParseCellPlace(place_->text().toStdString(), grid_);
  if (!cell) {
    RefuseText();
    return;
  }
  cell_ = *cell;
  QDialog::accept();
}

void GoToCellDialog::RefuseText() {
  hint_->setText(tr("There is no cell \"%1\".").arg(place_->text()) + u'\n' + RangeText());
  QAccessibleEvent alert(hint_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
  place_->selectAll();
  place_->setFocus();
}

}  // namespace quorvel
