#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include <QSize>

#include "map/grid/hex_grid.h"
#include "render/label_font.h"

namespace quorvel {

class MemberDef;

/// A pixel that a text darkens.
struct InkPixel {
  std::uint16_t x;      ///< from the left end of the lines
  std::uint16_t black;  ///< share of black, 1 to 255

  friend auto operator<=>(const InkPixel&, const InkPixel&) = default;
};

/// The ink of one row of pixels, `y` below the first line's top: up to before `end` in the image's ink, from
/// where the row before ended.
struct InkRow {
  std::int32_t y;
  std::uint32_t end;

  friend auto operator<=>(const InkRow&, const InkRow&) = default;
};

/// The lines that one member adds to a label.
struct LabelImage {
  int lines = 0;              ///< by which the next member's first line stands lower
  int width = 0;              ///< all ink lies left of it
  std::vector<InkRow> rows;   ///< those with ink, from the top; none: blank
  std::vector<InkPixel> ink;  ///< from left to right

  friend auto operator<=>(const LabelImage&, const LabelImage&) = default;
};

/// Label images, drawn when first needed and kept up to a number of bytes. What a member shows of a cell
/// depends on the four bytes of its value alone (a text's bytes name it, and texts never change), so they are
/// the key and no text is formatted for a known value.
class LabelImages {
 public:
  /// Images as large as a label may be, at a pixel ratio.
  LabelImages(QSize labelSize, double pixelRatio) : size_(labelSize), font_(LabelFont::At(pixelRatio)) {}

  /// The image of a record's value; `memberNumber` is the member's place in the cell class.
  /// Good until the next call.
  const LabelImage& Of(const MemberDef& member, std::size_t memberNumber, const CellRecord& record);

  int LineHeight() const { return font_.lineHeight; }

  static constexpr std::size_t kMaxBytes = 32'000'000;

 private:
  static constexpr std::uint32_t kNone = 0xffffffff;

  struct Slot {
    std::uint32_t value;
    std::uint32_t image;  // kNone: free
  };

  /// The images of one member's values: a hash table, probed one place after the other. A map may hold a text
  /// of its own for every cell, so what a painting looks up must lie close together: 8 bytes a value.
  class ByValue {
   public:
    std::uint32_t Find(std::uint32_t value) const { return slots_[PlaceOf(value)].image; }
    void Add(std::uint32_t value, std::uint32_t image);
    std::size_t Bytes() const { return slots_.size() * sizeof(Slot); }

   private:
    std::size_t PlaceOf(std::uint32_t value) const;

    // A power of two, at most half of them taken.
    std::vector<Slot> slots_ = std::vector<Slot>(64, Slot{0, kNone});
    std::size_t taken_ = 0;
  };

  /// The images that cells had when they were painted last, by the cell's index in turn: cells are painted in
  /// that order, so a repaint reads them one after the other, while the table of values would be read all
  /// over the place (half of the time of a repaint of small cells).
  class ByCell {
   public:
    static constexpr std::size_t kSlots = std::size_t{1} << 16;
    static constexpr std::size_t kBytes = kSlots * sizeof(Slot);

    /// kNone: the cell was not painted lately, or showed another value.
    std::uint32_t Find(std::int32_t index, std::uint32_t value) const {
      const Slot& slot = slots_[PlaceOf(index)];
      return slot.value == value ? slot.image : kNone;
    }
    void Set(std::int32_t index, Slot slot) { slots_[PlaceOf(index)] = slot; }

   private:
    static std::size_t PlaceOf(std::int32_t index) { return static_cast<std::size_t>(index) % kSlots; }

    std::vector<Slot> slots_ = std::vector<Slot>(kSlots, Slot{0, kNone});
  };

  struct MemberImages {
    ByValue byValue;
    ByCell byCell;
  };

  std::uint32_t ImageOf(const MemberDef& member, std::size_t memberNumber, const CellRecord& record,
                        std::uint32_t value);
  std::uint32_t Add(LabelImage image);
  LabelImage Draw(const MemberDef& member, const CellRecord& record) const;
  std::size_t Bytes() const;
  void Forget();

  QSize size_;
  LabelFont font_;
  std::vector<MemberImages> members_;  // by member number
  std::vector<LabelImage> images_;
  // Much of what texts differ in is cut off, so many values share an image.
  std::map<LabelImage, std::uint32_t> known_;
  std::size_t inkBytes_ = 0;
};

}  // namespace quorvel
