#include <algorithm>
#include <cstdio>
#include <new>
#include <string_view>

#include <QApplication>

#include "platform/files/edit_journal.h"
#include "platform/files/end_by_signal.h"
#include "platform/files/xdg_folders.h"
#include "ui/app/command_line.h"
#include "ui/app/map_editor_app.h"
#include "ui/dialogs/qt_prompts.h"
#include "ui/frame/frame_style.h"
#include "ui/printing/file_printing.h"
#include "ui/resources/version_info.h"
#include "ui/wizard/map_dialogs.h"

namespace {

/// These are answered without a display.
bool AsksForText(int argc, char** argv) {
  return std::any_of(argv + 1, argv + argc, [](std::string_view argument) {
    return argument == "--help" || argument == "-h" || argument == "--version";
  });
}

/// Printing files shows no window.
bool AsksForPaper(int argc, char** argv) {
  return std::any_of(argv + 1, argv + argc, [](std::string_view argument) {
    return argument == "--print" || argument == "--print-to" || argument.starts_with("--print-to=");
  });
}

/// Keeps the library's remarks about the desktop away from what is said about the maps.
void SayNothing(QtMsgType, const QMessageLogContext&, const QString&) {}

void GoWithoutDisplay() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(&SayNothing);
}

int RunEditor(const quorvel::CCommandLineInfo& commandLine) {
  using namespace quorvel;
  QtPrompts prompts;
  QtFeedback feedback;
  WindowMapDialogs mapDialogs(nullptr);
  QtToolOptions toolOptions;
  SettingsStore settings(SettingsPlaces::FromEnvironment());
  const SystemClock clock;
  Services services{prompts,  feedback, mapDialogs,           toolOptions,
                    settings, clock,    StateFolder("fills"), EditJournal::FolderFromEnvironment()};
  EndTidilyOnSignals();
  QtFrameHost frames;
  CMapEditorApp application(services, {feedback, toolOptions, frames});
  return application.InitInstance(commandLine) ? QApplication::exec() : 1;
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc > 1 && AsksForText(argc, argv)) return quorvel::ParseCommandLine(argc, argv).exitCode;
  if (AsksForPaper(argc, argv)) GoWithoutDisplay();
  QApplication application(argc, argv);  // takes the toolkit's own options out of argv
  QApplication::setStyle(new quorvel::FrameStyle);
  QApplication::setApplicationName(QString::fromLatin1(quorvel::kProductName));
  QGuiApplication::setDesktopFileName(QStringLiteral("quorvel"));
  const quorvel::CommandLineResult parsed = quorvel::ParseCommandLine(argc, argv);
  if (parsed.isDone) return parsed.exitCode;
  const quorvel::CCommandLineInfo& info = parsed.info;
  const bool prints = info.m_nShellCommand >= quorvel::CCommandLineInfo::FilePrint;
  return prints ? quorvel::PrintFiles(info.m_files, info.m_strPrinterName) : RunEditor(info);
} catch (const std::bad_alloc&) {
  std::fputs("quorvel: not enough memory\n", stderr);
  return 2;
}
