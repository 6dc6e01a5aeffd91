#include "platform/settings/recent_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

using testing::ElementsAre;

TEST(RecentFiles, HoldsTheLastFourNewestFirst) {
  SettingsStore store({});
  RecentFiles files(store);
  files.Load(4);
  EXPECT_THAT(files.Paths(), ElementsAre());
  for (const char* path : {"/a", "/b", "/c", "/d", "/e"}) files.Add(path);
  EXPECT_THAT(files.Paths(), ElementsAre("/e", "/d", "/c", "/b"));
  files.Add("/c");  // moves
  EXPECT_THAT(files.Paths(), ElementsAre("/c", "/e", "/d", "/b"));
  files.Remove("/d");
  files.Remove("/not there");
  EXPECT_THAT(files.Paths(), ElementsAre("/c", "/e", "/b"));

  RecentFiles restarted(store);
  restarted.Load(4);
  EXPECT_THAT(restarted.Paths(), ElementsAre("/c", "/e", "/b"));
  EXPECT_EQ(store.Get("Software\\Kelmsor\\Quorvel\\Recent File List", "File1"), "/c");
}

TEST(RecentFiles, KeepsTheEntriesOfAnotherEditor) {
  SettingsStore store({});
  RecentFiles first(store);
  RecentFiles second(store);
  first.Load(4);
  second.Load(4);
  first.Add("/a");
  second.Add("/b");
  first.Add("/c");
  EXPECT_THAT(first.Paths(), ElementsAre("/c", "/b", "/a"));
}

TEST(RecentFiles, LastsForTheSessionWhereNothingCanBeStored) {
  SettingsStore store({.userFile = "/proc/none/settings", .systemFiles = {}});
  RecentFiles files(store);
  files.Load(4);
  for (const char* path : {"/a", "/b"}) files.Add(path);
  EXPECT_THAT(files.Paths(), ElementsAre("/b", "/a"));
}

TEST(RecentFiles, SkipsWhatIsNoPath) {
  SettingsStore store({});
  store.SetAll(
      std::string(kApplicationKey) + "\\Recent File List",
      {{"File1", "x"}, {"File2", "/" + std::string(100'000, 'x')}, {"File4", "/a"}, {"File5", "/b"}});
  RecentFiles files(store);
  files.Load(4);
  EXPECT_THAT(files.Paths(), ElementsAre("/a"));
}

}  // namespace
}  // namespace quorvel
