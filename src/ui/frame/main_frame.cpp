#include "ui/frame/main_frame.h"

#include <algorithm>

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFile>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusTipEvent>
#include <QUrl>
#include <QWhatsThis>

#include "map/document/paint_tool.h"
#include "map/document/vastrel_doc.h"
#include "platform/documents/doc_template.h"
#include "platform/documents/frame_host.h"
#include "platform/documents/win_app.h"
#include "ui/commands/document_commands.h"
#include "ui/commands/menu_builder.h"
#include "ui/commands/toolbar_builder.h"
#include "ui/dialogs/help_window.h"
#include "ui/drawings/command_icons.h"
#include "ui/frame/map_frame.h"
#include "ui/frame/window_arrangement.h"
#include "ui/frame/window_keys.h"
#include "ui/frame/window_list.h"
#include "ui/resources/command_ids.h"
#include "ui/resources/shown_text.h"
#include "ui/resources/string_table.h"
#include "ui/view/map_view.h"

namespace quorvel {
namespace {

void ShowHelpPage(CMainFrame& frame) {
  frame.OnHelp();
}

constexpr CommandRow<CMainFrame> kFrameCommands[] = {
    {{.id = ID_APP_EXIT,
      .menuText = "E&xit",
      .text = "Quit the editor; prompts to save maps\nExit",
      .whatsThis = "Closes all maps and ends the editor."},
     [](CMainFrame& frame) { frame.close(); }},
    {{.id = ID_VIEW_TOOLBAR,
      .menuText = "&Toolbar",
      .text = "Show or hide the toolbar\nToolbar",
      .whatsThis = "Shows or hides the row of buttons.",
      .whileBusy = WhileBusy::Runs},
     [](CMainFrame& frame) { frame.OnViewToolbar(); },
     nullptr,
     [](const CMainFrame& frame) { return frame.IsToolbarShown(); }},
    {{.id = ID_VIEW_STATUS_BAR,
      .menuText = "&Status Bar",
      .text = "Show or hide the status bar\nStatus Bar",
      .whatsThis = "Shows or hides the bar at the lower edge.",
      .whileBusy = WhileBusy::Runs},
     [](CMainFrame& frame) { frame.OnViewStatusBar(); },
     nullptr,
     [](const CMainFrame& frame) { return frame.IsStatusBarShown(); }},
    {{.id = ID_HELP_FINDER,
      .menuText = "&Help Topics",
      .text = "List Help topics\nHelp Topics",
      .whatsThis = "Opens the help in a window of its own.",
      .whileBusy = WhileBusy::Runs},
     ShowHelpPage},
    {{.id = ID_HELP,
      .keys = "F1",
      .text = "Display help for the current task\nHelp",
      .whatsThis = "Opens the help in a window of its own.",
      .whileBusy = WhileBusy::Runs},
     ShowHelpPage},
    {{.id = ID_DEFAULT_HELP,
      .text = "List Help topics\nHelp Topics",
      .whatsThis = "Opens the help in a window of its own."},
     ShowHelpPage},
    {{.id = ID_CONTEXT_HELP,
      .keys = "Shift+F1",
      .text = "Display help for clicked on buttons and menus\nHelp",
      .whatsThis =
          "Turns the pointer into a question: click on a button or a menu item to read what it does."},
     [](CMainFrame&) { QWhatsThis::enterWhatsThisMode(); }},
    {{.id = ID_NEXT_PANE,
      .keys = "F6",
      .text = "Move to the next part of the window\nNext Pane",
      .whatsThis = "Leads the keyboard from the map to the toolbar, to the tool options and back.",
      .whileBusy = WhileBusy::Runs},
     [](CMainFrame& frame) { frame.OnNextPane(1); }},
    {{.id = ID_PREV_PANE,
      .keys = "Shift+F6",
      .text = "Move to the previous part of the window\nPrevious Pane",
      .whatsThis = "Leads the keyboard from the map to the tool options, to the toolbar and back.",
      .whileBusy = WhileBusy::Runs},
     [](CMainFrame& frame) { frame.OnNextPane(-1); }},
};

/// Asked only while there is a map window.
constexpr CommandRow<CMainFrame> kWindowCommands[] = {
    {{.id = ID_WINDOW_NEW,
      .menuText = "&New Window",
      .text = "Open another window for the active map\nNew Window",
      .whatsThis = "Shows the same map in one more window, with a zoom and place of its own.",
      .whileBusy = WhileBusy::Runs},
     [](CMainFrame& frame) { frame.OnWindowNew(); }},
    {{.id = ID_WINDOW_CASCADE,
      .menuText = "&Cascade",
      .text = "Arrange windows so they overlap\nCascade Windows",
      .whatsThis = "Lays the map windows over each other so that every title is seen.",
      .whileBusy = WhileBusy::Runs},
     [](CMainFrame& frame) { CascadeWindows(frame.MdiArea()); }},
    {{.id = ID_WINDOW_TILE_HORZ,
      .menuText = "&Tile",
      .text = "Arrange windows as non-overlapping tiles\nTile Windows",
      .whatsThis = "Lays the map windows side by side over the whole area.",
      .whileBusy = WhileBusy::Runs},
     [](CMainFrame& frame) { frame.MdiArea().tileSubWindows(); }},
    {{.id = ID_WINDOW_ARRANGE,
      .menuText = "&Arrange Icons",
      .text = "Arrange icons at the bottom of the window\nArrange Icons",
      .whatsThis = "Lines up minimized windows along the lower edge.",
      .whileBusy = WhileBusy::Runs},
     [](CMainFrame& frame) { ArrangeIcons(frame.MdiArea()); }},
};

CommandList EveryCommand(const CommandTarget& applicationCommands) {
  CommandList commands;
  AddCommands(CMapView::CommandRows(), commands);
  AddCommands(DocumentCommands(), commands);
  AddCommands<CMainFrame>(kFrameCommands, commands);
  AddCommands<CMainFrame>(kWindowCommands, commands);
  applicationCommands.AddTo(commands);
  for (const Command& command : UnhandledCommands()) commands.push_back(&command);
  return commands;
}

/// Gives the focus to the pane or to the first control in it that takes it.
bool TakeFocus(QWidget& pane) {
  const auto canTake = [](const QWidget* widget) {
    return widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0;
  };
  QList<QWidget*> candidates = pane.findChildren<QWidget*>();
  candidates.prepend(&pane);
  const auto found = std::ranges::find_if(candidates, canTake);
  if (found == candidates.end()) return false;
  (*found)->setFocus(Qt::OtherFocusReason);
  return true;
}

constexpr int kFirstWidthPx = 1024;
constexpr int kFirstHeightPx = 720;

/// "&1 /home/.../name.vrl": short enough for a menu, the name whole.
QString RecentFileText(int number, const std::string& path) {
  constexpr int kShownLetters = 60;
  QString shown = QFile::decodeName(path.c_str());
  if (shown.size() > kShownLetters) {
    const qsizetype name = shown.lastIndexOf(u'/');
    const qsizetype folderLetters = std::max<qsizetype>(3, kShownLetters - (shown.size() - name));
    shown = QStringLiteral("%1...%2").arg(shown.left(folderLetters), shown.mid(name));
  }
  return QStringLiteral("&%1 ").arg(number) + shown.replace(u'&', QStringLiteral("&&"));
}

}  // namespace

CMainFrame::CMainFrame(CWinApp& application, FrameHost& frames, CommandTarget& applicationCommands)
    : application_(application),
      frames_(frames),
      applicationCommands_(applicationCommands),
      commands_(*this, kFrameCommands),
      windowCommands_(*this, kWindowCommands),
      actions_(new CommandActions(
          *this, EveryCommand(applicationCommands), [this] { return CommandChain(); },
          [this] { return application_.IsBusy(); })),
      menus_(*actions_, *this),
      mdiArea_(new QMdiArea(this)),
      windowList_(new WindowList(*mdiArea_)),
      toolbar_(new QToolBar(this)),
      toolOptionsBar_(new CToolOptionsBar(this)),
      statusBar_(new CStatusBar(actions_->Action(ID_GO_TO_CELL)->toolTip(), this)) {
  setObjectName(QString::number(IDR_MAINFRAME));
  setWindowIcon(ApplicationIcon());
  setCentralWidget(mdiArea_);
  AddWindowKeys(*mdiArea_);
  setAcceptDrops(true);
  BuildBars();
  windowList_->AddTo(menus_.Popup("&Window"));
  connect(mdiArea_, &QMdiArea::subWindowActivated, this, &CMainFrame::FollowActiveFrame);
  connect(toolOptionsBar_, &CToolOptionsBar::Command, this, &CMainFrame::ForwardBarCommand);
  connect(statusBar_, &CStatusBar::PositionClicked, actions_->Action(ID_GO_TO_CELL), &QAction::trigger);
  connect(actions_, &CommandActions::Refreshed, this, &CMainFrame::UpdateRecentFiles);
  FollowActiveFrame();
  resize(kFirstWidthPx, kFirstHeightPx);
}

void CMainFrame::BuildBars() {
  toolbar_->setObjectName(QString::number(AFX_IDW_TOOLBAR));
  toolbar_->setWindowTitle(tr("Toolbar"));
  BuildToolbar(*actions_, *toolbar_);
  addToolBar(Qt::TopToolBarArea, toolbar_);
  addToolBar(Qt::TopToolBarArea, toolOptionsBar_);
  setStatusBar(statusBar_);
}

void CMainFrame::LoadMenu(int resourceId) {
  if (menuId_ == resourceId) return;
  menuId_ = resourceId;
  const auto resource = std::ranges::find(MenuResources(), resourceId, &MenuResource::id);
  menus_.Load(*resource, *menuBar());
}

CMapFrame* CMainFrame::ActiveFrame() const {
  return qobject_cast<CMapFrame*>(mdiArea_->currentSubWindow());
}

void CMainFrame::FollowActiveFrame() {
  const CMapFrame* frame = ActiveFrame();
  const CDocument* document = frame ? frame->View().GetDocument() : nullptr;
  const CMultiDocTemplateWithID* docTemplate = document ? document->GetDocTemplate() : nullptr;
  LoadMenu(docTemplate ? docTemplate->GetResourceID() : IDR_MAINFRAME);
  UpdateTitle();
  windowList_->Update();
  actions_->Refresh();
  emit ActiveFrameChanged();
}

/// Names the map in front, as a maximized one does by itself.
void CMainFrame::UpdateTitle() {
  const CMapFrame* frame = ActiveFrame();
  const bool namesMap = frame && !frame->isMaximized();
  const QString title = FromResource(FindString(IDR_MAINFRAME).text);
  setWindowTitle(namesMap ? QStringLiteral("%1 - %2").arg(title, frame->windowTitle()) : title);
  setWindowModified(frame && frame->isWindowModified() && windowTitle().contains(QStringLiteral("[*]")));
}

std::vector<CommandTarget*> CMainFrame::CommandChain() {
  std::vector<CommandTarget*> chain;
  CMapFrame* frame = ActiveFrame();
  if (frame && frame->View().GetDocument()) {
    chain = {&frame->View().Commands(), &frame->DocumentCommands(), &windowCommands_};
  }
  chain.push_back(&commands_);
  chain.push_back(&applicationCommands_);
  return chain;
}

void CMainFrame::UpdateRecentFiles() {
  const std::vector<std::string>& paths = application_.GetRecentFiles().Paths();
  QList<QAction*> items;
  for (int place = 0; place < kRecentFileItems; ++place) {
    items << actions_->Action(ID_FILE_MRU_FILE1 + place);
    const bool isUsed = static_cast<std::size_t>(place) < paths.size();
    items.back()->setText(isUsed ? RecentFileText(place + 1, paths[static_cast<std::size_t>(place)])
                                 : tr("Recent File"));
  }
  ShowItems(menus_.Popup("&File"), items, std::max<qsizetype>(1, std::ssize(paths)));
}

void CMainFrame::ForwardBarCommand(int id, int notification, int position) {
  const CMapFrame* frame = ActiveFrame();
  CVastrelDoc* document = frame ? frame->View().Document() : nullptr;
  if (document) OnToolOptionsCommand(*document, id, notification, position);
}

bool CMainFrame::IsToolbarShown() const {
  return !toolbar_->isHidden();
}

bool CMainFrame::IsStatusBarShown() const {
  return !statusBar_->isHidden();
}

void CMainFrame::OnViewToolbar() {
  toolbar_->setHidden(IsToolbarShown());
}

void CMainFrame::OnViewStatusBar() {
  statusBar_->setHidden(IsStatusBarShown());
}

void CMainFrame::OnWindowNew() {
  if (const CMapFrame* frame = ActiveFrame()) frames_.OpenFrame(*frame->View().GetDocument());
}

/// Walks map, toolbar and tool options; what is hidden or disabled is passed over.
void CMainFrame::OnNextPane(int step) {
  QList<QWidget*> panes;
  if (const CMapFrame* frame = ActiveFrame()) panes << &frame->View();
  panes << toolbar_ << toolOptionsBar_;

  const auto current = std::ranges::find_if(panes, [](QWidget* pane) {
    return pane->hasFocus() || pane->isAncestorOf(QApplication::focusWidget());
  });
  const auto count = static_cast<int>(panes.size());
  const auto start = current == panes.end() ? (step > 0 ? -1 : 0) : static_cast<int>(current - panes.begin());
  for (int walked = 1; walked <= count; ++walked) {
    QWidget* pane = panes[((start + step * walked) % count + count) % count];
    if (TakeFocus(*pane)) return;
  }
}

void CMainFrame::OnHelp() {
  ShowHelp(*this);
}

bool CMainFrame::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::StatusTip:
      statusBar_->SetPrompt(static_cast<QStatusTipEvent*>(event)->tip());
      return true;
    case QEvent::WindowUnblocked:
      if (QGuiApplication::applicationState() == Qt::ApplicationActive) activateWindow();
      emit Unblocked();
      break;
    default:
      break;
  }
  return QMainWindow::event(event);
}

void CMainFrame::closeEvent(QCloseEvent* event) {
  event->setAccepted(application_.CloseAllDocuments());
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
  const auto isFile = [](const QUrl& url) { return url.isLocalFile(); };
  if (!application_.IsBusy() && std::ranges::any_of(event->mimeData()->urls(), isFile))
    event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile()) application_.OpenDocumentFile(QFile::encodeName(url.toLocalFile()).toStdString());
  }
}

}  // namespace quorvel
