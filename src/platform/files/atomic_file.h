#pragma once

#include <cstdint>
#include <memory>
#include <streambuf>
#include <string>

#include <sys/stat.h>

#include "platform/files/end_by_signal.h"
#include "platform/files/file_calls.h"
#include "platform/files/write_target.h"

namespace quorvel {

/// Writes a file that appears whole or not at all: into a temporary file beside the target, which replaces it
/// at `Commit`.
///
/// - Links are followed: the link stays, the file at its end is replaced, or made when there is none.
/// - An existing file keeps mode, owner, group, access list and extended attributes where the system allows
/// it; a
///   further hard link keeps the old content. Read-only files and folders are refused.
/// - A FIFO, a device and "-" (standard output) are written through; there an error can leave a part behind.
/// - Without a successful `Commit` the target keeps its bytes and no temporary file stays.
/// - Nothing is made before the first `Reserve`, full buffer (256 KB), or `Commit`.
class AtomicFile : public std::streambuf {
 public:
  explicit AtomicFile(const std::string& path, FileCalls& calls = FileCalls::Real());
  ~AtomicFile() override;
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  /// False: an error happened, at the latest at opening; all further bytes are dropped.
  bool IsGood() const { return error_.empty(); }
  /// What went wrong first, without the file's name ("No space left on device"); empty: nothing.
  const std::string& Error() const { return error_; }

  /// Says how many bytes will be written in all, so that a full disk is noticed before the first of them.
  /// False: there is no room, or another error.
  bool Reserve(std::uint64_t bytes);

  /// Puts the written bytes in the target's place, safe from a power cut, and ends the writing. False: a line
  /// with the reason was appended to `errorText`, and the target is as it was. (Only when the folder could
  /// not be synced the new file stands there already.)
  bool Commit(std::string& errorText);

 protected:
  int_type overflow(int_type c) override;
  std::streamsize xsputn(const char* from, std::streamsize count) override;
  int sync() override;
  pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode which) override;

 private:
  bool Begin();
  bool MakeTempFile();
  bool WriteOut(const char* from, std::size_t count);
  bool Flush();
  bool EndThrough();
  bool Replace();
  bool KeepAttributes();
  bool Close();
  bool Rename();
  bool SyncFolder();
  bool Fail(int error);
  bool Fail(std::string reason);
  void Discard();

  FileCalls& calls_;
  WriteTarget target_;
  int fd_ = -1;  // of the temporary file, or of the target when it is written through
  bool isStandardOutput_ = false;
  bool ended_ = false;  // by Commit
  std::string temp_;    // empty: none
  struct stat tempState_ {};
  LiveTempFile live_;
  std::uint64_t written_ = 0;    // without what is still buffered
  std::uint64_t begunSync_ = 0;  // so much of it is on its way to the disk
  std::string error_;
  std::unique_ptr<char[]> buffer_;
};

/// Why a save to `path` cannot succeed (read-only file or folder, a folder in its place); empty: nothing
/// known.
std::string WhyNotWritable(const std::string& path);

}  // namespace quorvel
