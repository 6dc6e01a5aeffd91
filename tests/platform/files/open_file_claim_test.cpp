#include "platform/files/open_file_claim.h"

#include <csignal>
#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/child_process.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

class OpenFileClaims : public testing::Test {
 protected:
  void SetUp() override { setenv("XDG_RUNTIME_DIR", runtime.Path().c_str(), 1); }
  void TearDown() override { unsetenv("XDG_RUNTIME_DIR"); }

  const TempFolder runtime;
  const TempFolder maps;
  OpenFileClaim mine;
  OpenFileClaim other;
};

TEST_F(OpenFileClaims, AreSeenByOthersUntilReleased) {
  const std::string path = maps.Write("map", "stars");
  std::filesystem::create_symlink("map", maps / "link");
  EXPECT_TRUE(mine.Claim(path));
  EXPECT_FALSE(other.Claim(path));
  EXPECT_FALSE(other.Claim(maps / "link"));
  EXPECT_TRUE(other.Claim(maps / "another"));
  EXPECT_TRUE(mine.Claim(maps / "third"));  // lets the first go
  EXPECT_TRUE(other.Claim(path));
  mine.Release();
  other.Release();
  EXPECT_TRUE(std::filesystem::is_empty(runtime / "quorvel"));
}

TEST_F(OpenFileClaims, EndWithAProgramThatIsKilled) {
  const std::string path = maps / "map";
  RunInChild([&] {
    if (!mine.Claim(path)) _exit(1);
    raise(SIGKILL);
  });
  EXPECT_TRUE(other.Claim(path));
}

TEST_F(OpenFileClaims, WarnNobodyWithoutAFolderForThem) {
  for (const char* folder : {"/proc/none", "relative", ""}) {
    setenv("XDG_RUNTIME_DIR", folder, 1);
    EXPECT_TRUE(mine.Claim(maps / "map")) << folder;
    EXPECT_TRUE(other.Claim(maps / "map")) << folder;
  }
}

}  // namespace
}  // namespace quorvel
