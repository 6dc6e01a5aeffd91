#include "render/label_images.h"

#include <algorithm>
#include <utility>

#include <QImage>

#include "data/member_def.h"
#include "data/slot.h"
#include "render/cell_look.h"

namespace quorvel {
namespace {

std::uint32_t ValueOf(const MemberDef& member, const CellRecord& record) {
  const void* slot = member.GetValuePtr(record.data);
  return slot ? LoadSlot<std::uint32_t>(slot) : 0;  // an object member shows the same for all values
}

/// Adds the ink of the line's first `rows` rows, `top` rows below the image's top.
void AddInk(LabelImage& image, const QImage& line, int top, int rows) {
  for (int y = 0; y < rows; ++y) {
    const std::size_t before = image.ink.size();
    const auto* row = reinterpret_cast<const QRgb*>(line.constScanLine(y));
    for (int x = 0; x < line.width(); ++x) {
      const int black = qAlpha(row[x]);
      if (black == 0) continue;
      image.ink.push_back({static_cast<std::uint16_t>(x), static_cast<std::uint16_t>(black)});
      image.width = std::max(image.width, x + 1);
    }
    if (image.ink.size() > before)
      image.rows.push_back({top + y, static_cast<std::uint32_t>(image.ink.size())});
  }
}

}  // namespace

const LabelImage& LabelImages::Of(const MemberDef& member, std::size_t memberNumber,
                                  const CellRecord& record) {
  const std::uint32_t value = ValueOf(member, record);
  if (memberNumber < members_.size()) {
    const std::uint32_t image = members_[memberNumber].byCell.Find(record.index, value);
    if (image != kNone) return images_[image];
  }
  const std::uint32_t image = ImageOf(member, memberNumber, record, value);
  members_[memberNumber].byCell.Set(record.index, {value, image});
  return images_[image];
}

std::uint32_t LabelImages::ImageOf(const MemberDef& member, std::size_t memberNumber,
                                   const CellRecord& record, std::uint32_t value) {
  if (memberNumber < members_.size()) {
    const std::uint32_t known = members_[memberNumber].byValue.Find(value);
    if (known != kNone) return known;
  }
  if (Bytes() > kMaxBytes) Forget();
  if (memberNumber >= members_.size()) members_.resize(memberNumber + 1);
  const std::uint32_t image = Add(Draw(member, record));
  members_[memberNumber].byValue.Add(value, image);
  return image;
}

/// The place that holds the value, or the free one where it belongs. Neighbouring values, such as texts added
/// one after the other, come to lie far apart (Fibonacci hashing).
std::size_t LabelImages::ByValue::PlaceOf(std::uint32_t value) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = (value * 0x9e3779b97f4a7c15U >> 32) & mask;
  while (slots_[at].image != kNone && slots_[at].value != value) at = (at + 1) & mask;
  return at;
}

void LabelImages::ByValue::Add(std::uint32_t value, std::uint32_t image) {
  slots_[PlaceOf(value)] = {value, image};
  if (++taken_ * 2 <= slots_.size()) return;
  const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2, Slot{0, kNone}));
  for (const Slot& slot : old) {
    if (slot.image != kNone) slots_[PlaceOf(slot.value)] = slot;
  }
}

std::uint32_t LabelImages::Add(LabelImage image) {
  const auto next = static_cast<std::uint32_t>(images_.size());
  const auto [known, isNew] = known_.try_emplace(image, next);
  if (isNew) {
    inkBytes_ +=
        2 * (image.ink.size() * sizeof(InkPixel) + image.rows.size() * sizeof(InkRow) + 2 * sizeof image);
    images_.push_back(std::move(image));
  }
  return known->second;
}

std::size_t LabelImages::Bytes() const {
  std::size_t bytes = inkBytes_;
  for (const MemberImages& member : members_) bytes += member.byValue.Bytes() + ByCell::kBytes;
  return bytes;
}

/// All at once: the bytes hold many times what a screen shows.
void LabelImages::Forget() {
  members_.clear();
  images_.clear();
  known_.clear();
  inkBytes_ = 0;
}

LabelImage LabelImages::Draw(const MemberDef& member, const CellRecord& record) const {
  LabelImage image;
  for (const QString& line : LabelLines(member, record)) {
    const int top = image.lines++ * font_.lineHeight;
    const int rows = std::min(font_.lineHeight, size_.height() - top);
    if (rows > 0 && !line.isEmpty()) AddInk(image, font_.Draw(line, size_.width()), top, rows);
  }
  return image;
}

}  // namespace quorvel
