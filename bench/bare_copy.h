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

inline double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

/// Times the part of each iteration that counts (the benchmark runs with UseManualTime) and reports items and
/// bytes a second and, as "copies", how many bare copies of the same bytes an iteration takes.
///
/// The copy is made after each iteration, from one buffer of that size to another: work and copy take turns,
/// so that both find the caches as the other leaves them and meet the same neighbours on the machine. A copy
/// repeated on its own would keep its bytes in caches that the work never has. Medians are compared.
class BesideCopy {
 public:
  BesideCopy(benchmark::State& state, std::size_t items, std::size_t bytes)
      : state_(state), items_(items), from_(bytes, 1), to_(bytes, 2) {}
  BesideCopy(const BesideCopy&) = delete;
  BesideCopy& operator=(const BesideCopy&) = delete;

  void Time(const auto& work) {
    workSeconds_.push_back(SecondsOf(work));
    state_.SetIterationTime(workSeconds_.back());
    copySeconds_.push_back(SecondsOf([this] { std::memcpy(to_.data(), from_.data(), from_.size()); }));
    benchmark::DoNotOptimize(to_.data());
    benchmark::ClobberMemory();
  }

  ~BesideCopy() {
    state_.SetItemsProcessed(static_cast<std::int64_t>(items_) * state_.iterations());
    state_.SetBytesProcessed(static_cast<std::int64_t>(from_.size()) * state_.iterations());
    if (!workSeconds_.empty()) state_.counters["copies"] = Median(workSeconds_) / Median(copySeconds_);
  }

 private:
  benchmark::State& state_;
  const std::size_t items_;
  const std::vector<char> from_;
  std::vector<char> to_;
  std::vector<double> workSeconds_;
  std::vector<double> copySeconds_;
};

}  // namespace quorvel
