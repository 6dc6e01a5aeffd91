// The shell around the windows: command line, registered file types, About box, help, panes.

#include <fstream>

#include <QLabel>
#include <QTextBrowser>
#include <QTimer>

#include "places.h"
#include "tests/ui/editor.h"
#include "ui/app/shell_registration.h"
#include "ui/dialogs/about_dialog.h"
#include "ui/dialogs/dialog_builder.h"

namespace quorvel {
namespace {

TEST(CommandLine, TellsWhatToDo) {
  struct Row {
    std::vector<const char*> arguments;
    CCommandLineInfo::Shell shell;
    std::vector<std::string> files;
    std::string printer;
  };
  const Row rows[] = {
      {{}, CCommandLineInfo::FileNothing, {}, ""},
      {{"a.vrl", "b c.gdf"}, CCommandLineInfo::FileOpen, {"a.vrl", "b c.gdf"}, ""},
      {{"n\xff.vrl"}, CCommandLineInfo::FileOpen, {"n\xff.vrl"}, ""},  // names are bytes
      {{"--print", "a.vrl"}, CCommandLineInfo::FilePrint, {"a.vrl"}, ""},
      {{"--print-to", "Office", "a.vrl"}, CCommandLineInfo::FilePrintTo, {"a.vrl"}, "Office"},
  };
  for (const Row& row : rows) {
    std::vector<const char*> argv = {"quorvel"};
    argv.insert(argv.end(), row.arguments.begin(), row.arguments.end());
    const CommandLineResult result = ParseCommandLine(static_cast<int>(argv.size()), argv.data());
    EXPECT_FALSE(result.isDone);
    EXPECT_EQ(result.info.m_nShellCommand, row.shell);
    EXPECT_EQ(result.info.m_files, row.files);
    EXPECT_EQ(result.info.m_strPrinterName, row.printer);
  }
}

TEST(CommandLine, TellsWrongArgumentsWithoutControlBytes) {
  const char* const arguments[] = {"quorvel", "--no\x1b[2J\n\x9b"};
  testing::internal::CaptureStderr();
  const CommandLineResult result = ParseCommandLine(2, arguments);
  EXPECT_TRUE(result.isDone);
  EXPECT_EQ(
      testing::internal::GetCapturedStderr(),
      "The following argument was not expected: --no%1B[2J%0A%9B\nRun with --help for more information.\n");
}

TEST(ShellRegistration, AnInstalledCopyBringsTheSameTypes) {
  Editor editor;
  std::ifstream entryFile(std::string(QUORVEL_SOURCE_DIR) + "/share/applications/quorvel.desktop");
  std::ifstream typesFile(std::string(QUORVEL_SOURCE_DIR) + "/share/mime/quorvel.xml");
  const std::string entry(std::istreambuf_iterator<char>(entryFile), {});
  const std::string types(std::istreambuf_iterator<char>(typesFile), {});
  for (const auto& docTemplate : editor.app.Templates()) {
    const std::string mimeType = MimeTypeOf(*docTemplate);
    EXPECT_NE(entry.find(mimeType + ";"), entry.npos) << mimeType;
    for (const std::string& part : {"\"" + mimeType + "\"", "*" + docTemplate->Strings().filterExt,
                                    docTemplate->Strings().regFileTypeName}) {
      EXPECT_NE(types.find(part), types.npos) << part;
    }
  }
}

TEST(AboutDialog, ShowsTheVersion) {
  CAboutDialog dialog(nullptr);
  EXPECT_EQ(dialog.windowTitle(), "About Quorvel");
  const auto* version = FindControl<QLabel>(dialog, IDC_ABOUT_VERSION);
  ASSERT_TRUE(version);
  EXPECT_EQ(version->text(), "Quorvel Version 0, 0, 0, 3");
  EXPECT_LE(version->sizeHint().width(), version->width()) << "cut off";
}

TEST(Help, OpensOneWindowWithTheBundledText) {
  Editor editor;
  editor.Run(ID_HELP);
  editor.Run(ID_HELP_FINDER);
  const auto browsers = editor.Frame().findChildren<QTextBrowser*>();
  ASSERT_EQ(browsers.size(), 1);
  EXPECT_TRUE(browsers[0]->toPlainText().contains("Looking at a map"));
}

TEST(Panes, F6WalksMapToolbarAndToolOptions) {
  Editor editor;
  ASSERT_TRUE(editor.OpenMap(3, 3));
  editor.Run(ID_TOOL_CELL_PROPERTY);
  editor.Frame().activateWindow();
  editor.View().setFocus();
  const auto paneWithFocus = [&editor] {
    const QWidget* focus = editor.Frame().focusWidget();
    if (focus == &editor.View()) return "map";
    if (editor.Frame().findChild<QToolBar*>("59392")->isAncestorOf(focus)) return "toolbar";
    return editor.Frame().ToolOptionsBar().isAncestorOf(focus) ? "options" : "elsewhere";
  };
  for (const char* pane : {"toolbar", "options", "map"}) {
    editor.Run(ID_NEXT_PANE);
    EXPECT_STREQ(paneWithFocus(), pane);
  }
  editor.Run(ID_PREV_PANE);
  EXPECT_STREQ(paneWithFocus(), "options");
}

}  // namespace
}  // namespace quorvel
