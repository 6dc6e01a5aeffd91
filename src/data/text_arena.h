#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <streambuf>
#include <string_view>
#include <vector>

namespace quorvel {

/// Place of a text in its arena. Copying a handle copies the text's meaning: texts never change.
enum class TextHandle : std::uint32_t { Empty = 0 };

/// Texts behind 4-byte handles: appended, never changed, freed all together. Texts hold no NUL byte.
/// Throws std::bad_alloc when memory or the 4 GiB of handles run out, and is then as it was.
class TextArena {
 public:
  TextArena();

  /// Adds a text up to its first NUL. The text added last is not added again.
  TextHandle Add(std::string_view text);

  /// Takes a whole block of NUL-terminated texts, the last one possibly without its NUL. Answers the base:
  /// the text at offset o of the block, any offset up to its size, is `At(base, o)`.
  TextHandle Adopt(std::span<const char> block);
  /// The same of up to `bytes` bytes, straight out of a stream; a stream that ends early gives a shorter
  /// block.
  TextHandle Adopt(std::streambuf& input, std::uint32_t bytes);

  static TextHandle At(TextHandle base, std::uint32_t offset) {
    return static_cast<TextHandle>(static_cast<std::uint32_t>(base) + offset);
  }

  /// The text of a handle, also of one that points into the middle of a text; a handle from elsewhere is the
  /// empty text. The view is good until the next Add or Adopt. Long texts cost no more than short ones.
  std::string_view Text(TextHandle handle) const;

  /// Bytes held, ends of texts included.
  std::uint64_t Size() const { return bytes_.size(); }

 private:
  void ReadBlock(std::streambuf& input, std::size_t bytes);
  void Grow(std::size_t more);
  void IndexEnds(std::size_t from);

  std::vector<char> bytes_;
  /// For each page of bytes_ the first NUL at or after the page's start.
  std::vector<std::uint32_t> nextEnd_;
  TextHandle last_ = TextHandle::Empty;
};

}  // namespace quorvel
