#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <vector>

#include <benchmark/benchmark.h>

namespace quorvel {

inline double SecondsOf(const auto& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Seconds that a bare copy of so many bytes takes on this machine now: the median of nine.
inline double BareCopySeconds(std::size_t bytes) {
  std::vector<char> from(bytes, 1), to(bytes, 2);
  std::vector<double> seconds(9);
  for (double& run : seconds) {
    run = SecondsOf([&] { std::memcpy(to.data(), from.data(), bytes); });
    benchmark::DoNotOptimize(to.data());
    benchmark::ClobberMemory();
  }
  std::ranges::nth_element(seconds, seconds.begin() + 4);
  return seconds[4];
}

/// Times the part of each iteration that counts (the benchmark runs with UseManualTime) and reports items and
/// bytes a second and, as "copies", how many bare copies of the same bytes an iteration takes.
class BesideCopy {
 public:
  BesideCopy(benchmark::State& state, std::size_t items, std::size_t bytes)
      : state_(state), items_(items), bytes_(bytes), copySeconds_(BareCopySeconds(bytes)) {}
  BesideCopy(const BesideCopy&) = delete;
  BesideCopy& operator=(const BesideCopy&) = delete;

  void Time(const auto& work) {
    const double seconds = SecondsOf(work);
    state_.SetIterationTime(seconds);
    seconds_ += seconds;
  }

  ~BesideCopy() {
    const auto iterations = static_cast<double>(state_.iterations());
    state_.SetItemsProcessed(static_cast<std::int64_t>(items_) * state_.iterations());
    state_.SetBytesProcessed(static_cast<std::int64_t>(bytes_) * state_.iterations());
    state_.counters["copies"] = seconds_ / iterations / copySeconds_;
  }

 private:
  benchmark::State& state_;
  const std::size_t items_;
  const std::size_t bytes_;
  const double copySeconds_;
  double seconds_ = 0;
};

}  // namespace quorvel
