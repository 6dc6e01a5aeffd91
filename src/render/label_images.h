#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include <QSize>

#include "map/hex_grid.h"
#include "render/label_font.h"

namespace quorvel {

class MemberDef;

/// The lines that one member adds to a label, as the share of black (0 to 255) of each pixel.
struct LabelImage {
  int lines = 0;                    ///< by which the next member's first line stands lower
  int top = 0;                      ///< rows above are blank
  int width = 0;                    ///< columns from here on are blank
  int height = 0;                   ///< rows held
  std::vector<std::uint8_t> black;  ///< width * height
};

/// Label images, drawn when first needed and kept up to a number of bytes. What a member shows of a cell
/// depends on the four bytes of its value alone (a text's bytes name it, and texts never change), so they are
/// the key and no text is formatted for a known value.
class LabelImages {
 public:
  /// Images as large as a label may be, at a pixel ratio.
  LabelImages(QSize labelSize, double pixelRatio) : size_(labelSize), font_(LabelFont::At(pixelRatio)) {}

  /// The image of a record's value; `memberNumber` tells the members of the cell class apart. Good until the
  /// next call.
  const LabelImage& Of(const MemberDef& member, std::uint32_t memberNumber, const CellRecord& record);

  int LineHeight() const { return font_.lineHeight; }

  static constexpr std::size_t kMaxBytes = 32'000'000;

 private:
  using Images = std::unordered_map<std::uint64_t, LabelImage>;

  LabelImage Draw(const MemberDef& member, const CellRecord& record) const;
  void MakeRoom();

  QSize size_;
  LabelFont font_;
  // Two generations: images still in use move from the old one to the young one, the rest goes at once when
  // the young one has its share of the bytes.
  Images young_;
  Images old_;
  std::size_t youngBytes_ = 0;
};

}  // namespace quorvel
