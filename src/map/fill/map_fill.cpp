#include "map/fill/map_fill.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "map/fill/random_numbers.h"

namespace quorvel {
namespace {

/// Where the fill goes and who is told about it.
struct FillContext {
  MapContents& map;
  Feedback& feedback;
  CellListener& listener;

  CellGrid& Grid() const { return *map.m_pGrid; }
  int PercentOfCells(std::int32_t cells) const {
    return static_cast<int>(static_cast<double>(cells) / Grid().CellCount() * 100.0);
  }
};

std::optional<CellRecord> RecordOf(const FillContext& context, std::int32_t index) {
  if (const std::optional<CellRecord> record = context.Grid().Find(index)) return record;
  return CreateCell(context.map, context.Grid().CoordOf(index));
}

void StoreValue(const FillContext& context, const CellRecord& record, const CValueSetting& value) {
  if (const MemberDef* member = value.GetOwner().GetMember()) member->SetValue(record.data, value.GetValue());
  context.listener.OnCellChanged(record);
}

// ---- Global phase: every cell by itself, at random.

double DrawPercent(RandomNumbers& random) {
  return random.Next() * (1.0 / RandomNumbers::kGreatest) * 100.0;
}

/// One global setting, made ready for a draw by every cell.
class ValueDraw {
 public:
  explicit ValueDraw(const CPropertySetting& setting) : setting_(setting) {
    double sum = 0.0;
    double reach = kNothing;
    for (const std::unique_ptr<CValueSetting>& value : setting.GetValues()) {
      sum += value->GetShare();
      if (sum != 0.0 && sum > reach) reach = sum;  // no value is chosen while the sum is exactly 0
      reach_.push_back(reach);
    }
  }

  /// The value that a cell gets, or null.
  const CValueSetting* Next(RandomNumbers& random) const {
    if (DrawPercent(random) > setting_.GetCoverage()) return nullptr;
    const std::size_t chosen = FirstReaching(DrawPercent(random));
    return chosen == reach_.size() ? nullptr : setting_.GetValues()[chosen].get();
  }

 private:
  static constexpr double kNothing = -std::numeric_limits<double>::infinity();

  /// Position of the first sum that is not below the draw. A binary search that the compiler can do without
  /// branches: no processor guesses random draws, and its wrong guesses took a third of the fill.
  std::size_t FirstReaching(double draw) const {
    std::size_t first = 0;
    for (std::size_t length = reach_.size(); length > 0;) {
      const std::size_t half = (length + 1) / 2;
      first += reach_[first + half - 1] < draw ? half : 0;
      length -= half;
    }
    return first;
  }

  const CPropertySetting& setting_;
  std::vector<double> reach_;  // by value, the greatest draw that it or one before it answers: never falls
};

void DrawValues(const FillContext& context, std::int32_t index, const std::vector<ValueDraw>& draws,
                RandomNumbers& random) {
  std::optional<CellRecord> record;
  for (const ValueDraw& draw : draws) {
    const CValueSetting* value = draw.Next(random);
    if (!value) continue;
    if (!record) record = RecordOf(context, index);
    if (record) StoreValue(context, *record, *value);
  }
}

void FillGlobally(const FillContext& context, const CPropertySettingList& settings, RandomNumbers& random) {
  if (settings.GetSettings().empty()) return;
  std::vector<ValueDraw> draws;
  for (const std::unique_ptr<CPropertySetting>& setting : settings.GetSettings())
    if (!setting->GetValues().empty()) draws.emplace_back(*setting);

  const ProgressShown bar(context.feedback);
  LoopFeedback steps(context.feedback);
  const std::int32_t cells = context.Grid().CellCount();
  for (std::int32_t index = 0; index < cells; ++index) {
    steps.Step([&](Feedback& sink) {
      sink.SetMessageText(fmt::format("Filling Map (cell {}/{})", index, cells));
      sink.SetProgressPos(context.PercentOfCells(index));
    });
    DrawValues(context, index, draws, random);
  }
}

// ---- Region phase: one property at a time, regions that grow in step. A region is numbered like its value.

class RegionGrowth {
 public:
  RegionGrowth(const FillContext& context, const CPropertySetting& setting)
      : context_(context),
        values_(setting.GetValues()),
        cells_(context.Grid().CellCount(), CellState::Free),
        frontiers_(values_.size()),
        freeCells_(context.Grid().CellCount()),
        pump_(context.feedback) {
    for (std::size_t region = 0; region < values_.size(); ++region) TakeSeed(region);
  }

  void Run() {
    bool growing = true;
    while (freeCells_ > 0 && growing) {
      Report();
      growing = Grow();
      Claim();
    }
  }

