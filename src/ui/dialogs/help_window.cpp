#include "ui/dialogs/help_window.h"

#include <QDialog>
#include <QScreen>
#include <QTextBrowser>
#include <QVBoxLayout>

/// Resources of a static library must be named outside any namespace.
static void InitHelpResource() {
  Q_INIT_RESOURCE(help);
}

namespace quorvel {
namespace {

const QString kObjectName = QStringLiteral("help");

QDialog* MakeHelpWindow(QWidget& parent) {
  InitHelpResource();
  auto* window = new QDialog(&parent, Qt::Window);
  window->setObjectName(kObjectName);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowTitle(QObject::tr("Quorvel Help"));
  auto* browser = new QTextBrowser(window);
  browser->setAccessibleName(QObject::tr("Help text"));
  browser->setFrameShape(QFrame::NoFrame);
  browser->document()->setDocumentMargin(16);
  browser->setSource(QUrl(QStringLiteral("qrc:/help/index.html")));
  auto* layout = new QVBoxLayout(window);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(browser);
  const int letter = window->fontMetrics().averageCharWidth();
  window->resize(QSize(letter * 90, letter * 100).boundedTo(parent.screen()->availableSize() * 0.9));
  return window;
}

}  // namespace

void ShowHelp(QWidget& parent) {
  auto* window = parent.findChild<QDialog*>(kObjectName);
  if (!window) window = MakeHelpWindow(parent);
  window->show();
  window->raise();
  window->activateWindow();
}

}  // namespace quorvel
