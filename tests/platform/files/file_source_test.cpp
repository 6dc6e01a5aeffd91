#include "platform/files/file_source.h"

#include <sstream>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "tests/platform/child_process.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

using Accept = FileSource::Accept;

std::string Counting(std::size_t bytes) {
  std::string text(bytes, '\0');
  for (std::size_t i = 0; i < bytes; ++i) text[i] = static_cast<char>(i * 7 + i / 256);
  return text;
}

std::string ReadAll(FileSource& source) {
  std::ostringstream text;
  if (source.sgetc() != EOF) text << &source;
  return text.str();
}

TEST(FileSource, ReadsEveryByteInAnyPieces) {
  const TempFolder folder;
  for (const std::size_t size : {0, 1, 262'143, 262'144, 262'145, 900'000}) {
    const std::string bytes = Counting(size);
    const std::string path = folder.Write("map", bytes);
    for (const std::size_t piece : {1000, 262'144, 2'000'000}) {
      SCOPED_TRACE(testing::Message() << size << " bytes in pieces of " << piece);
      FileSource source(path);
      EXPECT_EQ(source.SizeBytes(), size);
      std::string read;
      std::string buffer(piece, ' ');
      while (const auto got = source.sgetn(buffer.data(), static_cast<std::streamsize>(piece)))
        read.append(buffer, 0, static_cast<std::size_t>(got));
      EXPECT_TRUE(read == bytes);
      EXPECT_EQ(source.Error(), "");
    }
  }
}

TEST(FileSource, SeeksInsideAndOutsideThePieceReadLast) {
  const TempFolder folder;
  const std::string bytes = Counting(900'000);
  FileSource source(folder.Write("map", bytes));
  for (const int at : {0, 10, 262'143, 262'144, 5, 899'999, 300'000, 300'001, 299'000, 0}) {
    SCOPED_TRACE(at);
    ASSERT_EQ(source.pubseekpos(at), std::streampos(at));
    EXPECT_EQ(source.pubseekoff(0, std::ios_base::cur), std::streampos(at));
    EXPECT_EQ(source.sbumpc(), static_cast<unsigned char>(bytes[at]));
    std::string block(300'000, ' ');  // past the buffer
    const auto got = source.sgetn(block.data(), 300'000);
    EXPECT_TRUE(bytes.substr(at + 1, 300'000) == block.substr(0, got));
  }
  EXPECT_EQ(source.pubseekoff(-1, std::ios_base::end), std::streampos(899'999));
  EXPECT_EQ(source.pubseekoff(-1, std::ios_base::beg), std::streampos(-1));
  source.pubseekpos(2'000'000);  // past the end: nothing to read, no error
  EXPECT_EQ(source.sgetc(), EOF);
  EXPECT_EQ(source.Error(), "");
}

TEST(FileSource, SaysWhyItCannotOpen) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
  folder.Write("file", "bytes");
  const std::tuple<std::string, Accept, const char*> rows[] = {
      {folder / "none", Accept::AnyInput, "No such file or directory"},
      {folder.Path(), Accept::AnyInput, "Is a directory"},
      {folder / "file/below", Accept::AnyInput, "Not a directory"},
      {folder / "fifo", Accept::PlainFilesOnly, "Not a regular file"},  // without waiting for a writer
      {"/dev/zero", Accept::PlainFilesOnly, "Not a regular file"},
      {"-", Accept::PlainFilesOnly, "No such file or directory"}};
  for (const auto& [path, accept, reason] : rows) {
    SCOPED_TRACE(path);
    FileSource source(path, accept);
    EXPECT_FALSE(source.IsOpen());
    EXPECT_EQ(source.Error(), reason);
    EXPECT_EQ(source.sgetc(), EOF);
  }
}

TEST(FileSource, StopsAtItsLimit) {
  const TempFolder folder;
  const std::string path = folder.Write("map", Counting(1000));
  EXPECT_EQ(ReadAll(*std::make_unique<FileSource>(path, Accept::AnyInput, 1000)), Counting(1000));

  FileSource tooLarge(path, Accept::AnyInput, 999);
  EXPECT_FALSE(tooLarge.IsOpen());
  EXPECT_EQ(tooLarge.Error(), "Larger than the limit of 999 bytes");

  FileSource endless("/dev/zero", Accept::AnyInput, 1'000'000);
  EXPECT_LE(ReadAll(endless).size(), 1'000'000U);
  EXPECT_EQ(endless.Error(), "Larger than the limit of 1000000 bytes");
}

TEST(FileSource, ReadsAFifoForwardOnly) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
  const std::string bytes = Counting(600'000);
  std::thread writer([&] { folder.Write("fifo", bytes); });
  FileSource source(folder / "fifo");
  EXPECT_FALSE(source.CanSeek());
  EXPECT_EQ(source.SizeBytes(), std::nullopt);
  EXPECT_EQ(source.sgetc(), static_cast<unsigned char>(bytes[0]));
  EXPECT_EQ(source.pubseekpos(599'999), std::streampos(-1));
  EXPECT_TRUE(ReadAll(source) == bytes);
  writer.join();
  EXPECT_EQ(source.Error(), "");
}

TEST(FileSource, ReadsStandardInputFromWhereItStands) {
  const TempFolder folder;
  const std::string path = folder.Write("in", "skipped map");
  const int status = RunInChild([&] {
    dup2(open(path.c_str(), O_RDONLY), STDIN_FILENO);
    lseek(STDIN_FILENO, 8, SEEK_SET);
    FileSource source("-");
    if (source.SizeBytes() != 3U || ReadAll(source) != "map") _exit(1);
    source.pubseekpos(0);
    if (ReadAll(source) != "map") _exit(2);
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace quorvel
