#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <sys/types.h>

namespace quorvel {

/// Bytes are read, written and handed from room to room in pieces of this size.
inline constexpr std::size_t kPieceBytes = std::size_t{256} * 1024;

/// The system calls of writing files, in one place so that tests can let each of them fail.
/// Results are the system's: below 0 means failure with the reason in errno. EINTR is handled here.
class FileCalls {
 public:
  virtual ~FileCalls() = default;
  /// The system itself.
  static FileCalls& Real();

  virtual int Open(const std::string& path, int flags, mode_t mode);
  virtual ssize_t Write(int fd, const char* from, std::size_t count);
  /// Takes the room for `bytes` bytes; the file's size stays.
  virtual int Allocate(int fd, std::uint64_t bytes);
  virtual int ChangeOwner(int fd, uid_t owner, gid_t group);
  virtual int ChangeMode(int fd, mode_t mode);
  virtual int Sync(int fd);
  /// Lets the system begin to write these bytes out, so that a Sync has less to wait for. A hint only.
  virtual void BeginSync(int fd, std::uint64_t from, std::uint64_t bytes);
  virtual int Close(int fd);
  virtual int Rename(const std::string& from, const std::string& to);
  virtual int Unlink(const std::string& path);
  /// Bytes that this user can still write into the file system of `folder`; below 0: unknown.
  virtual std::int64_t FreeBytes(const std::string& folder);
};

/// The system's words for an errno value.
std::string ErrorText(int error);

}  // namespace quorvel
