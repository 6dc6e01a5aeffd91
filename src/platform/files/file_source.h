#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <streambuf>
#include <string>

#include "platform/files/outcome.h"

namespace quorvel {

/// Reads a file in pieces of 256 KB. The first error ends the input like an end of file and is kept: ask
/// `Error` after reading. Never maps the file, since a file cut short meanwhile would then end the program.
class FileSource : public std::streambuf {
 public:
  enum class Accept {
    AnyInput,        ///< also FIFOs and devices, and "-" for standard input
    PlainFilesOnly,  ///< never waits for a writer; anything else is an error
  };
  static constexpr std::uint64_t kNoLimit = std::numeric_limits<std::uint64_t>::max();

  /// A plain file larger than `limitBytes` is refused at once, other input when it passes the limit.
  explicit FileSource(const std::string& path, Accept accept = Accept::AnyInput,
                      std::uint64_t limitBytes = kNoLimit);
  ~FileSource() override;
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;

  /// False: nothing can be read and `Error` says why.
  bool IsOpen() const { return fd_ >= 0; }
  /// What went wrong first, without the file's name ("No such file or directory"); empty: nothing.
  const std::string& Error() const { return error_; }
  /// FileTrouble when there is an error; Refused when it is that the input is larger than the limit.
  Outcome GetOutcome() const;
  /// True for plain files; others refuse seeks that leave the piece read last.
  bool CanSeek() const { return seekable_; }
  /// True when the path leads to the file that is read, also by links.
  bool IsFileAt(const std::string& path) const;
  /// Bytes of a plain file when it was opened; none where the size cannot be known.
  std::optional<std::uint64_t> SizeBytes() const { return size_; }

 protected:
  int_type underflow() override;
  std::streamsize xsgetn(char* to, std::streamsize count) override;
  pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode which) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

 private:
  void Open(const std::string& path, Accept accept);
  void Inspect(Accept accept);
  void Close();
  std::size_t ReadSome(char* to, std::size_t count);
  std::uint64_t Position() const { return readEnd_ - static_cast<std::uint64_t>(egptr() - gptr()); }
  void Fail(std::string reason);
  void Refuse(std::string reason);
  std::string PassLimit();

  int fd_ = -1;
  bool ownsFd_ = false;
  bool seekable_ = false;
  std::optional<std::uint64_t> size_;
  std::uint64_t limit_;
  std::uint64_t start_ = 0;    // where the descriptor stood at first; positions count from here
  std::uint64_t readEnd_ = 0;  // position behind the buffered bytes
  bool passedLimit_ = false;
  std::string error_;
  std::unique_ptr<char[]> buffer_;
};

}  // namespace quorvel
