#include "ui/wizard/share_slider.h"

#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>

#include "map/fill/property_settings.h"

namespace quorvel {
namespace {

constexpr int kPageStepPercent = 20;
constexpr float kSelected = 100.0F;
constexpr float kNotSelected = 0.0F;

}  // namespace

CShareSlider::CShareSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
  setRange(0, 100);
  setPageStep(kPageStepPercent);
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QSlider::valueChanged, this, &CShareSlider::Moved);
}

void CShareSlider::ShowPercent(float percent) {
  const QSignalBlocker silence(this);
  setValue(static_cast<int>(percent));
}

/// Turning the wheel over a list must not change the values that happen to pass below the pointer.
void CShareSlider::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QSlider::wheelEvent(event);
  } else {
    event->ignore();
  }
}

CShareButton::CShareButton(QWidget* parent) : QPushButton(tr("Select"), parent) {
  setCheckable(true);
  setAutoDefault(false);
  connect(this, &QPushButton::clicked, this, &CShareButton::StoreCoverage);
  connect(this, &QPushButton::toggled, this, &CShareButton::ShowState);
}

void CShareButton::SetSetting(CPropertySetting* setting) {
  m_pSetting = setting;
  setChecked(setting && setting->GetCoverage() > 0.0F);
}

/// On dark desktops a button that is down hardly differs from one that is up.
void CShareButton::ShowState(bool isChecked) {
  setIcon(isChecked ? style()->standardIcon(QStyle::SP_DialogApplyButton) : QIcon());
}

void CShareButton::StoreCoverage(bool isChecked) {
  if (m_pSetting) m_pSetting->SetCoverage(isChecked ? kSelected : kNotSelected);
}

}  // namespace quorvel
