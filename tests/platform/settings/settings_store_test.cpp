#include "platform/settings/settings_store.h"

#include <cstdlib>
#include <optional>
#include <thread>

#include <sys/stat.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/child_process.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

using testing::ElementsAre;
using testing::Optional;

const std::string kKey = std::string(kApplicationKey) + "\\Definitions";

SettingsPlaces UserFile(const std::string& path) {
  return {.userFile = path, .systemFiles = {}};
}

TEST(SettingsStore, KeepsValuesOverARestart) {
  const TempFolder folder;
  const std::string path = folder / "new/folders/settings";
  EXPECT_TRUE(SettingsStore(UserFile(path)).Set(kKey, "DefaultFile", "/maps/Definitions.txt"));
  const SettingsStore restarted(UserFile(path));
  EXPECT_THAT(restarted.Get(kKey, "DefaultFile"), Optional(std::string("/maps/Definitions.txt")));
  EXPECT_THAT(restarted.Get(kKey + "\\", "DEFAULTFILE"), Optional(std::string("/maps/Definitions.txt")));
  EXPECT_EQ(restarted.Get(kKey, "Other"), std::nullopt);
  EXPECT_EQ(restarted.Get(std::string(kApplicationKey), "DefaultFile"), std::nullopt);
}

TEST(SettingsStore, KnowsWhichKeysExist) {
  SettingsStore store(UserFile(""));
  EXPECT_TRUE(store.HasKey(kApplicationKey));
  EXPECT_TRUE(store.HasKey("Software\\Kelmsor"));
  EXPECT_TRUE(store.HasKey("software\\kelmsor\\QUORVEL\\"));
  EXPECT_FALSE(store.HasKey("Software\\Kelms"));
  EXPECT_FALSE(store.HasKey(kKey));
  EXPECT_TRUE(store.CreateKey(kKey + "\\Deep"));
  EXPECT_TRUE(store.HasKey(kKey));
  EXPECT_FALSE(store.HasKey(kKey + "\\De"));
}

TEST(SettingsStore, LetsTheUsersValueWinOverTheSystems) {
  const TempFolder folder;
  const std::string key = "[" + kKey + "]\n";
  const std::string user = folder.Write("user", key + "a=user\n");
  const std::string site = folder.Write("site", key + "a=site\nb=site\n");
  const std::string vendor = folder.Write("vendor", key + "b=vendor\nc=vendor\n");
  SettingsStore store({.userFile = user, .systemFiles = {folder / "missing", site, vendor}});
  const auto all = [&store] {
    return *store.Get(kKey, "a") + " " + *store.Get(kKey, "b") + " " + *store.Get(kKey, "c");
  };
  EXPECT_EQ(all(), "user site vendor");
  EXPECT_THAT(store.SystemValues(kKey, "b"), ElementsAre("site", "vendor"));
  EXPECT_TRUE(store.Set(kKey, "c", "user"));
  EXPECT_EQ(all(), "user site user");
  EXPECT_EQ(folder.Read("vendor"), key + "b=vendor\nc=vendor\n");
}

TEST(SettingsStore, KeepsWhatAnotherProgramStoredMeanwhile) {
  const TempFolder folder;
  std::vector<std::thread> editors;
  for (const char* name : {"a", "b", "c"})
    editors.emplace_back([&folder, name] {
      SettingsStore store(UserFile(folder / "settings"));
      for (int i = 0; i <= 10; ++i) EXPECT_TRUE(store.Set(kKey, name, std::to_string(i)));
    });
  for (std::thread& editor : editors) editor.join();
  const SettingsStore store(UserFile(folder / "settings"));
  for (const char* name : {"a", "b", "c"}) EXPECT_THAT(store.Get(kKey, name), Optional(std::string("10")));
  EXPECT_THAT(folder.Names(), ElementsAre("settings"));
}

TEST(SettingsStore, GivesDefaultsAndNoTroubleWhateverStandsInTheFilesPlace) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
  std::filesystem::create_directory(folder / "folder");
  chmod(folder.Write("read-only", "").c_str(), 0444);
  std::filesystem::resize_file(folder.Write("huge", "[A]\nx=1\n"), std::uintmax_t{1} << 30);
  const std::pair<std::string, bool> rows[] = {{folder / "fifo", false},
                                               {folder / "folder", false},
                                               {folder / "read-only", false},
                                               {folder / "read-only/below", false},
                                               {"/proc/none/settings", false},
                                               {"/proc/self/mem", false},
                                               {folder / "huge", true},
                                               {folder.Write("nul", std::string("\0\xff[]=\n=", 7)), true},
                                               {folder.Write("garbage", "\x01\x02]]==[["), true}};
  for (const auto& [path, stores] : rows) {
    SCOPED_TRACE(path);
    SettingsStore store(UserFile(path));
    EXPECT_EQ(store.Get(kKey, "a"), std::nullopt);
    EXPECT_EQ(store.Set(kKey, "a", "1"), stores);
    EXPECT_EQ(store.Get(kKey, "a").has_value(), stores);
  }
}

TEST(SettingsStore, WritesOnlyWhatChanged) {
  const TempFolder folder;
  SettingsStore store(UserFile(folder / "settings"));
  ASSERT_TRUE(store.Set(kKey, "a", "1"));
  const auto inode = [&] {
    struct stat about {};
    stat((folder / "settings").c_str(), &about);
    return about.st_ino;
  };
  const auto before = inode();
  EXPECT_TRUE(store.Set(kKey, "a", "1"));
  EXPECT_EQ(inode(), before);
  EXPECT_TRUE(store.SetAll(kKey, {{"b", "2"}}));
  EXPECT_EQ(store.Get(kKey, "a"), std::nullopt);
}

TEST(SettingsPlaces, FollowTheEnvironment) {
  struct Row {
    const char *text, *home, *configHome, *configDirs;  // an empty variable counts like none
    SettingsPlaces places;
  };
  const std::string file = "/Kelmsor/Quorvel.conf";
  const std::string system = "/etc/xdg" + file;
  const std::string ofProgram =
      std::filesystem::path(QUORVEL_BIN_DIR).parent_path().string() + "/etc/xdg" + file;
  const Row rows[] = {{"a home", "/home/x", "", "", {"/home/x/.config" + file, {system}}},
                      {"a folder of one's own", "/home/x", "/cfg", "", {"/cfg" + file, {system}}},
                      {"relative: unset", "/home/x", "cfg", "", {"/home/x/.config" + file, {system}}},
                      {"no home", "", "", "/a:b:/c", {"", {"/a" + file, "/c" + file}}},
                      {"a home that is no path", "x", "", "", {"", {system}}}};
  for (const Row& row : rows) {
    const int status = RunInChild([&] {
      setenv("HOME", row.home, 1);
      setenv("XDG_CONFIG_HOME", row.configHome, 1);
      setenv("XDG_CONFIG_DIRS", row.configDirs, 1);
      const SettingsPlaces places = SettingsPlaces::FromEnvironment();
      if (places.userFile != row.places.userFile) _exit(1);
      std::vector<std::string> systemFiles = row.places.systemFiles;
      systemFiles.push_back(ofProgram);
      if (places.systemFiles != systemFiles) _exit(2);
    });
    EXPECT_EQ(status, 0) << row.text;
  }
}

}  // namespace
}  // namespace quorvel
