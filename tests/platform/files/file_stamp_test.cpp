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
  struct Row {
    const char* text;
    bool changed;
    void (*change)(const TempFolder& folder);
  };
  const Row rows[] = {
      {"nothing", false, [](const TempFolder&) {}},
      {"touched", false, [](const TempFolder& folder) { SetTime(folder / "map", 2000); }},
      {"replaced by a copy", false,
       [](const TempFolder& folder) {
         std::filesystem::rename(folder.Write("copy", "bytes"), folder / "map");
       }},
      {"same size, other bytes", true, [](const TempFolder& folder) { folder.Write("map", "BYTES"); }},
      {"other size", true, [](const TempFolder& folder) { folder.Write("map", "bytes and more"); }},
      {"other size, same time", true,
       [](const TempFolder& folder) {
         folder.Write("map", "bytes and more");
         SetTime(folder / "map", 1000);
       }},
      {"gone", false, [](const TempFolder& folder) { std::filesystem::remove(folder / "map"); }},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    const TempFolder folder;
    const std::string path = folder.Write("map", "bytes");
    SetTime(path, 1000);
    const FileStamp stamp = FileStamp::Of(path);
    row.change(folder);
    EXPECT_EQ(stamp.IsChanged(path), row.changed);
    EXPECT_FALSE(FileStamp().IsChanged(path));
  }
}

}  // namespace
}  // namespace quorvel
