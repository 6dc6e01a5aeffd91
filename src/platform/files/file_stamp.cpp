#include "platform/files/file_stamp.h"

#include <vector>

#include <isa-l/crc64.h>
#include <sys/stat.h>

#include "platform/files/file_source.h"
#include "platform/files/little_endian.h"

namespace quorvel {

namespace {

std::uint64_t Checksum(const std::string& path) {
  FileSource file(path, FileSource::Accept::PlainFilesOnly);
  std::vector<char> piece(std::size_t{256} * 1024);
  std::uint64_t sum = 0;
  while (const auto got = file.sgetn(piece.data(), static_cast<std::streamsize>(piece.size())))
    sum = crc64_ecma_refl(sum, reinterpret_cast<const unsigned char*>(piece.data()),
                          static_cast<std::uint64_t>(got));
  return sum;
}

}  // namespace

FileStamp FileStamp::Of(const std::string& path) {
  FileStamp stamp = WithoutChecksum(path);
  if (stamp.HasChecksum()) stamp.checksum_ = Checksum(path);
  return stamp;
}

FileStamp FileStamp::WithoutChecksum(const std::string& path) {
  struct stat about {};
  FileStamp stamp;
  stamp.known_ = stat(path.c_str(), &about) == 0 && S_ISREG(about.st_mode);
  if (!stamp.known_) return stamp;
  stamp.device_ = about.st_dev;
  stamp.inode_ = about.st_ino;
  stamp.size_ = static_cast<std::uint64_t>(about.st_size);
  stamp.timeNs_ = std::int64_t{about.st_mtim.tv_sec} * 1'000'000'000 + about.st_mtim.tv_nsec;
  return stamp;
}

bool FileStamp::IsChanged(const std::string& path) const {
  if (!known_) return false;
  const FileStamp now = WithoutChecksum(path);
  if (!now.known_) return false;
  if (now.device_ == device_ && now.inode_ == inode_ && now.size_ == size_ && now.timeNs_ == timeNs_)
    return false;
  return now.size_ != size_ || !HasChecksum() || Checksum(path) != checksum_;
}

std::string FileStamp::ToBytes() const {
  std::string bytes(1, known_ ? '\1' : '\0');
  for (const std::uint64_t number : {device_, inode_, size_, static_cast<std::uint64_t>(timeNs_), checksum_})
    PutLittleEndian(bytes, number);
  return bytes;
}

std::optional<FileStamp> FileStamp::FromBytes(std::string_view bytes) {
  constexpr std::size_t kNumbers = 5;
  if (bytes.size() != 1 + kNumbers * sizeof(std::uint64_t)) return std::nullopt;
  const auto number = [&](std::size_t i) {
    return GetLittleEndian<std::uint64_t>(bytes.data() + 1 + i * sizeof(std::uint64_t));
  };
  FileStamp stamp;
  stamp.known_ = bytes[0] != '\0';
  stamp.device_ = number(0);
  stamp.inode_ = number(1);
  stamp.size_ = number(2);
  stamp.timeNs_ = static_cast<std::int64_t>(number(3));
  stamp.checksum_ = number(4);
  return stamp;
}

}  // namespace quorvel
