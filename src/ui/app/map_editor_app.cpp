#include "ui/app/map_editor_app.h"

#include <string_view>

#include "map/document/editing.h"
#include "map/document/map_recovery.h"
#include "map/document/vastrel_doc.h"
#include "ui/app/shell_registration.h"
#include "ui/dialogs/about_dialog.h"
#include "ui/frame/map_frame.h"
#include "ui/resources/command_ids.h"
#include "ui/resources/document_strings.h"
#include "ui/view/map_view.h"

namespace quorvel {
namespace {

constexpr int kRecentFiles = 4;

bool HasRecentFiles(const CMapEditorApp& application) {
  return !application.GetRecentFiles().Paths().empty();
}

bool HasActiveView(const CMapEditorApp& application) {
  return application.ActiveView();
}

void Print(CMapEditorApp& application) {
  application.Printing().Print(*application.ActiveView());
}

template <std::size_t Place>
void OpenRecentFile(CMapEditorApp& application) {
  application.OnOpenRecentFile(Place);
}

constexpr std::string_view kRecentFileText = "Open this map\nRecent File";
constexpr std::string_view kRecentFileWhatsThis = "Opens a map that was open before.";

constexpr CommandRow<CMapEditorApp> kApplicationCommands[] = {
    {{.id = ID_APP_ABOUT,
      .menuText = "&About Quorvel...",
      .text = "Display program information and version number\nAbout",
      .whatsThis = "Shows the version of the editor."},
     [](CMapEditorApp& application) { application.OnAppAbout(); }},
    {{.id = ID_FILE_NEW,
      .menuText = "&New",
      .keys = "Ctrl+N",
      .text = "Create a new map\nNew",
      .whatsThis = "Makes a new map: asks for its type, then for its size and contents."},
     [](CMapEditorApp& application) { application.OnFileNew(); }},
    {{.id = ID_FILE_OPEN,
      .menuText = "&Open...",
      .keys = "Ctrl+O",
      .text = "Open an existing map\nOpen",
      .whatsThis = "Opens a map file in a window of its own."},
     [](CMapEditorApp& application) { application.OnFileOpen(); }},
    {{.id = ID_FILE_PRINT_SETUP,
      .menuText = "P&rint Setup...",
      .text = "Change the printer and printing options\nPrint Setup",
      .whatsThis =
          "Chooses the paper, its orientation and its margins. The printer is chosen when printing."},
     [](CMapEditorApp& application) { application.Printing().ChoosePage(&application.MainFrame()); }},
    {{.id = ID_FILE_PRINT,
      .menuText = "&Print...",
      .keys = "Ctrl+P",
      .text = "Print the active map\nPrint",
      .whatsThis = "Prints the map, cut into as many pages as it needs."},
     Print,
     HasActiveView},
    {{.id = ID_FILE_PRINT_DIRECT,
      .text = "Print the active map using current options\nQuick Print",
      .whatsThis = "Prints the map as it was printed last."},
     Print,
     HasActiveView},
    {{.id = ID_FILE_PRINT_PREVIEW,
      .menuText = "Print Pre&view",
      .text = "Display full pages\nPrint Preview",
      .whatsThis = "Shows the pages as they would be printed, and how many there are."},
     [](CMapEditorApp& application) { application.Printing().Preview(*application.ActiveView()); },
     HasActiveView},
    {{.id = ID_FILE_MRU_FILE1,
      .menuText = "Recent File",
      .text = kRecentFileText,
      .whatsThis = kRecentFileWhatsThis},
     OpenRecentFile<0>,
     HasRecentFiles},
    {{.id = ID_FILE_MRU_FILE1 + 1, .text = kRecentFileText, .whatsThis = kRecentFileWhatsThis},
     OpenRecentFile<1>},
    {{.id = ID_FILE_MRU_FILE1 + 2, .text = kRecentFileText, .whatsThis = kRecentFileWhatsThis},
     OpenRecentFile<2>},
    {{.id = ID_FILE_MRU_FILE1 + 3, .text = kRecentFileText, .whatsThis = kRecentFileWhatsThis},
     OpenRecentFile<3>},
};

}  // namespace

CMapEditorApp::CMapEditorApp(Services& services, FrameServices frameServices)
    : CWinApp(services.prompts, frameServices.frames, services.settings),
      services_(services),
      frameServices_(frameServices),
      printing_(services.prompts, *this),
      commands_(*this, kApplicationCommands) {}

CMapEditorApp::~CMapEditorApp() {
  frameServices_.feedback.Attach(nullptr);
  frameServices_.toolOptions.Attach(nullptr);
  frameServices_.frames.Detach();
}

bool CMapEditorApp::InitInstance(const CCommandLineInfo& commandLine) {
  LoadStdProfileSettings(kRecentFiles);
  AddDocTemplates();
  CreateMainFrame();
  RegisterShellFileTypes(Templates());
  mainFrame_->show();
  mainFrame_->activateWindow();  // a display without a window manager gives the keyboard to nobody
  const bool isAnyBack = OfferRecovery(*this, services_);  // before a file of the command line takes its path
  return ProcessShellCommand(commandLine) || isAnyBack;
}

void CMapEditorApp::AddDocTemplates() {
  for (const DocumentString& row : kDocumentStrings) {
    AddDocTemplate(std::make_unique<CMultiDocTemplateWithID>(
        row.resourceId, row.fields, [this] { return std::make_unique<CVastrelDoc>(services_); }));
  }
}

void CMapEditorApp::CreateMainFrame() {
  mainFrame_ = std::make_unique<CMainFrame>(*this, frameServices_.frames, commands_);
  frameServices_.feedback.Attach(mainFrame_.get());
  frameServices_.toolOptions.Attach(&mainFrame_->ToolOptionsBar());
  frameServices_.frames.Attach(*mainFrame_, *this);
  QObject::connect(mainFrame_.get(), &CMainFrame::ActiveFrameChanged, mainFrame_.get(),
                   [this] { ShowActiveTool(); });
}

/// Opens the files. False when none of them could be opened: there is nothing to show then.
bool CMapEditorApp::ProcessShellCommand(const CCommandLineInfo& commandLine) {
  bool isAnyOpen = commandLine.m_files.empty();
  for (const std::string& file : commandLine.m_files) isAnyOpen = OpenDocumentFile(file) || isAnyOpen;
  return isAnyOpen;
}

CMapView* CMapEditorApp::ActiveView() const {
  const CMapFrame* frame = mainFrame_ ? mainFrame_->ActiveFrame() : nullptr;
  return frame && frame->View().GetDocument() ? &frame->View() : nullptr;
}

/// The bar and the position pane belong to the document in front.
void CMapEditorApp::ShowActiveTool() {
  const CMapFrame* frame = mainFrame_->ActiveFrame();
  CVastrelDoc* document = frame ? frame->View().Document() : nullptr;
  if (document) {
    frameServices_.toolOptions.ShowTool(*document);
    ShowCellText(*document,
                 document->m_pGrid ? PositionText(*document->m_pGrid, *document->m_pCurrentCell) : "");
  } else {
    frameServices_.toolOptions.ShowNothing();
    services_.feedback.SetStatusText("");
  }
}

void CMapEditorApp::OnAppAbout() {
  CAboutDialog dialog(mainFrame_.get());
  dialog.exec();
}

/// Commands that were shown disabled while the application was busy come back, and the map in front may have
/// got its definitions meanwhile.
void CMapEditorApp::EndBusy() {
  CWinApp::EndBusy();
  if (!mainFrame_ || IsBusy()) return;
  if (mainFrame_->Actions().ShowsBusy()) mainFrame_->Actions().Refresh();
  ShowActiveTool();
}

}  // namespace quorvel
