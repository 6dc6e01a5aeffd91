#pragma once

#include <cstdint>

namespace quorvel {

/// The random numbers of the fill: a linear congruential sequence, the same on every machine for the same
/// seed. state = state * 214013 + 2531011 mod 2^32; a number is bits 16 to 30 of the new state.
class RandomNumbers {
 public:
  static constexpr int kGreatest = 0x7fff;

  explicit RandomNumbers(std::uint32_t seed) : state_(seed) {}

  /// The next number, 0..kGreatest.
  int Next() {
    state_ = state_ * 214013U + 2531011U;
    return static_cast<int>((state_ >> 16) & kGreatest);
  }

 private:
  std::uint32_t state_;
};

}  // namespace quorvel
