#pragma once

#include <bit>
#include <cstdint>
#include <string_view>
#include <vector>

#include "data/class_def.h"
#include "data/string_member.h"

namespace quorvel {

/// Names and measures of a map file, which docs/file-formats.md describes.

static_assert(std::endian::native == std::endian::little, "numbers in files are little-endian");

inline constexpr std::string_view kDataTypePath = "Version/Data/type";
inline constexpr std::string_view kDataOffsetPath = "Version/Data/Offsets/Data";
inline constexpr std::string_view kTextOffsetPath = "Version/Data/Offsets/Text";
inline constexpr std::string_view kGalaxyPath = "Objects/Galaxy";
/// The branch of a text form that holds a branch for every cell.
inline constexpr std::string_view kCellsPath = "Objects/Galaxy/Cells";

/// What the data block begins with.
struct BlockHead {
  std::int32_t width = 0, height = 0, count = 0;
};
inline constexpr std::int64_t kBlockHeadBytes = 12;
static_assert(sizeof(BlockHead) == kBlockHeadBytes);

/// Bytes of a value in the data block, whatever its kind; an object has none.
inline constexpr std::int32_t kValueBytes = 4;
inline constexpr std::uint64_t kBlockAlignment = 4;

/// Bytes of a file's text together with the zero bytes behind it, at least one.
constexpr std::uint64_t PaddedTextBytes(std::uint64_t textBytes) {
  return textBytes + (kBlockAlignment - textBytes % kBlockAlignment);
}

/// Bytes of the data block for so many cells of that class; null: of no values.
std::int64_t DataBlockBytes(std::int64_t cells, const ClassDef* cellClass);

/// A string member, and where its value lies in a cell's row of the data block.
struct StringPlace {
  const StringMember* member;
  std::int32_t packedOffset;
};
std::vector<StringPlace> StringPlaces(const ClassDef& cellClass);

}  // namespace quorvel
