#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace quorvel {

/// Number of a value block within its class.
enum class ClassInstance : std::uint32_t { None = 0 };

/// Blocks of one size behind numbers: flat chunks, and one bit a block that tells whether it is live. Throws
/// std::bad_alloc when memory runs out; what was live then still is, and nothing else.
class InstanceStore {
 public:
  std::int32_t BlockBytes() const { return blockBytes_; }
  std::uint32_t CountLive() const { return liveCount_; }
  /// Numbers that have ever been given out are 1 to this.
  std::uint32_t LastNumber() const { return lastNumber_; }

  /// An empty store for blocks of that size, a multiple of 4; one for blocks of 0 bytes gives none.
  void Reset(std::int32_t blockBytes);

  /// A block number that was free, or the next one. The block's bytes are undefined. None for blocks of 0
  /// bytes and when there are no more numbers.
  ClassInstance Take();
  /// Successive numbers, none of them used before; the first, or None and nothing taken.
  ClassInstance TakeRun(std::uint32_t count);
  /// False when the block was not live.
  bool Release(ClassInstance instance);

  bool IsLive(ClassInstance instance) const {
    const auto number = static_cast<std::uint32_t>(instance);
    return number != 0 && number <= lastNumber_ &&
           (live_[number / kBitsPerWord] >> (number % kBitsPerWord) & 1) != 0;
  }

  std::byte* Block(ClassInstance instance) const {
    const auto number = static_cast<std::uint32_t>(instance);
    if (number == 0) return nullptr;
    const std::uint32_t slot = number - 1;
    return chunks_[slot >> chunkShift_].get() +
           static_cast<std::size_t>(slot & ((1U << chunkShift_) - 1)) * static_cast<std::size_t>(blockBytes_);
  }

 private:
  bool GrowTo(std::uint64_t lastNumber);
  void MarkLive(std::uint32_t number);

  static constexpr std::uint32_t kBitsPerWord = 64;

  std::int32_t blockBytes_ = 0;
  std::uint32_t chunkShift_ = 0;  ///< a chunk holds 2^chunkShift_ blocks
  std::vector<std::unique_ptr<std::byte[]>> chunks_;
  std::vector<std::uint64_t> live_;
  std::vector<std::uint32_t> free_;
  std::uint32_t lastNumber_ = 0;
  std::uint32_t liveCount_ = 0;
};

}  // namespace quorvel
