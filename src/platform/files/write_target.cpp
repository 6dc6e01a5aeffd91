#include "platform/files/write_target.h"

#include <cerrno>
#include <climits>
#include <optional>

#include <fcntl.h>
#include <unistd.h>

#include "platform/files/file_calls.h"

namespace quorvel {

namespace {

constexpr int kMaxLinks = 40;  // as the kernel's own limit

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == path.npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

/// Where the link at `path` leads; none: it is no link.
std::optional<std::string> LinkTarget(const std::string& path) {
  char text[PATH_MAX];
  const ssize_t length = readlink(path.c_str(), text, sizeof text);
  if (length < 0) return std::nullopt;
  const std::string target(text, static_cast<std::size_t>(length));
  return target.starts_with('/') ? target : FolderOf(path) + "/" + target;
}

/// False: the links go on for ever.
bool FollowLinks(std::string& path) {
  for (int i = 0; i <= kMaxLinks; ++i) {
    const std::optional<std::string> target = LinkTarget(path);
    if (!target) return true;
    path = *target;
  }
  return false;
}

std::string AccessTrouble(const std::string& path, int rights) {
  return faccessat(AT_FDCWD, path.c_str(), rights, AT_EACCESS) == 0 ? std::string() : ErrorText(errno);
}

std::string PlainFileTrouble(const WriteTarget& target) {
  if ((target.old.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return "The file is read-only";
  return AccessTrouble(target.path, W_OK);
}

std::string Trouble(const WriteTarget& target) {
  if (target.path.empty()) return ErrorText(ENOENT);
  if (target.path.back() == '/') return ErrorText(EISDIR);
  if (target.kind == WriteTarget::Kind::PlainFile) {
    std::string trouble = PlainFileTrouble(target);
    if (!trouble.empty()) return trouble;
  }
  return AccessTrouble(target.folder, W_OK | X_OK);
}

}  // namespace

WriteTarget FindWriteTarget(const std::string& path) {
  WriteTarget target;
  target.path = path;
  const bool exists = stat(path.c_str(), &target.old) == 0;
  if (!exists && errno != ENOENT) {
    target.error = ErrorText(errno);
    return target;
  }
  if (exists && S_ISDIR(target.old.st_mode)) {
    target.error = ErrorText(EISDIR);
    return target;
  }
  // Its links are left alone: some lead to names that are no path.
  if (exists && !S_ISREG(target.old.st_mode)) {
    target.kind = WriteTarget::Kind::Through;
    return target;
  }
  if (exists) target.kind = WriteTarget::Kind::PlainFile;
  if (!FollowLinks(target.path)) {
    target.error = ErrorText(ELOOP);
    return target;
  }
  target.folder = FolderOf(target.path);
  target.error = Trouble(target);
  return target;
}

}  // namespace quorvel
