#include "platform/files/open_file_claim.h"

#include <cerrno>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <isa-l/crc64.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include "platform/files/xdg_folders.h"

namespace quorvel {

namespace {

/// One name for all paths that lead to the file; empty: there is no place for claims.
std::string LockPathFor(const std::string& path) {
  std::string folder = RuntimeFolder();
  if (folder.empty()) return {};
  folder += "/quorvel";
  mkdir(folder.c_str(), 0700);  // exists, or the lock file cannot be made

  std::error_code failed;
  const std::filesystem::path canonical = std::filesystem::weakly_canonical(path, failed);
  const std::string name = failed ? path : canonical.string();
  const auto bytes = reinterpret_cast<const unsigned char*>(name.data());
  return fmt::format("{}/{:016x}.open", folder, crc64_ecma_refl(0, bytes, name.size()));
}

/// False: who held the file before has removed it, and further editors would lock another one.
bool IsNamed(int fd, const std::string& path) {
  struct stat held {};
  struct stat named {};
  return fstat(fd, &held) == 0 && stat(path.c_str(), &named) == 0 && held.st_ino == named.st_ino &&
         held.st_dev == named.st_dev;
}

}  // namespace

bool OpenFileClaim::Claim(const std::string& path) {
  Release();
  lockPath_ = LockPathFor(path);
  if (lockPath_.empty()) return true;
  do {
    if (fd_ >= 0) close(fd_);
    fd_ = open(lockPath_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd_ < 0) return true;
    if (flock(fd_, LOCK_EX | LOCK_NB) != 0) {
      const bool isClaimed = errno == EWOULDBLOCK;
      close(std::exchange(fd_, -1));
      return !isClaimed;
    }
  } while (!IsNamed(fd_, lockPath_));
  return true;
}

void OpenFileClaim::Release() {
  if (fd_ < 0) return;
  unlink(lockPath_.c_str());
  close(fd_);
  fd_ = -1;
}

}  // namespace quorvel
