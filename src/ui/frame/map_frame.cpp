#include "ui/frame/map_frame.h"

#include <algorithm>

#include <QCloseEvent>
#include <QMenu>

#include "platform/documents/doc_template.h"
#include "platform/documents/win_app.h"
#include "render/display_text.h"
#include "ui/commands/document_commands.h"
#include "ui/drawings/command_icons.h"
#include "ui/resources/command_ids.h"
#include "ui/resources/shown_text.h"
#include "ui/resources/string_table.h"
#include "ui/view/map_view.h"

namespace quorvel {

CMapFrame::CMapFrame(CMapView* view, CWinApp& application)
    : view_(view),
      application_(application),
      documentCommands_(*view->Document(), quorvel::DocumentCommands()) {
  setWidget(view);
  view->setWhatsThis(FromResource(FindString(IDS_MAP_WINDOW).whatsThis));
  setAttribute(Qt::WA_DeleteOnClose);
  const CMultiDocTemplateWithID* docTemplate = view->GetDocument()->GetDocTemplate();
  if (docTemplate) {
    setObjectName(QString::number(docTemplate->GetResourceID()));
    setWindowIcon(DocumentIcon(docTemplate->GetResourceID()));
  }
  // The keys of map windows are the main frame's; a second owner of a key would block it.
  for (QAction* item : systemMenu()->actions()) item->setShortcuts(QList<QKeySequence>());
  connect(view, &CMapView::TitleChanged, this, &CMapFrame::UpdateTitle);
  connect(this, &QMdiSubWindow::windowStateChanged, this, &CMapFrame::CaptionChanged);
  UpdateTitle();
}

void CMapFrame::ActivateFrame(Qt::WindowStates) {
  showMaximized();
  view_->setFocus();
}

void CMapFrame::CloseUnasked() {
  isAsking_ = false;
  if (CDocument* document = view_->GetDocument()) document->RemoveView(*view_);
  close();
}

void CMapFrame::UpdateTitle() {
  const CDocument* document = view_->GetDocument();
  if (!document) return;
  const auto& views = document->Views();
  QString title = DisplayText(document->GetTitle());
  title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
  if (views.size() > 1) {
    const auto number = std::ranges::find(views, static_cast<const CView*>(view_)) - views.begin() + 1;
    title += QStringLiteral(":%1").arg(number);
  }
  setWindowTitle(title + QStringLiteral("[*]"));
  setWindowModified(document->IsModified());
  emit CaptionChanged();
}

void CMapFrame::closeEvent(QCloseEvent* event) {
  CDocument* document = view_->GetDocument();
  const bool mayClose = !isAsking_ || !document || (!application_.IsBusy() && document->CanCloseFrame());
  if (!mayClose) {
    event->ignore();
    return;
  }
  QMdiSubWindow::closeEvent(event);
}

}  // namespace quorvel
