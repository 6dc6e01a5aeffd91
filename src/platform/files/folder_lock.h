#pragma once

#include <string>

namespace quorvel {

/// Keeps other programs that also use this class out of a folder during its life. A lock on the folder itself
/// leaves no file behind. When another holds it for half a second, or the file system knows no locks, goes on
/// without.
class FolderLock {
 public:
  explicit FolderLock(const std::string& folder);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  int fd_;
};

}  // namespace quorvel
