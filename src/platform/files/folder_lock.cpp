#include "platform/files/folder_lock.h"

#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quorvel {

FolderLock::FolderLock(const std::string& folder)
    : fd_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  constexpr int kAttempts = 50;
  constexpr std::chrono::milliseconds kPause(10);
  if (fd_ < 0) return;
  for (int i = 0; i < kAttempts && flock(fd_, LOCK_EX | LOCK_NB) < 0 && errno == EWOULDBLOCK; ++i)
    std::this_thread::sleep_for(kPause);
}

FolderLock::~FolderLock() {
  if (fd_ >= 0) close(fd_);
}

}  // namespace quorvel
