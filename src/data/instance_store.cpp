#include "data/instance_store.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <new>
#include <utility>

namespace quorvel {
namespace {

/// Chunks are about this large, so that few blocks cost little and many cost no more than themselves.
constexpr std::uint32_t kChunkBytes = 64 * 1024;

}  // namespace

void InstanceStore::Reset(std::int32_t blockBytes) {
  *this = InstanceStore();
  blockBytes_ = blockBytes;
  if (blockBytes == 0) return;
  const auto perChunk = std::max<std::uint32_t>(kChunkBytes / static_cast<std::uint32_t>(blockBytes), 1);
  chunkShift_ = static_cast<std::uint32_t>(std::bit_width(perChunk)) - 1;
}

ClassInstance InstanceStore::Take() {
  if (free_.empty()) return TakeRun(1);
  const std::uint32_t number = free_.back();
  free_.pop_back();
  MarkLive(number);
  return static_cast<ClassInstance>(number);
}

ClassInstance InstanceStore::TakeRun(std::uint32_t count) {
  const std::uint32_t first = lastNumber_ + 1;
  if (count == 0 || !GrowTo(std::uint64_t{lastNumber_} + count)) return ClassInstance::None;
  for (std::uint32_t number = first; number - first < count; ++number) MarkLive(number);
  lastNumber_ += count;
  return static_cast<ClassInstance>(first);
}

bool InstanceStore::Release(ClassInstance instance) {
  if (!IsLive(instance)) return false;
  const auto number = static_cast<std::uint32_t>(instance);
  try {
    free_.push_back(number);
  } catch (const std::bad_alloc&) {
    // The number is not used again before the store is reset; nothing else is lost.
  }
  live_[number / kBitsPerWord] &= ~(std::uint64_t{1} << (number % kBitsPerWord));
  --liveCount_;
  return true;
}

/// Makes room for the blocks up to that number; false when the numbers do not suffice.
bool InstanceStore::GrowTo(std::uint64_t lastNumber) {
  if (blockBytes_ == 0 || lastNumber >= std::numeric_limits<std::uint32_t>::max()) return false;
  const std::size_t chunkBytes = static_cast<std::size_t>(blockBytes_) << chunkShift_;
  const auto chunkCount = static_cast<std::size_t>(((lastNumber - 1) >> chunkShift_) + 1);
  const auto wordCount = static_cast<std::size_t>(lastNumber / kBitsPerWord + 1);
  if (wordCount > live_.size()) live_.resize(wordCount);
  while (chunks_.size() < chunkCount) {
    chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(chunkBytes));
  }
  return true;
}

void InstanceStore::MarkLive(std::uint32_t number) {
  live_[number / kBitsPerWord] |= std::uint64_t{1} << (number % kBitsPerWord);
  ++liveCount_;
}

}  // namespace quorvel
