#include "ui/wizard/map_properties_page.h"

#include <QLabel>
#include <QLineEdit>
#include <QSlider>

#include "ui/dialogs/dialog_builder.h"
#include "ui/resources/wizard_templates.h"

namespace quorvel {
namespace {

void ExchangeText(const QWidget& page, int id, QString& text, Exchange direction) {
  auto* label = FindControl<QLabel>(page, id);
  if (direction == Exchange::Load) {
    label->setText(text);
  } else {
    text = label->text();
  }
}

void ExchangeNumber(const QWidget& page, int id, int& number, Exchange direction) {
  auto* edit = FindControl<QLineEdit>(page, id);
  if (direction == Exchange::Load) {
    edit->setText(QString::number(number));
  } else {
    number = edit->text().toInt();
  }
}

void ExchangeSlider(const QWidget& page, int id, int& position, Exchange direction) {
  auto* slider = FindControl<QSlider>(page, id);
  if (direction == Exchange::Load) {
    slider->setValue(position);
  } else {
    position = slider->value();
  }
}

}  // namespace

CWizMapProperties::CWizMapProperties() : CPropertyPage(kMapPropertiesTemplate) {}

QString CWizMapProperties::Purpose() const {
  return tr("How many cells the new map has across and down.");
}

void CWizMapProperties::SetSizeLimits(int minWidth, int minHeight, int maxWidth, int maxHeight,
                                      int defaultWidth, int defaultHeight) {
  m_strMinHeight = QString::number(minHeight);
  m_strMinWidth = QString::number(minWidth);
  m_strMaxHeight = QString::number(maxHeight);
  m_strMaxWidth = QString::number(maxWidth);
  m_nWidth = m_nWidthPos = defaultWidth;
  m_nHeight = m_nHeightPos = defaultHeight;
}

/// The positions are set while the sliders still range from 0 to 100: a default outside stands at the nearer
/// end, and its box shows it all the same.
void CWizMapProperties::OnInitDialog() {
  for (const int id : {IDC_WIDTH_SLIDER, IDC_HEIGHT_SLIDER})
    FindControl<QSlider>(*this, id)->setRange(0, 100);
  CPropertyPage::OnInitDialog();
  FindControl<QSlider>(*this, IDC_WIDTH_SLIDER)->setRange(m_strMinWidth.toInt(), m_strMaxWidth.toInt());
  FindControl<QSlider>(*this, IDC_HEIGHT_SLIDER)->setRange(m_strMinHeight.toInt(), m_strMaxHeight.toInt());
  ConnectSlider(IDC_WIDTH_SLIDER, IDC_WIDTH);
  ConnectSlider(IDC_HEIGHT_SLIDER, IDC_HEIGHT);
  for (const int id : {IDC_WIDTH, IDC_WIDTH_SLIDER})
    FindControl<QWidget>(*this, id)->setAccessibleName(tr("Width"));
  for (const int id : {IDC_HEIGHT, IDC_HEIGHT_SLIDER})
    FindControl<QWidget>(*this, id)->setAccessibleName(tr("Height"));
}

void CWizMapProperties::ConnectSlider(int sliderId, int editId) {
  auto* edit = FindControl<QLineEdit>(*this, editId);
  connect(FindControl<QSlider>(*this, sliderId), &QSlider::valueChanged, edit,
          [edit](int position) { edit->setText(QString::number(position)); });
}

void CWizMapProperties::DoDataExchange(Exchange direction) {
  ExchangeText(*this, IDC_HEIGHT_MIN, m_strMinHeight, direction);
  ExchangeText(*this, IDC_WIDTH_MIN, m_strMinWidth, direction);
  ExchangeText(*this, IDC_HEIGHT_MAX, m_strMaxHeight, direction);
  ExchangeText(*this, IDC_WIDTH_MAX, m_strMaxWidth, direction);
  ExchangeNumber(*this, IDC_WIDTH, m_nWidth, direction);
  ExchangeNumber(*this, IDC_HEIGHT, m_nHeight, direction);
  ExchangeSlider(*this, IDC_HEIGHT_SLIDER, m_nHeightPos, direction);
  ExchangeSlider(*this, IDC_WIDTH_SLIDER, m_nWidthPos, direction);
}

}  // namespace quorvel
