#include "platform/files/file_source.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include "platform/files/file_calls.h"

namespace quorvel {

FileSource::FileSource(const std::string& path, Accept accept, std::uint64_t limitBytes)
    : limit_(limitBytes) {
  Open(path, accept);
  if (!IsOpen()) return;
  Inspect(accept);
  if (IsOpen()) buffer_ = std::make_unique<char[]>(kPieceBytes);
}

FileSource::~FileSource() {
  Close();
}

void FileSource::Open(const std::string& path, Accept accept) {
  if (path == "-" && accept == Accept::AnyInput) {
    fd_ = STDIN_FILENO;
    return;
  }
  // A FIFO without a writer must not hold up one who wants plain files only.
  const int wait = accept == Accept::PlainFilesOnly ? O_NONBLOCK : 0;
  fd_ = FileCalls::Real().Open(path, O_RDONLY | O_CLOEXEC | wait, 0);
  ownsFd_ = fd_ >= 0;
  if (fd_ < 0) Fail(ErrorText(errno));
}

void FileSource::Inspect(Accept accept) {
  struct stat about {};
  if (fstat(fd_, &about) < 0) return Refuse(ErrorText(errno));
  if (S_ISDIR(about.st_mode)) return Refuse(ErrorText(EISDIR));
  if (!S_ISREG(about.st_mode)) {
    if (accept == Accept::PlainFilesOnly) Refuse("Not a regular file");
    return;
  }
  const off_t start = lseek(fd_, 0, SEEK_CUR);
  seekable_ = start >= 0;
  if (!seekable_) return;
  start_ = static_cast<std::uint64_t>(start);
  size_ = static_cast<std::uint64_t>(std::max<off_t>(about.st_size - start, 0));
  if (*size_ > limit_) Refuse(PassLimit());
}

bool FileSource::IsFileAt(const std::string& path) const {
  struct stat own {};
  struct stat other {};
  return IsOpen() && fstat(fd_, &own) == 0 && stat(path.c_str(), &other) == 0 && own.st_dev == other.st_dev &&
         own.st_ino == other.st_ino;
}

void FileSource::Close() {
  if (ownsFd_) close(fd_);
  fd_ = -1;
  ownsFd_ = false;
}

void FileSource::Fail(std::string reason) {
  if (error_.empty()) error_ = std::move(reason);
}

void FileSource::Refuse(std::string reason) {
  Fail(std::move(reason));
  Close();
}

Outcome FileSource::GetOutcome() const {
  if (error_.empty()) return Outcome::Done;
  return passedLimit_ ? Outcome::Refused : Outcome::FileTrouble;
}

std::string FileSource::PassLimit() {
  passedLimit_ = true;
  return fmt::format("Larger than the limit of {} bytes", limit_);
}

/// Bytes read, 0 at the end and after an error. `readEnd_` moves along.
std::size_t FileSource::ReadSome(char* to, std::size_t count) {
  if (!IsOpen() || !error_.empty()) return 0;
  ssize_t got = read(fd_, to, count);
  while (got < 0 && errno == EINTR) got = read(fd_, to, count);
  if (got < 0) {
    Fail(ErrorText(errno));
    return 0;
  }
  if (static_cast<std::uint64_t>(got) > limit_ - std::min(readEnd_, limit_)) {
    Fail(PassLimit());
    return 0;
  }
  readEnd_ += static_cast<std::uint64_t>(got);
  return static_cast<std::size_t>(got);
}

FileSource::int_type FileSource::underflow() {
  if (gptr() < egptr()) return traits_type::to_int_type(*gptr());
  if (!buffer_) return traits_type::eof();
  const std::size_t got = ReadSome(buffer_.get(), kPieceBytes);
  setg(buffer_.get(), buffer_.get(), buffer_.get() + got);
  return got == 0 ? traits_type::eof() : traits_type::to_int_type(*gptr());
}

std::streamsize FileSource::xsgetn(char* to, std::streamsize count) {
  std::streamsize done = 0;
  while (done < count) {
    const std::streamsize buffered = std::min<std::streamsize>(egptr() - gptr(), count - done);
    if (buffered > 0) {
      std::memcpy(to + done, gptr(), static_cast<std::size_t>(buffered));
      setg(eback(), gptr() + buffered, egptr());
      done += buffered;
    } else if (count - done >= static_cast<std::streamsize>(kPieceBytes)) {  // large blocks skip the buffer
      setg(buffer_.get(), buffer_.get(), buffer_.get());
      const std::size_t got = ReadSome(to + done, static_cast<std::size_t>(count - done));
      if (got == 0) break;
      done += static_cast<std::streamsize>(got);
    } else if (traits_type::eq_int_type(underflow(), traits_type::eof())) {
      break;
    }
  }
  return done;
}

FileSource::pos_type FileSource::seekoff(off_type offset, std::ios_base::seekdir from,
                                         std::ios_base::openmode which) {
  if (from == std::ios_base::cur) offset += static_cast<off_type>(Position());
  if (from == std::ios_base::end) {
    if (!size_) return pos_type(off_type(-1));
    offset += static_cast<off_type>(*size_);
  }
  return seekpos(pos_type(offset), which);
}

FileSource::pos_type FileSource::seekpos(pos_type position, std::ios_base::openmode which) {
  const pos_type refused(off_type(-1));
  const off_type offset = position;
  if (!IsOpen() || offset < 0 || (which & std::ios_base::in) == 0) return refused;

  const std::uint64_t wanted = static_cast<std::uint64_t>(offset);
  const std::uint64_t bufferStart = readEnd_ - static_cast<std::uint64_t>(egptr() - eback());
  if (wanted >= bufferStart && wanted <= readEnd_) {
    setg(eback(), eback() + (wanted - bufferStart), egptr());
    return position;
  }
  if (!seekable_) return refused;
  if (lseek(fd_, static_cast<off_t>(start_ + wanted), SEEK_SET) < 0) {
    Fail(ErrorText(errno));
    return refused;
  }
  readEnd_ = wanted;
  setg(buffer_.get(), buffer_.get(), buffer_.get());
  return position;
}

}  // namespace quorvel
