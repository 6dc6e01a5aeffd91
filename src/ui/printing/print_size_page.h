#pragma once

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QRadioButton>
#include <QSpinBox>
#include <QWidget>

#include "ui/printing/print_choice.h"

class QGridLayout;

namespace quorvel {

/// The print dialog's page "Quorvel": how large the map comes, and whether its labels do.
class PrintSizePage : public QWidget {
  Q_OBJECT
 public:
  explicit PrintSizePage(const PrintChoice& choice);

  PrintChoice Choice() const;

 signals:
  void ChoiceChanged();

 private:
  QRadioButton* AddRow(QGridLayout& rows, const QString& text, QWidget* value);
  void Show(const PrintChoice& choice);

  QRadioButton* dots_;
  QRadioButton* cellMm_;
  QRadioButton* fitPage_;
  QRadioButton* fitPages_;
  QDoubleSpinBox* mm_;
  QSpinBox* across_;
  QSpinBox* down_;
  QCheckBox* labels_;
};

}  // namespace quorvel
