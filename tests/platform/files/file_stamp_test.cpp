#include "platform/files/file_stamp.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

void SetTime(const std::string& path, long seconds) {
  const timespec times[] = {{seconds, 0}, {seconds, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}

TEST(FileStamp, NoticesOtherContentOnly) {
  constexpr std::tuple<const char*, bool, const char*, long> rows[] = {
      // new bytes and time of the file
      {"nothing", false, "bytes", 1000},
      {"touched, or replaced by a copy", false, "bytes", 2000},
      {"same size, other bytes", true, "BYTES", 2000},
      {"other size", true, "bytes and more", 2000},
      {"other size, same time", true, "bytes and more", 1000},
  };
  const TempFolder folder;
  for (const auto& [what, changed, bytes, seconds] : rows) {
    const std::string path = folder.Write(what, "bytes");
    SetTime(path, 1000);
    const FileStamp stamp = FileStamp::Of(path);
    std::filesystem::rename(folder.Write("copy", bytes), path);
    SetTime(path, seconds);
    EXPECT_EQ(stamp.IsChanged(path), changed) << what;
    EXPECT_FALSE(FileStamp().IsChanged(path));
    std::filesystem::remove(path);
    EXPECT_FALSE(stamp.IsChanged(path)) << "gone";
  }
}

}  // namespace
}  // namespace quorvel
