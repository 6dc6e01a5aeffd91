#include "ui/printing/print_size_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace quorvel {
namespace {

constexpr double kUsualCellMm = 8;

QSpinBox* CountBox(const QString& name) {
  auto* box = new QSpinBox;
  box->setRange(1, 100);
  box->setValue(2);
  box->setAccessibleName(name);
  return box;
}

/// "N x M" boxes side by side.
QWidget* SideBySide(QSpinBox* across, QSpinBox* down) {
  auto* both = new QWidget;
  auto* row = new QHBoxLayout(both);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(across);
  row->addWidget(new QLabel(QStringLiteral("x")));
  row->addWidget(down);
  return both;
}

}  // namespace

PrintSizePage::PrintSizePage(const PrintChoice& choice)
    : mm_(new QDoubleSpinBox),
      across_(CountBox(tr("Pages side by side"))),
      down_(CountBox(tr("Pages below each other"))),
      labels_(new QCheckBox(tr("Print &labels"))) {
  setWindowTitle(QStringLiteral("Quorvel"));
  mm_->setRange(0.1, 1000);
  mm_->setDecimals(1);
  mm_->setValue(kUsualCellMm);
  mm_->setSuffix(tr(" mm"));
  mm_->setAccessibleName(tr("Height of a cell in millimetres"));

  auto* rows = new QGridLayout(this);
  dots_ = AddRow(*rows, tr("A map pixel as a pixel of the p&rinter"), nullptr);
  cellMm_ = AddRow(*rows, tr("&Size of a cell:"), mm_);
  fitPage_ = AddRow(*rows, tr("&Fit to one page"), nullptr);
  fitPages_ = AddRow(*rows, tr("Fit to pa&ges:"), SideBySide(across_, down_));
  rows->addWidget(labels_, rows->rowCount(), 0, 1, 2);
  rows->setRowStretch(rows->rowCount(), 1);
  Show(choice);
  connect(mm_, &QDoubleSpinBox::valueChanged, this, &PrintSizePage::ChoiceChanged);
  for (const QSpinBox* box : {across_, down_})
    connect(box, &QSpinBox::valueChanged, this, &PrintSizePage::ChoiceChanged);
}

/// What a row's value is for can be changed while the row is chosen.
QRadioButton* PrintSizePage::AddRow(QGridLayout& rows, const QString& text, QWidget* value) {
  auto* button = new QRadioButton(text);
  const int row = rows.rowCount();
  rows.addWidget(button, row, 0);
  connect(button, &QRadioButton::toggled, this, &PrintSizePage::ChoiceChanged);
  if (!value) return button;
  rows.addWidget(value, row, 1);
  value->setEnabled(false);
  connect(button, &QRadioButton::toggled, value, &QWidget::setEnabled);
  return button;
}

void PrintSizePage::Show(const PrintChoice& choice) {
  const QSize& sheets = choice.size.sheets;
  const bool isOnePage = sheets == QSize(1, 1);
  const bool isCellMm = choice.size.cellMm > 0;
  if (isCellMm) mm_->setValue(choice.size.cellMm);
  if (!sheets.isEmpty() && !isOnePage) {
    across_->setValue(sheets.width());
    down_->setValue(sheets.height());
  }
  QRadioButton* const chosen = isCellMm           ? cellMm_
                               : sheets.isEmpty() ? dots_
                               : isOnePage        ? fitPage_
                                                  : fitPages_;
  chosen->setChecked(true);
  labels_->setChecked(choice.labels == Labels::Shown);
}

PrintChoice PrintSizePage::Choice() const {
  PrintChoice choice;
  if (cellMm_->isChecked()) choice.size.cellMm = mm_->value();
  if (fitPage_->isChecked()) choice.size.sheets = {1, 1};
  if (fitPages_->isChecked()) choice.size.sheets = {across_->value(), down_->value()};
  choice.labels = labels_->isChecked() ? Labels::Shown : Labels::Hidden;
  return choice;
}

}  // namespace quorvel
