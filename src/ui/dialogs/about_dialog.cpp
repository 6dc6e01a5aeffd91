#include "ui/dialogs/about_dialog.h"

#include <QLabel>

#include "ui/dialogs/dialog_builder.h"
#include "ui/resources/dialog_templates.h"
#include "ui/resources/version_info.h"

namespace quorvel {

CAboutDialog::CAboutDialog(QWidget* parent) : QDialog(parent) {
  BuildDialog(kAboutTemplate, *this);
  const QString version =
      QStringLiteral("%1 %2").arg(QStringLiteral("Quorvel Version"), QLatin1String(kFileVersion));
  FindControl<QLabel>(*this, IDC_ABOUT_VERSION)->setText(version);
}

}  // namespace quorvel
