// The script that starts the editor, with everything that it calls replaced by scripts that tell their
// arguments.

#include <filesystem>

#include <gtest/gtest.h>

#include "places.h"
#include "tests/cli/tool_run.h"

namespace quorvel {
namespace {

class RunScript : public testing::Test {
 protected:
  RunScript() {
    namespace fs = std::filesystem;
    for (const char* name : {"project/scripts", "project/build/release/bin", "tools", "elsewhere"})
      fs::create_directories(folder / name);
    fs::copy_file(QUORVEL_SOURCE_DIR "/run", folder / "project/run");
    for (const char* name : {"project/scripts/install-packages", "tools/cmake"}) WriteScript(name, "true");
    WriteScript("project/build/release/bin/quorvel", "printf '<%s>' \"$@\"");
    WriteScript("project/build/release/bin/quorvel-map", "printf '<%s>' \"$@\"; echo");
  }

  void WriteScript(const std::string& name, const std::string& command) {
    std::filesystem::permissions(folder.Write(name, "#!/bin/sh\n" + command + "\n"),
                                 std::filesystem::perms::owner_all);
  }

  std::string Run(const std::vector<std::string>& arguments, const std::string& display) {
    RunSettings settings;
    settings.folder = folder / "elsewhere";
    settings.environment = {"PATH=" + (folder / "tools") + ":/usr/bin:/bin", "WAYLAND_DISPLAY",
                            "QT_QPA_PLATFORM", display};
    return RunProgram(folder / "project/run", arguments, settings).out;
  }

  TempFolder folder;
};

TEST_F(RunScript, TakesNamesFromWhereItIsCalled) {
  const std::string here = folder / "elsewhere/";
  const std::string sample = "<share/samples/galaxy.vrl>";
  EXPECT_EQ(Run({}, "DISPLAY=:7"), sample);
  EXPECT_EQ(Run({"a.vrl", "../b c.gdf", "/d.vrl"}, "DISPLAY=:7"),
            "<" + here + "a.vrl><" + (folder / "b c.gdf") + "></d.vrl>");
}

TEST_F(RunScript, RendersTheMapsWhereThereIsNoDisplay) {
  const std::string map = folder / "elsewhere/a.vrl";
  const std::string picture = folder / "project/build/release/a.vrl.png";
  EXPECT_EQ(Run({"a.vrl"}, "DISPLAY"),
            "<render><--cell-size><40><" + map + "><" + picture + ">\n" + picture + "\n");
  EXPECT_NE(Run({}, "DISPLAY").find("<share/samples/spiral.vrl>"), std::string::npos);
}

}  // namespace
}  // namespace quorvel
