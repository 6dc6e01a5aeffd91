// A copy of the programs as it is installed, started by somebody who has never had one.

#include <cstdlib>
#include <filesystem>
#include <map>

#include <gtest/gtest.h>

#include "places.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

class InstalledCopy : public testing::Test {
 protected:
  InstalledCopy() { fs::create_directories(folder / "home"); }

  /// True when the command, run in the home of a new user, ended well; what it said is in "log".
  bool Run(const std::string& command) const {
    const std::string home = folder / "home";
    const std::string line = "cd '" + home +
                             "' && env -u XDG_CONFIG_HOME -u XDG_STATE_HOME -u XDG_DATA_HOME HOME='" + home +
                             "' XDG_CONFIG_DIRS=/none XDG_DATA_DIRS=/none QT_QPA_PLATFORM=offscreen " +
                             command + " >'" + folder / "log" + "' 2>&1";
    return std::system(line.c_str()) == 0;
  }
  bool Install(const std::string& prefix) const {
    return Run("cmake --install '" + fs::path(QUORVEL_BIN_DIR).parent_path().string() + "' --prefix '" +
               prefix + "'");
  }
  /// Makes a map and opens it in the editor, which is ended when it has the map among its recent files. It
  /// finds no tools that make indexes of the desktop's files.
  void ExpectWorks(const std::string& binFolder, const std::string& map) const {
    EXPECT_TRUE(Run("'" + binFolder + "/quorvel-map' new --size 3x3 " + map)) << folder.Read("log");
    EXPECT_TRUE(
        Run("sh -c 'PATH=/none \"" + binFolder + "/quorvel\" " + map + " & for i in $(seq 600); do grep -q " +
            map +
            " .config/Kelmsor/Quorvel.conf && kill $! && wait && exit 0; sleep 0.1; done; kill $!; exit 1'"))
        << folder.Read("log");
  }
  /// All files for the user's desktop with their times of writing.
  std::map<std::string, fs::file_time_type> DesktopFiles() const {
    std::map<std::string, fs::file_time_type> files;
    const fs::path data = folder / "home/.local/share";
    if (!fs::exists(data)) return files;
    for (const auto& entry : fs::recursive_directory_iterator(data))
      if (entry.is_regular_file()) files[entry.path().lexically_relative(data)] = entry.last_write_time();
    return files;
  }

  const TempFolder folder;
};

TEST_F(InstalledCopy, WorksAtItsFirstStartAndRegistersItsTypesOnce) {
  ExpectWorks(QUORVEL_BIN_DIR, "built.vrl");
  EXPECT_TRUE(DesktopFiles().empty()) << "a build folder is no place for a desktop";

  const std::string longPrefix = folder / std::string(200, 'p') + "/" + std::string(100, 'q');
  ASSERT_TRUE(Install(longPrefix)) << folder.Read("log");
  ExpectWorks(longPrefix + "/bin", "first.vrl");
  const auto files = DesktopFiles();
  for (const char* name :
       {"applications/quorvel.desktop", "mime/packages/quorvel.xml", "icons/hicolor/128x128/apps/quorvel.png",
        "icons/hicolor/128x128/mimetypes/application-x-quorvel.document.png"}) {
    EXPECT_TRUE(files.contains(name)) << name;
  }
  const std::string entry = folder.Read("home/.local/share/applications/quorvel.desktop");
  EXPECT_NE(entry.find(longPrefix + "/bin/quorvel\" --print %F\n"), entry.npos);

  ASSERT_TRUE(Install(folder / "second")) << folder.Read("log");
  ExpectWorks(longPrefix + "/bin", "again.vrl");
  fs::remove_all(longPrefix);
  fs::remove_all(folder / "second/etc");  // as when a prefix was moved
  ExpectWorks(folder / "second/bin", "second.vrl");
  EXPECT_EQ(DesktopFiles(), files);
  EXPECT_EQ(folder.Read("home/.config/Kelmsor/Quorvel.conf").find("DefaultFile"), std::string::npos);
}

TEST_F(InstalledCopy, SaysWhatGivesDefinitionsWhereThereAreNone) {
  fs::create_directories(folder / "bin");
  fs::copy(QUORVEL_BIN_DIR "/quorvel-map", folder / "bin");
  EXPECT_FALSE(Run("'" + folder / "bin/quorvel-map' new new.vrl"));
  EXPECT_NE(folder.Read("log").find("give --definitions"), std::string::npos) << folder.Read("log");
}

}  // namespace
}  // namespace quorvel
