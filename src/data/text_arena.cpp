#include "data/text_arena.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace quorvel {
namespace {

/// The end of a text is looked for within a page, and beyond it in the page index.
constexpr std::size_t kPageBytes = 4096;
constexpr std::size_t kReadBytes = 1 << 20;
/// Room made at once for a block that is announced: growing step by step would copy it again and again.
constexpr std::size_t kMostReservedBytes = std::size_t{64} << 20;
constexpr std::size_t kMaxBytes = std::numeric_limits<std::uint32_t>::max();

/// Pages that begin before `offset`.
std::size_t PagesOf(std::size_t offset) {
  return (offset + kPageBytes - 1) / kPageBytes;
}

}  // namespace

TextArena::TextArena() : bytes_(1, '\0'), nextEnd_(1, 0) {}

TextHandle TextArena::Add(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  if (text.empty()) return TextHandle::Empty;
  if (text == Text(last_)) return last_;
  return last_ = Adopt(text);
}

TextHandle TextArena::Adopt(std::span<const char> block) {
  const bool ownBytes = block.data() >= bytes_.data() && block.data() < bytes_.data() + bytes_.size();
  const std::size_t ownOffset = ownBytes ? static_cast<std::size_t>(block.data() - bytes_.data()) : 0;
  const std::size_t start = bytes_.size();
  Grow(block.size() + 1);
  const char* source = ownBytes ? bytes_.data() + ownOffset : block.data();
  if (!block.empty()) std::memcpy(bytes_.data() + start, source, block.size());
  IndexEnds(start);
  return static_cast<TextHandle>(start);
}

TextHandle TextArena::Adopt(std::streambuf& input, std::uint32_t bytes) {
  const std::size_t start = bytes_.size();
  try {
    ReadBlock(input, bytes);
  } catch (...) {
    bytes_.resize(start);
    throw;
  }
  IndexEnds(start);
  return static_cast<TextHandle>(start);
}

/// Appends a block and its last NUL, growing with what arrives: a block may be announced larger than it is.
void TextArena::ReadBlock(std::streambuf& input, std::size_t bytes) {
  bytes_.reserve(bytes_.size() + std::min(bytes + 1, kMostReservedBytes));
  bool ended = false;
  while (bytes > 0 && !ended) {
    const std::size_t start = bytes_.size();
    const std::size_t wanted = std::min(bytes, kReadBytes);
    Grow(wanted);
    const std::streamsize count = input.sgetn(bytes_.data() + start, static_cast<std::streamsize>(wanted));
    const auto taken = static_cast<std::size_t>(std::max<std::streamsize>(count, 0));
    bytes_.resize(start + taken);
    bytes -= taken;
    ended = taken == 0;
  }
  Grow(1);
}

std::string_view TextArena::Text(TextHandle handle) const {
  const auto start = static_cast<std::size_t>(handle);
  if (start >= bytes_.size()) return {};
  const std::size_t page = start / kPageBytes;
  const std::size_t pageEnd = std::min((page + 1) * kPageBytes, bytes_.size());
  const char* text = bytes_.data() + start;
  const void* end = std::memchr(text, '\0', pageEnd - start);
  return {text,
          end ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : nextEnd_[page + 1] - start};
}

/// Appends NUL bytes, and makes room for their pages' ends.
void TextArena::Grow(std::size_t more) {
  const std::size_t size = bytes_.size() + more;
  if (size > kMaxBytes) throw std::bad_alloc();
  if (PagesOf(size) > nextEnd_.size()) nextEnd_.resize(PagesOf(size));
  bytes_.resize(size);
}

/// Finds the ends for the pages that begin at or after `from`. The last byte is always a NUL.
void TextArena::IndexEnds(std::size_t from) {
  std::size_t end = 0;
  for (std::size_t page = PagesOf(from); page < PagesOf(bytes_.size()); ++page) {
    const std::size_t start = page * kPageBytes;
    if (end < start || page == PagesOf(from)) {
      const void* found = std::memchr(bytes_.data() + start, '\0', bytes_.size() - start);
      end = static_cast<std::size_t>(static_cast<const char*>(found) - bytes_.data());
    }
    nextEnd_[page] = static_cast<std::uint32_t>(end);
  }
}

}  // namespace quorvel
