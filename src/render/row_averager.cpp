#include "render/row_averager.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace quorvel {
namespace {

constexpr std::size_t kChannels = 4;
using Sums = std::array<std::uint64_t, kChannels>;

void Add(Sums& sums, const std::uint32_t* pixel, std::uint64_t weight) {
  for (std::size_t channel = 0; channel < kChannels; ++channel) sums[channel] += pixel[channel] * weight;
}

QRgb Mean(const Sums& sums, std::uint64_t weight) {
  const auto mean = [&](std::size_t channel) {
    return static_cast<int>((sums[channel] + weight / 2) / weight);
  };
  return qRgb(mean(2), mean(1), mean(0));
}

}  // namespace

RowAverager::RowAverager(QSize from, QSize to)
    : from_(from), to_(to), sums_(static_cast<std::size_t>(from.width()) * kChannels) {
  assert(to.width() > 0 && to.width() <= from.width() && to.height() > 0 && to.height() <= from.height());
}

/// A row of the smaller picture is `from` parts high and one of the larger picture `to` parts, so all shares
/// are whole numbers.
bool RowAverager::AddRow(const QRgb* row, QRgb* finished) {
  const std::int64_t left = from_.height() - place_ % from_.height();
  const std::int64_t share = std::min<std::int64_t>(left, to_.height());
  place_ += to_.height();
  Accumulate(row, share);
  if (share < left) return false;
  Finish(finished);
  std::ranges::fill(sums_, 0);
  if (share < to_.height()) Accumulate(row, to_.height() - share);
  return true;
}

void RowAverager::Accumulate(const QRgb* row, std::int64_t weight) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(row);
  const auto factor = static_cast<std::uint32_t>(weight);
  std::uint32_t* const sums = sums_.data();
  const std::size_t count = sums_.size();
  for (std::size_t i = 0; i < count; ++i) sums[i] += bytes[i] * factor;
}

void RowAverager::Finish(QRgb* finished) {
  const std::uint64_t weight = std::uint64_t(from_.width()) * std::uint64_t(from_.height());
  const std::int64_t whole = to_.width();
  std::int64_t rest = whole;  // parts of the pixel at `pixel` that are left
  const std::uint32_t* pixel = sums_.data();
  for (int x = 0; x < to_.width(); ++x) {
    Sums sums{};
    for (std::int64_t needed = from_.width(); needed > 0;) {
      const std::int64_t share = std::min(rest, needed);
      Add(sums, pixel, static_cast<std::uint64_t>(share));
      needed -= share;
      rest -= share;
      if (rest > 0) continue;
      pixel += kChannels;
      rest = whole;
    }
    finished[x] = Mean(sums, weight);
  }
}

}  // namespace quorvel
