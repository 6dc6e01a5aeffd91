#include "ui/wizard/property_page.h"

#include "ui/dialogs/dialog_builder.h"
#include "ui/wizard/map_wizard.h"

namespace quorvel {

CPropertyPage::CPropertyPage(const DialogTemplate& source) : source_(source) {
  setObjectName(QString::number(source.id));
  setAccessibleName(Caption());
  setFixedSize(PixelsOf({0, 0, source.width, source.height}, *this).size());
}

QString CPropertyPage::Caption() const {
  return QString::fromUtf8(source_.caption);
}

void CPropertyPage::Create() {
  if (isCreated_) return;
  BuildControls(source_, *this, [this](const ControlRow& row) { return MakeControl(row); });
  isCreated_ = true;
  OnInitDialog();
}

void CPropertyPage::FocusFirstControl() {
  for (const ControlRow& row : source_.controls) {
    auto* control = FindControl<QWidget>(*this, row.id);
    if (!control || control->isHidden() || !(control->focusPolicy() & Qt::TabFocus)) continue;
    control->setFocus();
    return;
  }
}

void CPropertyPage::OnSetActive() {
  if (auto* wizard = qobject_cast<CMapWizard*>(window())) wizard->UpdateWizardButtons(kAllWizardButtons);
}

void CPropertyPage::UpdateData(Exchange direction) {
  if (isCreated_) DoDataExchange(direction);
}

}  // namespace quorvel
