#include "map/map_fill.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "map/random_numbers.h"

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

void ShowProgress(const FillContext& context) {
  context.feedback.ShowProgress(true);
  context.feedback.SetProgressPos(0);
}

void HideProgress(const FillContext& context) {
  context.feedback.ShowProgress(false);
  context.feedback.SetMessageText("");
}

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
    const auto chosen = std::ranges::lower_bound(reach_, DrawPercent(random));
    return chosen == reach_.end() ? nullptr : setting_.GetValues()[chosen - reach_.begin()].get();
  }

 private:
  static constexpr double kNothing = -std::numeric_limits<double>::infinity();

  const CPropertySetting& setting_;
  std::vector<double> reach_;  // by value, the greatest draw that it or one before it answers: never falls
};

void DrawValues(const FillContext& context, std::int32_t index, const std::vector<ValueDraw>& draws,
                RandomNumbers& random) {
  std::optional<CellRecord> record;
  for (const ValueDraw& draw : draws) {
    const CValueSetting* value = draw.Next(random);
    if (value == nullptr) continue;
    if (!record) record = RecordOf(context, index);
    if (record) StoreValue(context, *record, *value);
  }
}

void FillGlobally(const FillContext& context, const CPropertySettingList& settings, RandomNumbers& random) {
  if (settings.GetSettings().empty()) return;
  std::vector<ValueDraw> draws;
  for (const std::unique_ptr<CPropertySetting>& setting : settings.GetSettings())
    if (!setting->GetValues().empty()) draws.emplace_back(*setting);

  ShowProgress(context);
  LoopFeedback steps(context.feedback);
  const std::int32_t cells = context.Grid().CellCount();
  for (std::int32_t index = 0; index < cells; ++index) {
    steps.Step([&](Feedback& sink) {
      sink.SetMessageText(fmt::format("Filling Map (cell {}/{})", index, cells));
      sink.SetProgressPos(context.PercentOfCells(index));
    });
    DrawValues(context, index, draws, random);
  }
  HideProgress(context);
}

// ---- Region phase: one property at a time, regions that grow in step. A region is numbered like its value.

class RegionGrowth {
 public:
  RegionGrowth(const FillContext& context, const CPropertySetting& setting)
      : context_(context),
        values_(setting.GetValues()),
        cells_(context.Grid().CellCount(), kPooled | kAllDirections),
        candidates_(cells_.size(), kNoRegion),
        frontiers_(values_.size()),
        poolSize_(context.Grid().CellCount()),
        pump_(context.feedback) {
    for (std::size_t region = 0; region < values_.size(); ++region) TakeSeed(region);
  }

  void Run() {
    bool growing = true;
    while (poolSize_ > 0 && growing) {
      Report();
      growing = Grow();
      Claim();
    }
  }

 private:
  static constexpr std::uint8_t kAllDirections = 0x3F;  // bit d: not yet grown in direction d
  static constexpr std::uint8_t kPooled = 0x40;         // no region holds the cell yet, and none bars it
  static constexpr std::int32_t kNoRegion = -1;
  static constexpr std::int32_t kSeveralRegions = -2;

  bool IsPooled(std::int32_t cell) const { return cell >= 0 && (cells_[cell] & kPooled) != 0; }

  void TakeFromPool(std::int32_t cell) {
    cells_[cell] &= static_cast<std::uint8_t>(~kPooled);
    --poolSize_;
  }

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
    if (!IsPooled(seed)) {
      while (!IsPooled(lowestPooled_)) ++lowestPooled_;
      seed = lowestPooled_;
    }
    TakeFromPool(seed);
    frontiers_[region].push_back(seed);
  }

  void Report() {
    context_.feedback.Pump();
    context_.feedback.SetMessageText(fmt::format("Filling Regions ({} cells left)", poolSize_));
    context_.feedback.SetProgressPos(100 - context_.PercentOfCells(poolSize_));
  }

  void Pump() {
    pump_.Step([](Feedback&) {});
  }

  /// Lets every region reach out of its frontier once; false when none reached a cell of the pool.
  bool Grow() {
    reached_.clear();
    for (std::size_t region = 0; region < frontiers_.size(); ++region) {
      for (const std::int32_t cell : frontiers_[region]) GrowFrom(cell, static_cast<std::int32_t>(region));
      frontiers_[region].clear();
    }
    return !reached_.empty();
  }

  void GrowFrom(std::int32_t cell, std::int32_t region) {
    const unsigned open = cells_[cell] & kAllDirections;
    if (open == 0) return;
    for (int direction = 0; direction < 6; ++direction) {
      Pump();
      if ((open >> direction & 1U) == 0) continue;
      const std::int32_t next = context_.Grid().Neighbour(cell, direction);
      if (IsPooled(next)) Reach(next, direction, region);
    }
  }

  void Reach(std::int32_t cell, int direction, std::int32_t region) {
    const int wayBack = (direction + 3) % 6;
    cells_[cell] &= static_cast<std::uint8_t>(~(1U << wayBack));
    std::int32_t& candidate = candidates_[cell];
    if (candidate == kNoRegion) {
      candidate = region;
      reached_.push_back(cell);
    } else if (candidate != region) {
      candidate = kSeveralRegions;
    }
  }

  /// Takes what was reached out of the pool: for the one region that reached a cell, or as border between
  /// several.
  void Claim() {
    std::ranges::sort(reached_);
    for (const std::int32_t cell : reached_) {
      Pump();
      TakeFromPool(cell);
      if (candidates_[cell] != kSeveralRegions) GiveTo(candidates_[cell], cell);
    }
  }

  void GiveTo(std::int32_t region, std::int32_t cell) {
    frontiers_[region].push_back(cell);
    if (const std::optional<CellRecord> record = RecordOf(context_, cell))
      StoreValue(context_, *record, *values_[region]);
  }

  const FillContext& context_;
  const CPropertySetting::Values& values_;
  std::vector<std::uint8_t> cells_;
  std::vector<std::int32_t> candidates_;              // by cell, the region that reached it
  std::vector<std::vector<std::int32_t>> frontiers_;  // by region, the cells it grew by in the last step
  std::vector<std::int32_t> reached_;                 // cells of the pool with candidates
  std::int32_t poolSize_;
  std::int32_t lowestPooled_ = 0;
  LoopFeedback pump_;
};

void FillRegions(const FillContext& context, const CPropertySetting& setting) {
  if (setting.GetValues().size() > static_cast<std::size_t>(context.Grid().CellCount())) return;
  RegionGrowth growth(context, setting);
  ShowProgress(context);
  growth.Run();
  HideProgress(context);
}

}  // namespace

void FillMap(MapContents& map, const CPropertySettingList& global, const CPropertySettingList& region,
             std::uint32_t seed, Feedback& feedback, CellListener& listener) {
  assert(map.m_pGrid != nullptr);
  const FillContext context{map, feedback, listener};
  RandomNumbers random(seed);
  FillGlobally(context, global, random);
  for (const std::unique_ptr<CPropertySetting>& setting : region.GetSettings())
    FillRegions(context, *setting);
}

}  // namespace quorvel
