#include "render/label_images.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include <QImage>

#include "data/member_def.h"
#include "render/cell_look.h"

namespace quorvel {
namespace {

constexpr std::size_t kBytesBesidePixels = sizeof(LabelImage) + 64;  // node, bucket, allocations

std::uint64_t KeyOf(const MemberDef& member, std::uint32_t memberNumber, const CellRecord& record) {
  std::uint32_t value = 0;  // an object member shows the same for all values
  if (const void* slot = member.GetValuePtr(record.data)) std::memcpy(&value, slot, sizeof value);
  return std::uint64_t{memberNumber} << 32 | value;
}

/// Adds a line's pixels, `width` by `height` of them, below what the image has.
void Append(LabelImage& image, const QImage& line, int width, int height) {
  for (int y = 0; y < height; ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(line.constScanLine(y));
    std::transform(row, row + width, std::back_inserter(image.black),
                   [](QRgb pixel) { return static_cast<std::uint8_t>(qAlpha(pixel)); });
  }
  image.width = width;
  image.height += height;
}

/// Drops the blank columns at the right and the blank rows at the top and at the bottom.
LabelImage Trimmed(const LabelImage& whole) {
  LabelImage image;
  image.lines = whole.lines;
  image.top = whole.height;
  int bottom = 0;
  const auto row = [&](int y) { return whole.black.begin() + std::ptrdiff_t{y} * whole.width; };
  for (int y = 0; y < whole.height; ++y) {
    int end = whole.width;
    while (end > 0 && row(y)[end - 1] == 0) --end;
    if (end == 0) continue;
    image.width = std::max(image.width, end);
    image.top = std::min(image.top, y);
    bottom = y + 1;
  }
  image.height = std::max(0, bottom - image.top);
  for (int y = image.top; y < bottom; ++y)
    image.black.insert(image.black.end(), row(y), row(y) + image.width);
  return image;
}

}  // namespace

const LabelImage& LabelImages::Of(const MemberDef& member, std::uint32_t memberNumber,
                                  const CellRecord& record) {
  const std::uint64_t key = KeyOf(member, memberNumber, record);
  if (const auto found = young_.find(key); found != young_.end()) return found->second;

  auto node = old_.extract(key);
  LabelImage image = node ? std::move(node.mapped()) : Draw(member, record);
  MakeRoom();
  youngBytes_ += kBytesBesidePixels + image.black.size();
  return young_.emplace(key, std::move(image)).first->second;
}

void LabelImages::MakeRoom() {
  if (youngBytes_ < kMaxBytes / 2) return;
  old_ = std::exchange(young_, {});
  youngBytes_ = 0;
}

LabelImage LabelImages::Draw(const MemberDef& member, const CellRecord& record) const {
  LabelImage image;
  for (const QString& line : LabelLines(member, record)) {
    const int height = std::min(font_.lineHeight, size_.height() - image.height);
    if (height > 0) Append(image, font_.Draw(line, size_.width()), size_.width(), height);
    ++image.lines;
  }
  return Trimmed(image);
}

}  // namespace quorvel
