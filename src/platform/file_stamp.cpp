#include "platform/file_stamp.h"

#include <vector>

#include <isa-l/crc64.h>
#include <sys/stat.h>

#include "platform/file_source.h"

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

}  // namespace quorvel
