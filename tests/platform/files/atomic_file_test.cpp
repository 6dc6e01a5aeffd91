#include "platform/files/atomic_file.h"

#include <cerrno>
#include <csignal>
#include <functional>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/xattr.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/child_process.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

using testing::AnyOf;
using testing::ElementsAre;

const std::string kOld = "the old map";
const std::string kNew = std::string(600'000, 'n') + "the new map";  // several pieces

/// Calls `before` ahead of every call but FreeBytes and Unlink, with its number from 1 on; an errno other
/// than 0 makes that call fail without being carried out, a negative one after it was.
class WatchedCalls : public FileCalls {
 public:
  std::function<int(int number, const std::string& name)> before = [](int, const std::string&) { return 0; };
  std::vector<std::string> log;

  int Open(const std::string& path, int flags, mode_t mode) override {
    return Watch("open", [&] { return FileCalls::Open(path, flags, mode); });
  }
  ssize_t Write(int fd, const char* from, std::size_t count) override {
    return Watch("write", [&] { return FileCalls::Write(fd, from, count); });
  }
  int Allocate(int fd, std::uint64_t bytes) override {
    return Watch("allocate", [&] { return FileCalls::Allocate(fd, bytes); });
  }
  int ChangeOwner(int fd, uid_t owner, gid_t group) override {
    return Watch("owner", [&] { return FileCalls::ChangeOwner(fd, owner, group); });
  }
  int ChangeMode(int fd, mode_t mode) override {
    return Watch("mode", [&] { return FileCalls::ChangeMode(fd, mode); });
  }
  int Sync(int fd) override {
    return Watch("sync", [&] { return FileCalls::Sync(fd); });
  }
  int Close(int fd) override {
    // Failing or not, the descriptor is closed.
    const int result = FileCalls::Close(fd);
    return Watch("close", [&] { return result; });
  }
  int Rename(const std::string& from, const std::string& to) override {
    return Watch("rename", [&] { return FileCalls::Rename(from, to); });
  }

 private:
  template <class Call>
  auto Watch(const std::string& name, Call call) -> decltype(call()) {
    log.push_back(name);
    const int number = static_cast<int>(log.size());
    const int error = before(number, name);
    if (error <= 0) {
      const auto result = call();
      if (error == 0) return result;
    }
    errno = std::abs(error);
    return -1;
  }
};

/// Writes `bytes` by the whole procedure; the error text of Commit, empty on success.
std::string Save(const std::string& path, const std::string& bytes, FileCalls& calls = FileCalls::Real()) {
  AtomicFile file(path, calls);
  file.Reserve(bytes.size());
  file.sputn(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  std::string errorText;
  const bool done = file.Commit(errorText);
  EXPECT_EQ(done, errorText.empty());
  return errorText;
}

TEST(AtomicFile, WritesWhatItIsGivenInAnyPieces) {
  const TempFolder folder;
  for (const std::size_t piece : {1, 1000, 262'143, 262'144, 262'145, 700'000}) {
    SCOPED_TRACE(piece);
    AtomicFile file(folder / "map");
    for (std::size_t at = 0; at < kNew.size(); at += piece) {
      EXPECT_EQ(file.pubseekoff(0, std::ios_base::cur, std::ios_base::out), std::streamoff(at));
      if (piece == 1) file.sputc(kNew[at]);
      if (piece > 1) file.sputn(&kNew[at], static_cast<std::streamsize>(std::min(piece, kNew.size() - at)));
    }
    std::string errorText;
    EXPECT_TRUE(file.Commit(errorText)) << errorText;
    EXPECT_TRUE(folder.Read("map") == kNew);
    EXPECT_THAT(folder.Names(), ElementsAre("map"));
  }
}

mode_t ModeOf(const std::string& path) {
  struct stat state {};
  EXPECT_EQ(stat(path.c_str(), &state), 0);
  return state.st_mode & 07777;
}

TEST(AtomicFile, LeavesTheOldFileWithoutCommitAndAnothersAlone) {
  const TempFolder folder;
  folder.Write("map", kOld);
  {
    AtomicFile given(folder / "map");
    given.sputn(kNew.data(), 600'000);
    EXPECT_EQ(folder.Read("map"), kOld);
    EXPECT_EQ(Save(folder / "map", "another writer's"), "");
  }
  EXPECT_EQ(folder.Read("map"), "another writer's");
  EXPECT_THAT(folder.Names(), ElementsAre("map"));
}

/// Saves with call number `failing` failing; false: there were fewer calls. Only the folder's sync comes
/// after the rename, so its failure is told with the new file there.
bool SaveWithFailure(bool existed, int error, int failing) {
  const TempFolder folder;
  if (existed) folder.Write("map", kOld);
  WatchedCalls calls;
  bool renamed = false;
  calls.before = [&](int number, const std::string& name) {
    renamed = renamed || (name == "rename" && number != failing);
    return number == failing ? error : 0;
  };
  const std::string errorText = Save(folder / "map", kNew, calls);
  const std::string whenFailed = ErrorText(error) + "\n";
  const bool isThere = existed || renamed;

  EXPECT_TRUE(folder.Read("map") == (renamed ? kNew : existed ? kOld : "(none)"));
  EXPECT_THAT(errorText, AnyOf(renamed ? "" : whenFailed, whenFailed));
  EXPECT_EQ(folder.Names(), isThere ? std::vector<std::string>{"map"} : std::vector<std::string>{});
  return static_cast<int>(calls.log.size()) >= failing;
}

TEST(AtomicFile, LeavesOneWholeFileAndNoOtherWhateverCallFails) {
  for (const bool existed : {true, false})
    for (const int error : {ENOSPC, EIO, EACCES})
      for (int failing = 1; failing == 1 || !testing::Test::HasFailure(); ++failing) {
        SCOPED_TRACE(testing::Message()
                     << "existed " << existed << ", errno " << error << ", call " << failing);
        if (!SaveWithFailure(existed, error, failing)) break;
      }
}

TEST(AtomicFile, LeavesAWholeFileWhenKilledAtAnyCall) {
  bool died = true;
  for (int deadly = 1; died; ++deadly) {
    SCOPED_TRACE(deadly);
    const TempFolder folder;
    folder.Write("map", kOld);
    const int status = RunInChild([&] {
      WatchedCalls calls;
      calls.before = [&](int number, const std::string&) { return number == deadly ? raise(SIGKILL) : 0; };
      Save(folder / "map", kNew, calls);
    });
    died = WIFSIGNALED(status);
    EXPECT_TRUE(folder.Read("map") == kOld || folder.Read("map") == kNew);
    EXPECT_LE(folder.Names().size(), 2U);
    EXPECT_EQ(Save(folder / "map", "next"), "");
    EXPECT_EQ(folder.Read("map"), "next");
  }
}

TEST(AtomicFile, SyncsTheFileBeforeAndTheFolderAfterTheRename) {
  const TempFolder folder;
  folder.Write("map", kOld);
  WatchedCalls calls;
  EXPECT_EQ(Save(folder / "map", "short", calls), "");
  EXPECT_THAT(calls.log, ElementsAre("open", "allocate", "write", "owner", "mode", "sync", "close", "rename",
                                     "open", "sync", "close"));
}

TEST(AtomicFile, KnowsWhichFailuresAreNone) {
  struct Row {
    const char *text, *call;
    int occurrence, error;
    bool saved;
  };
  constexpr Row rows[] = {
      {"a file system that cannot reserve", "allocate", 1, EOPNOTSUPP, true},
      {"no room", "allocate", 1, ENOSPC, false},
      {"a folder that cannot be synced", "sync", 2, EINVAL, true},
      {"a folder that cannot be synced", "sync", 2, ENOTSUP, true},
      {"a folder whose disk is damaged", "sync", 2, EIO, false},
      {"a file that cannot be synced", "sync", 1, EINVAL, false},
      {"a folder that may not be read", "open", 2, EACCES, true},
      {"an owner that may not be given", "owner", 1, EPERM, true},
      {"a file system without modes", "mode", 1, EPERM, true},
      {"a target that is a mount point", "rename", 1, EBUSY, false},
      {"a network's report of a rename that was done", "rename", 1, -EIO, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    const TempFolder folder;
    folder.Write("map", kOld);
    WatchedCalls calls;
    int seen = 0;
    calls.before = [&](int, const std::string& name) {
      return name == row.call && ++seen == row.occurrence ? row.error : 0;
    };
    EXPECT_EQ(Save(folder / "map", kNew, calls), row.saved ? "" : ErrorText(row.error) + "\n");
  }
}

TEST(AtomicFile, GoesOnAfterShortWritesAndRefusesWhatDoesNotFit) {
  class SmallDisk : public FileCalls {
    std::int64_t FreeBytes(const std::string&) override { return 600'011; }
    ssize_t Write(int fd, const char* from, std::size_t count) override {
      return FileCalls::Write(fd, from, std::min<std::size_t>(count, 70'001));
    }
  } calls;
  const TempFolder folder;
  EXPECT_EQ(Save(folder / "map", kNew, calls), "");
  EXPECT_TRUE(folder.Read("map") == kNew);
  AtomicFile file(folder / "larger", calls);
  EXPECT_FALSE(file.Reserve(600'012));
  EXPECT_EQ(file.Error(), "No space left on device (600012 bytes needed, 600011 free)");
  EXPECT_THAT(folder.Names(), ElementsAre("map"));
}

TEST(AtomicFile, KeepsTheModeAndIsNeverWider) {
  for (const mode_t mode : {0600, 0640, 0644, 0664, 0755, 0200, 0666, 04755, 02770}) {
    SCOPED_TRACE(testing::Message() << std::oct << mode);
    const TempFolder folder;
    const std::string path = folder.Write("map", kOld);
    ASSERT_EQ(chmod(path.c_str(), mode), 0);
    class ModeCalls : public FileCalls {
      ssize_t Write(int fd, const char* from, std::size_t count) override {
        EXPECT_EQ(ModeOf("/proc/self/fd/" + std::to_string(fd)), 0600U);
        return FileCalls::Write(fd, from, count);
      }
    } calls;
    EXPECT_EQ(Save(path, kNew, calls), "");
    EXPECT_EQ(ModeOf(path), mode);
  }
  const TempFolder folder;
  for (const mode_t mask : {022, 077, 0}) {
    const mode_t old = umask(mask);
    const std::string fresh = folder / std::to_string(mask);
    EXPECT_EQ(Save(fresh, kNew), "");
    EXPECT_EQ(umask(old), mask);
    EXPECT_EQ(ModeOf(fresh), 0666 & ~mask);
  }
}

TEST(AtomicFile, KeepsExtendedAttributes) {
  const TempFolder folder;
  const std::string path = folder.Write("map", kOld);
  if (setxattr(path.c_str(), "user.note", "mine", 4, 0) != 0)
    GTEST_SKIP() << "no attributes on this file system";
  EXPECT_EQ(Save(path, kNew), "");
  char value[16] = {};
  EXPECT_EQ(getxattr(path.c_str(), "user.note", value, sizeof value), 4);
  EXPECT_STREQ(value, "mine");
}

TEST(AtomicFile, FollowsLinks) {
  constexpr std::pair<const char*, const char*> rows[] = {
      {"real", "real"},
      {"sub/real", "sub/real"},
      {"fresh", "fresh"},       // dangling: its end is made
      {"sub/link", "sub/end"},  // relative to its own folder
      {"sub/../real", "real"}};
  for (const auto& [target, written] : rows) {
    SCOPED_TRACE(target);
    const TempFolder folder;
    std::filesystem::create_directory(folder / "sub");
    std::filesystem::create_symlink("end", folder / "sub/link");
    folder.Write("real", kOld);
    folder.Write("sub/real", kOld);
    std::filesystem::create_symlink(target, folder / "map");
    std::filesystem::create_hard_link(folder / "sub/real", folder / "other");
    EXPECT_EQ(Save(folder / "map", "new"), "");
    EXPECT_EQ(folder.Read(written), "new");
    EXPECT_EQ(std::filesystem::read_symlink(folder / "map"), target);
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(folder / written)));
    EXPECT_EQ(folder.Read("other"), kOld) << "a hard link keeps what it had";
  }
}

TEST(AtomicFile, RefusesWhatMustNotBeReplaced) {
  const TempFolder folder;
  std::filesystem::create_directory(folder / "folder");
  std::filesystem::create_symlink("loop", folder / "loop");
  chmod(folder.Write("read-only", kOld).c_str(), 0444);
  for (const auto& [name, reason] : {std::pair{"folder", "Is a directory"},
                                     {"folder/", "Is a directory"},
                                     {"missing/", "Is a directory"},
                                     {"loop", "Too many levels of symbolic links"},
                                     {"read-only", "The file is read-only"},
                                     {"missing/map", "No such file or directory"},
                                     {"read-only/map", "Not a directory"}}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(WhyNotWritable(folder / name), reason);
    EXPECT_EQ(Save(folder / name, kNew), std::string(reason) + "\n");
  }
  EXPECT_EQ(Save("", kNew), "No such file or directory\n");
  EXPECT_EQ(folder.Read("read-only"), kOld);
  EXPECT_THAT(folder.Names(), ElementsAre("folder", "loop", "read-only"));
}

TEST(AtomicFile, WritesThroughDevicesAndFifos) {
  EXPECT_EQ(Save("/dev/null", kNew), "");
  EXPECT_EQ(Save("/dev/full", kNew), "No space left on device\n");
  EXPECT_EQ(Save("/dev/full", "short"), "No space left on device\n");  // fails only at the end

  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
  std::string received;
  std::thread reader([&] { received = folder.Read("fifo"); });
  EXPECT_EQ(Save(folder / "fifo", kNew), "");
  reader.join();
  EXPECT_TRUE(received == kNew);
  EXPECT_TRUE(std::filesystem::is_fifo(folder / "fifo"));
}

TEST(AtomicFile, ReportsTheUsersLimitOfFileSizes) {
  const TempFolder folder;
  const std::string path = folder.Write("map", kOld);
  const int status = RunInChild([&] {
    EndTidilyOnSignals();
    const rlimit limit{100'000, 100'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    if (Save(path, kNew) != "File too large\n") _exit(1);
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(folder.Read("map"), kOld);
  EXPECT_THAT(folder.Names(), ElementsAre("map"));
}

}  // namespace
}  // namespace quorvel
