#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

/// What a file looked like at one moment, to notice that another program changed it since.
class FileStamp {
 public:
  /// Of no file.
  FileStamp() = default;
  /// Of the file at `path` as it is now; of no file when it cannot be read.
  static FileStamp Of(const std::string& path);

  /// True when the file was there at the time of this stamp and is there now with other content. Contents of
  /// up to 64 MB are compared by a checksum, so that a mere touch or a restored copy does not count; of
  /// larger files identity, size and time decide alone.
  bool IsChanged(const std::string& path) const;

  /// The stamp as bytes, to be kept in a file, and back; none: these are no stamp.
  std::string ToBytes() const;
  static std::optional<FileStamp> FromBytes(std::string_view bytes);

 private:
  static FileStamp WithoutChecksum(const std::string& path);
  bool HasChecksum() const { return known_ && size_ <= kMaxChecksumBytes; }

  static constexpr std::uint64_t kMaxChecksumBytes = std::uint64_t{64} << 20;

  bool known_ = false;
  std::uint64_t device_ = 0;
  std::uint64_t inode_ = 0;
  std::uint64_t size_ = 0;
  std::int64_t timeNs_ = 0;
  std::uint64_t checksum_ = 0;  // CRC-64; 0 above kMaxChecksumBytes
};

}  // namespace quorvel
