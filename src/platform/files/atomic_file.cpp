#include "platform/files/atomic_file.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

#include <fmt/format.h>

#include "platform/files/file_attributes.h"
#include "platform/files/file_calls.h"

namespace quorvel {

namespace {

constexpr std::uint64_t kBeginSyncBytes = std::uint64_t{4} << 20;
constexpr mode_t kOwnerOnly = 0600;  // until the target's own mode is set, nobody else may read

std::string TempPathIn(const std::string& folder) {
  std::uint64_t random = 0;
  if (getrandom(&random, sizeof random, 0) < 0) random = static_cast<std::uint64_t>(getpid());
  return fmt::format("{}/.quorvel-{:016x}.tmp", folder, random);
}

/// Devices and FIFOs have nothing to sync; some file systems cannot sync a folder.
bool SyncIsUnknownHere(int error) {
  return error == EINVAL || error == EOPNOTSUPP || error == EROFS;
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path, FileCalls& calls) : calls_(calls) {
  if (path == "-") {
    target_.kind = WriteTarget::Kind::Through;
    fd_ = STDOUT_FILENO;
    isStandardOutput_ = true;
  } else {
    target_ = FindWriteTarget(path);
    error_ = target_.error;
  }
  if (!IsGood()) return;
  buffer_ = std::make_unique<char[]>(kPieceBytes);
  setp(buffer_.get(), buffer_.get() + kPieceBytes);
}

AtomicFile::~AtomicFile() {
  Discard();
}

bool AtomicFile::Fail(int error) {
  return Fail(ErrorText(error));
}

bool AtomicFile::Fail(std::string reason) {
  if (error_.empty()) error_ = std::move(reason);
  setp(nullptr, nullptr);
  return false;
}

bool AtomicFile::Begin() {
  if (!IsGood() || ended_) return false;
  if (fd_ >= 0) return true;
  if (target_.kind != WriteTarget::Kind::Through) return MakeTempFile();
  fd_ = calls_.Open(target_.path, O_WRONLY | O_CLOEXEC, 0);
  return fd_ >= 0 || Fail(errno);
}

bool AtomicFile::MakeTempFile() {
  constexpr int kAttempts = 100;
  for (int i = 0; i < kAttempts; ++i) {
    temp_ = TempPathIn(target_.folder);
    live_.Remember(temp_);  // before the file is there, so that no moment is left for a signal
    fd_ = calls_.Open(temp_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kOwnerOnly);
    if (fd_ >= 0) break;
    const int error = errno;
    live_.Forget();
    temp_.clear();
    if (error != EEXIST || i + 1 == kAttempts) return Fail(error);
  }
  return fstat(fd_, &tempState_) == 0 || Fail(errno);
}

bool AtomicFile::Reserve(std::uint64_t bytes) {
  if (!IsGood() || target_.kind == WriteTarget::Kind::Through) return Begin();
  const std::int64_t freeBytes = calls_.FreeBytes(target_.folder);
  if (freeBytes >= 0 && bytes > static_cast<std::uint64_t>(freeBytes))
    return Fail(fmt::format("{} ({} bytes needed, {} free)", ErrorText(ENOSPC), bytes, freeBytes));
  if (!Begin()) return false;
  if (bytes == 0 || calls_.Allocate(fd_, bytes) == 0) return true;
  return errno == EOPNOTSUPP || errno == ENOSYS || Fail(errno);
}

bool AtomicFile::WriteOut(const char* from, std::size_t count) {
  if (!Begin()) return false;
  while (count > 0) {
    const ssize_t written = calls_.Write(fd_, from, count);
    if (written <= 0) return Fail(written < 0 ? errno : EIO);
    from += written;
    count -= static_cast<std::size_t>(written);
    written_ += static_cast<std::uint64_t>(written);
  }
  if (written_ - begunSync_ >= kBeginSyncBytes) {
    calls_.BeginSync(fd_, begunSync_, written_ - begunSync_);
    begunSync_ = written_;
  }
  return true;
}

bool AtomicFile::Flush() {
  if (!WriteOut(pbase(), static_cast<std::size_t>(pptr() - pbase()))) return false;
  setp(buffer_.get(), buffer_.get() + kPieceBytes);
  return true;
}

AtomicFile::int_type AtomicFile::overflow(int_type c) {
  if (!IsGood() || !Flush()) return traits_type::eof();
  if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
  return sputc(traits_type::to_char_type(c));
}

std::streamsize AtomicFile::xsputn(const char* from, std::streamsize count) {
  if (!IsGood()) return 0;
  if (count >= epptr() - pptr() && !Flush()) return 0;
  if (count >= static_cast<std::streamsize>(kPieceBytes))  // large blocks skip the buffer
    return WriteOut(from, static_cast<std::size_t>(count)) ? count : 0;
  std::copy_n(from, count, pptr());
  pbump(static_cast<int>(count));
  return count;
}

int AtomicFile::sync() {
  return IsGood() && Flush() ? 0 : -1;
}

/// Only tells the position: what is written stays written.
AtomicFile::pos_type AtomicFile::seekoff(off_type offset, std::ios_base::seekdir from,
                                         std::ios_base::openmode which) {
  if (offset != 0 || from != std::ios_base::cur || (which & std::ios_base::out) == 0)
    return pos_type(off_type(-1));
  return pos_type(static_cast<off_type>(written_) + (pptr() - pbase()));
}

bool AtomicFile::Commit(std::string& errorText) {
  const bool done =
      Begin() && Flush() && (target_.kind == WriteTarget::Kind::Through ? EndThrough() : Replace());
  if (!done) errorText += error_ + "\n";
  Discard();
  ended_ = true;
  return done;
}

bool AtomicFile::EndThrough() {
  if (isStandardOutput_) return true;
  if (calls_.Sync(fd_) < 0 && !SyncIsUnknownHere(errno)) return Fail(errno);
  return Close();
}

/// The order makes it safe from a power cut: the bytes reach the disk before the name does, and success is
/// reported after both have. A failed sync is final: the system forgets the pages, and the next sync would
/// succeed.
bool AtomicFile::Replace() {
  return KeepAttributes() && (calls_.Sync(fd_) == 0 || Fail(errno)) && Close() && Rename() && SyncFolder();
}

bool AtomicFile::KeepAttributes() {
  const bool kept = target_.kind == WriteTarget::Kind::PlainFile
                        ? CopyFileAttributes(calls_, target_.path, target_.old, fd_)
                        : SetDefaultMode(calls_, fd_);
  return kept || Fail(errno);
}

bool AtomicFile::Close() {
  const int fd = std::exchange(fd_, -1);
  return calls_.Close(fd) == 0 || Fail(errno);
}

bool AtomicFile::Rename() {
  if (calls_.Rename(temp_, target_.path) < 0) {
    const int error = errno;
    // A network file system can report failure for a rename that was done.
    struct stat now {};
    const bool isOurs = stat(target_.path.c_str(), &now) == 0 && now.st_dev == tempState_.st_dev &&
                        now.st_ino == tempState_.st_ino;
    if (!isOurs) return Fail(error);
  }
  live_.Forget();
  temp_.clear();
  return true;
}

bool AtomicFile::SyncFolder() {
  const int folder = calls_.Open(target_.folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
  if (folder < 0) return errno == EACCES || Fail(errno);  // a folder may be writable and not readable
  const int error = calls_.Sync(folder) < 0 ? errno : 0;
  calls_.Close(folder);
  return error == 0 || SyncIsUnknownHere(error) || Fail(error);
}

void AtomicFile::Discard() {
  if (fd_ >= 0 && !isStandardOutput_) calls_.Close(std::exchange(fd_, -1));
  if (temp_.empty()) return;
  calls_.Unlink(temp_);
  live_.Forget();
  temp_.clear();
}

std::string WhyNotWritable(const std::string& path) {
  return FindWriteTarget(path).error;
}

}  // namespace quorvel
