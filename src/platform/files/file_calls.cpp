#include "platform/files/file_calls.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace quorvel {

namespace {

template <class Call>
auto Retry(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace

FileCalls& FileCalls::Real() {
  static FileCalls real;
  return real;
}

int FileCalls::Open(const std::string& path, int flags, mode_t mode) {
  return Retry([&] { return open(path.c_str(), flags, mode); });
}

ssize_t FileCalls::Write(int fd, const char* from, std::size_t count) {
  return Retry([&] { return write(fd, from, count); });
}

int FileCalls::Allocate(int fd, std::uint64_t bytes) {
  return Retry([&] { return fallocate(fd, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(bytes)); });
}

int FileCalls::ChangeOwner(int fd, uid_t owner, gid_t group) {
  return fchown(fd, owner, group);
}

int FileCalls::ChangeMode(int fd, mode_t mode) {
  return fchmod(fd, mode);
}

int FileCalls::Sync(int fd) {
  return Retry([&] { return fsync(fd); });
}

void FileCalls::BeginSync(int fd, std::uint64_t from, std::uint64_t bytes) {
  sync_file_range(fd, static_cast<off64_t>(from), static_cast<off64_t>(bytes), SYNC_FILE_RANGE_WRITE);
}

// Not repeated after EINTR: the descriptor is gone by then and may belong to another file already.
int FileCalls::Close(int fd) {
  return close(fd) < 0 && errno != EINTR ? -1 : 0;
}

int FileCalls::Rename(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str());
}

int FileCalls::Unlink(const std::string& path) {
  return unlink(path.c_str());
}

std::int64_t FileCalls::FreeBytes(const std::string& folder) {
  struct statvfs system {};
  if (statvfs(folder.c_str(), &system) < 0) return -1;
  const auto blocks = geteuid() == 0 ? system.f_bfree : system.f_bavail;
  return static_cast<std::int64_t>(blocks * system.f_frsize);
}

std::string ErrorText(int error) {
  return std::generic_category().message(error);
}

}  // namespace quorvel
