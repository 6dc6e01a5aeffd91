#pragma once

#include <cstdint>
#include <ctime>

namespace quorvel {

/// The time of day, behind an interface so that tests and repeated fills can fix it.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Seconds since the start of 1970, UTC.
  virtual std::int64_t Seconds() const = 0;
};

class SystemClock final : public Clock {
 public:
  std::int64_t Seconds() const override { return std::time(nullptr); }
};

}  // namespace quorvel
