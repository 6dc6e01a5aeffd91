// An editor in a process of its own is killed in the middle of its work, and started again.

#include <csignal>
#include <cstdlib>

#include "map/document/paint_tool.h"
#include "platform/files/end_by_signal.h"
#include "tests/platform/child_process.h"
#include "tests/ui/editor.h"

namespace quorvel {
namespace {

constexpr const char* kFolder = "QUORVEL_KILLED_FOLDER";
constexpr const char* kSignal = "QUORVEL_KILLED_BY";

/// Paints 0 into the v of three cells with the pointer.
void PaintThreeCells(Editor& editor, const std::string& path) {
  CVastrelDoc* document = editor.Open(path);
  ASSERT_TRUE(document);
  editor.Run(ID_TOOL_CELL_PROPERTY);
  OnToolOptionsCommand(*document, kToolCombo, kSelectionChanged, 1);
  editor.PressAt(editor.Middle({1, 1}));
  editor.Release(editor.Middle({1, 1}));
  editor.PressAt(editor.Middle({2, 2}));
  editor.MovePointer(editor.Middle({3, 2}));
}

/// The editor that is killed; run by the test below.
TEST(Recovery, DISABLED_KilledEditor) {
  EndTidilyOnSignals();
  const std::string folder = std::getenv(kFolder);
  Editor editor({}, folder + "/journals");
  PaintThreeCells(editor, folder + "/map.vrl");
  raise(std::atoi(std::getenv(kSignal)));
}

TEST(Recovery, BringsBackWhatAKilledEditorHadPainted) {
  for (const int signal : {SIGKILL, SIGTERM, SIGHUP}) {
    SCOPED_TRACE(signal);
    Editor unharmed;
    const std::string painted = unharmed.WriteMap("map.vrl", 5, 4);
    const TempFolder folder;
    const std::string path = folder.Write("map.vrl", unharmed.folder.Read("map.vrl"));
    PaintThreeCells(unharmed, painted);
    unharmed.Run(ID_FILE_SAVE);

    const int status = RunInChild([&] {
      setenv(kFolder, folder.Path().c_str(), 1);
      setenv(kSignal, std::to_string(signal).c_str(), 1);
      execl("/proc/self/exe", "ui_tests", "--gtest_also_run_disabled_tests",
            "--gtest_filter=Recovery.DISABLED_KilledEditor", nullptr);
    });
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_EQ(WTERMSIG(status), signal);

    CCommandLineInfo sameFile;
    sameFile.m_nShellCommand = CCommandLineInfo::FileOpen;
    sameFile.m_files = {path};
    Editor again(sameFile, folder / "journals", {Answer::Yes});
    ASSERT_EQ(again.app.Documents().size(), 1U) << "the file of the command line is there already";
    EXPECT_TRUE(again.app.Documents()[0]->IsModified());
    EXPECT_NE(folder.Read("map.vrl"), unharmed.folder.Read("map.vrl"));
    again.Run(ID_FILE_SAVE);
    EXPECT_EQ(folder.Read("map.vrl"), unharmed.folder.Read("map.vrl"));
    EXPECT_TRUE(std::filesystem::is_empty(folder / "journals"));
  }
}

}  // namespace
}  // namespace quorvel