 private:
  enum class CellState : std::uint8_t {
    Free,
    ReachedNow,     // in this step, by the region whose turn it is
    ReachedBefore,  // in this step, by one region that had its turn
    Border,         // in this step, by several
    Taken           // in an earlier step, by a region or as border
  };
  struct ReachedCell {
    std::int32_t cell;
    std::int32_t region;  // the first that reached it
  };

  std::int32_t OriginCell(const CValueSetting& value) const {
    // The map as it lies at a cell size of 100 pixels; constants of single precision.
    constexpr double kColumnWidth = 86.60254669189453F;
    constexpr double kPerCent = 0.01F;
    const CellGrid& grid = context_.Grid();
    const double x = grid.Width() * kColumnWidth * value.GetOriginX() * kPerCent;
    const double y = grid.Height() * 100.0 * value.GetOriginY() * kPerCent;
    return grid.IndexOf(grid.HitTest(100.0F, static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)));
  }

  void TakeSeed(std::size_t region) {
    std::int32_t seed = OriginCell(*values_[region]);
    if (seed < 0 || cells_[seed] != CellState::Free) {
      while (cells_[lowestFree_] != CellState::Free) ++lowestFree_;
      seed = lowestFree_;
    }
    Take(seed);
    frontiers_[region].push_back(seed);
  }

  void Take(std::int32_t cell) {
    cells_[cell] = CellState::Taken;
    --freeCells_;
  }

  void Report() {
    context_.feedback.Pump();
    context_.feedback.SetMessageText(fmt::format("Filling Regions ({} cells left)", freeCells_));
    context_.feedback.SetProgressPos(100 - context_.PercentOfCells(freeCells_));
  }

  void Pump() {
    pump_.Step([](Feedback&) {});
  }

  /// Lets every region reach out of its frontier once; false when none reached a free cell.
  bool Grow() {
    reached_.clear();
    for (std::size_t region = 0; region < frontiers_.size(); ++region) {
      const std::size_t before = reached_.size();
      for (const std::int32_t cell : frontiers_[region]) GrowFrom(cell, static_cast<std::int32_t>(region));
      frontiers_[region].clear();
      EndTurn(before);
    }
    return !reached_.empty();
  }

  void GrowFrom(std::int32_t cell, std::int32_t region) {
    for (const std::int32_t next : context_.Grid().Neighbours(cell)) {
      Pump();
      if (next >= 0) Reach(next, region);
    }
  }

  void Reach(std::int32_t cell, std::int32_t region) {
    if (cells_[cell] == CellState::Free) {
      cells_[cell] = CellState::ReachedNow;
      reached_.push_back({cell, region});
    } else if (cells_[cell] == CellState::ReachedBefore) {
      cells_[cell] = CellState::Border;
    }
  }

  void EndTurn(std::size_t firstReached) {
    for (std::size_t i = firstReached; i < reached_.size(); ++i)
      cells_[reached_[i].cell] = CellState::ReachedBefore;
  }

  /// Takes what was reached, in index order: for the one region that reached a cell, or as border between
  /// several.
  void Claim() {
    std::ranges::sort(reached_, {}, &ReachedCell::cell);
    for (const auto [cell, region] : reached_) {
      Pump();
      const bool border = cells_[cell] == CellState::Border;
      Take(cell);
      if (!border) GiveTo(region, cell);
    }
  }

  void GiveTo(std::int32_t region, std::int32_t cell) {
    frontiers_[region].push_back(cell);
    if (const std::optional<CellRecord> record = RecordOf(context_, cell))
      StoreValue(context_, *record, *values_[region]);
  }

  const FillContext& context_;
  const CPropertySetting::Values& values_;
  std::vector<CellState> cells_;
  std::vector<std::vector<std::int32_t>> frontiers_;  // by region, the cells that it won in the last step
  std::vector<ReachedCell> reached_;                  // in this step
  std::int32_t freeCells_;
  std::int32_t lowestFree_ = 0;
  LoopFeedback pump_;
};

void FillRegions(const FillContext& context, const CPropertySetting& setting) {
  if (setting.GetValues().size() > static_cast<std::size_t>(context.Grid().CellCount())) return;
  RegionGrowth growth(context, setting);
  const ProgressShown bar(context.feedback);
  growth.Run();
}

}  // namespace

void FillMap(MapContents& map, const CPropertySettingList& global, const CPropertySettingList& region,
             std::uint32_t seed, Feedback& feedback, CellListener& listener) {
  assert(map.m_pGrid);
  const FillContext context{map, feedback, listener};
  RandomNumbers random(seed);
  FillGlobally(context, global, random);
  for (const std::unique_ptr<CPropertySetting>& setting : region.GetSettings())
    FillRegions(context, *setting);
}

}  // namespace quorvel
