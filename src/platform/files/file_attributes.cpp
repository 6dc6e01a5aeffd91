#include "platform/files/file_attributes.h"

#include <cerrno>
#include <cstring>
#include <vector>

#include <sys/xattr.h>

namespace quorvel {

namespace {

constexpr std::size_t kMaxAttributeBytes = 65536;  // of a value and of the list of names, by the kernel

/// Access lists are extended attributes too, "system.posix_acl_access".
void CopyExtendedAttributes(const std::string& path, int fd) {
  std::vector<char> names(kMaxAttributeBytes);
  std::vector<char> value(kMaxAttributeBytes);
  const ssize_t length = listxattr(path.c_str(), names.data(), names.size());
  for (ssize_t at = 0; at < length; at += static_cast<ssize_t>(std::strlen(&names[at])) + 1) {
    const ssize_t size = getxattr(path.c_str(), &names[at], value.data(), value.size());
    if (size >= 0) fsetxattr(fd, &names[at], value.data(), static_cast<std::size_t>(size), 0);
  }
}

/// File systems without modes refuse every change.
bool SetMode(FileCalls& calls, int fd, mode_t mode) {
  return calls.ChangeMode(fd, mode) == 0 || errno == EPERM || errno == EOPNOTSUPP;
}

}  // namespace

bool CopyFileAttributes(FileCalls& calls, const std::string& path, const struct stat& old, int fd) {
  mode_t mode = old.st_mode & 07777;
  if (calls.ChangeOwner(fd, old.st_uid, old.st_gid) != 0) {
    mode &= static_cast<mode_t>(~(S_ISUID | S_ISGID));
    calls.ChangeOwner(fd, static_cast<uid_t>(-1), old.st_gid);
  }
  CopyExtendedAttributes(path, fd);
  return SetMode(calls, fd, mode);  // last, since a new owner clears bits and a new access list sets some
}

bool SetDefaultMode(FileCalls& calls, int fd) {
  // It can only be read by setting it; meanwhile other threads' files are narrower.
  const mode_t mask = umask(077);
  umask(mask);
  return SetMode(calls, fd, 0666 & ~mask);
}

}  // namespace quorvel
