#pragma once

#include <cstdint>
#include <streambuf>
#include <string>

#include "platform/files/atomic_file.h"
#include "platform/files/file_source.h"

namespace quorvel {

/// The file that a document is loaded from or stored into, handed to `CDocument::Serialize`. Owns nothing.
class CArchive {
 public:
  explicit CArchive(FileSource& source) : source_(&source) {}
  explicit CArchive(AtomicFile& target) : target_(&target) {}

  bool IsLoading() const { return source_; }

  /// Stands at the start of the file.
  std::streambuf& File() { return IsLoading() ? static_cast<std::streambuf&>(*source_) : *target_; }
  /// Storing: says how many bytes will be written; false: there is no room, and `FileError` says so.
  bool Reserve(std::uint64_t bytes) { return target_ && target_->Reserve(bytes); }
  /// Loading: the file's size, where known. 0 otherwise.
  std::uint64_t SizeBytes() const { return IsLoading() ? source_->SizeBytes().value_or(0) : 0; }
  /// The first error of reading or writing so far, without the file's name; empty: none.
  const std::string& FileError() const { return IsLoading() ? source_->Error() : target_->Error(); }

 private:
  FileSource* source_ = nullptr;
  AtomicFile* target_ = nullptr;
};

}  // namespace quorvel
