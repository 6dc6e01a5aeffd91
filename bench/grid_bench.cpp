#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

#include "bench/bare_copy.h"
#include "data/class_def.h"
#include "map/grid/hex_grid.h"

namespace quorvel {
namespace {

enum class Order : std::int64_t { Ascending, Descending, Random };

std::vector<std::int32_t> Indices(std::int32_t cells, Order order) {
  std::vector<std::int32_t> indices(cells);
  std::iota(indices.begin(), indices.end(), 0);
  if (order == Order::Descending) std::ranges::reverse(indices);
  if (order == Order::Random) std::ranges::shuffle(indices, std::mt19937(1));
  return indices;
}

void FillRecords(CellGrid& grid, const std::vector<std::int32_t>& indices) {
  for (const std::int32_t index : indices) {
    grid.FindOrCreate(grid.CoordOf(index));
    grid.SetData(index, static_cast<ClassInstance>(index + 1));
  }
}

/// Arguments: side, order.
void FindOrCreate(benchmark::State& state) {
  const auto side = static_cast<std::int32_t>(state.range(0));
  const auto indices = Indices(side * side, static_cast<Order>(state.range(1)));
  BesideCopy beside(state, indices.size(), indices.size() * sizeof(ClassInstance));
  for (auto _ : state) {
    CellGrid grid(side, side);
    beside.Time([&] { FillRecords(grid, indices); });
  }
}
BENCHMARK(FindOrCreate)
    ->ArgNames({"side", "order"})
    ->ArgsProduct({{500, 1000, 2000}, {0, 1, 2}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// The floor under the random order: the same numbers written into a bare array, what waits for memory and
/// nothing else.
void StoreInArray(benchmark::State& state) {
  const auto side = static_cast<std::int32_t>(state.range(0));
  const auto indices = Indices(side * side, Order::Random);
  BesideCopy beside(state, indices.size(), indices.size() * sizeof(ClassInstance));
  for (auto _ : state) {
    std::vector<ClassInstance> cells;
    beside.Time([&] {
      cells.resize(indices.size());
      for (const std::int32_t index : indices) cells[index] = static_cast<ClassInstance>(index + 1);
    });
    benchmark::DoNotOptimize(cells.data());
  }
}
BENCHMARK(StoreInArray)
    ->ArgName("side")
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void Step(benchmark::State& state) {
  const auto side = static_cast<std::int32_t>(state.range(0));
  CellGrid grid(side, side);
  FillRecords(grid, Indices(side * side, Order::Ascending));
  BesideCopy beside(state, grid.CellCount(), grid.CellCount() * sizeof(ClassInstance));
  for (auto _ : state) {
    beside.Time([&] {
      for (auto record = grid.Following(-1); record; record = grid.Following(record->index))
        benchmark::DoNotOptimize(record->data);
    });
  }
}
BENCHMARK(Step)->ArgName("side")->Arg(1000)->Arg(2000)->UseManualTime()->Unit(benchmark::kMillisecond);

/// A thousand hit tests over the whole map.
void HitTest(benchmark::State& state) {
  const auto side = static_cast<std::int32_t>(state.range(0));
  const CellGrid grid(side, side);
  for (auto _ : state)
    for (std::int32_t i = 0; i < 1000; ++i)
      benchmark::DoNotOptimize(grid.HitTest(40, side * 34 / 1000 * i, side * 40 / 1000 * i));
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(HitTest)->ArgName("side")->Arg(1000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quorvel
