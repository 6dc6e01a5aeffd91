#include "tests/map/fill/map_fill_by_the_book.h"

#include <algorithm>
#include <list>
#include <map>

#include <fmt/format.h>

namespace quorvel {
namespace {

struct RegionCell {
  std::int32_t index = 0;
  unsigned open = 0x3F;
  std::vector<const CValueSetting*> candidates;
};

struct GrowingRegion {
  const CValueSetting* value;
  std::list<RegionCell> frontier;
};

void Store(MapContents& map, std::int32_t index, const CValueSetting* value, CellListener& listener) {
  auto record = map.m_pGrid->Find(index);
  if (!record) record = CreateCell(map, map.m_pGrid->CoordOf(index));
  if (!record) return;
  if (const MemberDef* member = value->GetOwner().GetMember())
    member->SetValue(record->data, value->GetValue());
  listener.OnCellChanged(*record);
}

void FillGlobally(MapContents& map, const CPropertySettingList& settings, std::uint32_t& state,
                  Feedback& feedback, CellListener& listener) {
  const auto draw = [&] {
    state = state * 214013U + 2531011U;
    return (state >> 16 & 0x7fff) * (1.0 / 32767) * 100;
  };
  if (settings.GetSettings().empty()) return;
  feedback.ShowProgress(true);
  feedback.SetProgressPos(0);
  const int cells = map.m_pGrid->CellCount();
  for (int i = 0; i < cells; ++i) {
    feedback.Pump();
    feedback.SetMessageText(fmt::format("Filling Map (cell {}/{})", i, cells));
    feedback.SetProgressPos(static_cast<int>(static_cast<double>(i) / cells * 100.0));
    for (const auto& setting : settings.GetSettings()) {
      if (setting->GetValues().empty() || draw() > setting->GetCoverage()) continue;
      const double y = draw();
      double sum = 0.0;
      for (const auto& value : setting->GetValues()) {
        sum += value->GetShare();
        if (sum == 0.0 || y > sum) continue;
        Store(map, i, value.get(), listener);
        break;
      }
    }
  }
  feedback.ShowProgress(false);
  feedback.SetMessageText("");
}

void Plant(const CellGrid& grid, const CPropertySetting& setting, std::map<std::int32_t, RegionCell>& pool,
           std::list<GrowingRegion>& regions) {
  for (const auto& value : setting.GetValues()) {
    const double px = grid.Width() * double{86.60254669189453F} * value->GetOriginX() * double{0.01F};
    const double py = grid.Height() * 100.0 * value->GetOriginY() * double{0.01F};
    auto seed = pool.find(grid.IndexOf(grid.HitTest(100.0F, static_cast<int>(px), static_cast<int>(py))));
    if (seed == pool.end()) seed = pool.begin();
    regions.push_back({value.get(), {{seed->first, 0x3F, {value.get()}}}});
    pool.erase(seed);
  }
}

bool Grow(const CellGrid& grid, std::list<GrowingRegion>& regions, std::map<std::int32_t, RegionCell>& pool,
          Feedback& feedback) {
  bool grew = false;
  for (GrowingRegion& region : regions) {
    for (auto cell = region.frontier.begin(); cell != region.frontier.end();) {
      if (cell->open == 0) {
        cell = region.frontier.erase(cell);
        continue;
      }
      for (int d = 0; d < 6; ++d) {
        feedback.Pump();
        if ((cell->open >> d & 1) == 0) continue;
        if (const auto next = pool.find(grid.Neighbour(cell->index, d)); next != pool.end()) {
          grew = true;
          next->second.open &= ~(1U << (d + 3) % 6);
          auto& candidates = next->second.candidates;
          if (candidates.empty() || (candidates.size() == 1 && candidates[0] != region.value))
            candidates.push_back(region.value);
        }
        cell->open &= ~(1U << d);
      }
      ++cell;
    }
  }
  return grew;
}

void Claim(MapContents& map, std::list<GrowingRegion>& regions, std::map<std::int32_t, RegionCell>& pool,
           Feedback& feedback, CellListener& listener) {
  for (auto entry = pool.begin(); entry != pool.end();) {
    feedback.Pump();
    const RegionCell& cell = entry->second;
    if (cell.candidates.size() == 1) {
      const auto region = std::ranges::find(regions, cell.candidates[0], &GrowingRegion::value);
      region->frontier.push_back(cell);
      Store(map, cell.index, region->value, listener);
    }
    entry = cell.candidates.empty() ? std::next(entry) : pool.erase(entry);
  }
}

void FillRegions(MapContents& map, const CPropertySetting& setting, Feedback& feedback,
                 CellListener& listener) {
  const CellGrid& grid = *map.m_pGrid;
  const int cells = grid.CellCount();
  if (static_cast<int>(setting.GetValues().size()) > cells) return;
  std::map<std::int32_t, RegionCell> pool;
  for (int i = 0; i < cells; ++i) pool[i].index = i;
  std::list<GrowingRegion> regions;
  Plant(grid, setting, pool, regions);

  feedback.ShowProgress(true);
  feedback.SetProgressPos(0);
  for (bool growing = true; !pool.empty() && growing;) {
    feedback.Pump();
    feedback.SetMessageText(fmt::format("Filling Regions ({} cells left)", pool.size()));
    feedback.SetProgressPos(100 - static_cast<int>(static_cast<double>(pool.size()) / cells * 100.0));
    growing = Grow(grid, regions, pool, feedback);
    Claim(map, regions, pool, feedback, listener);
  }
  feedback.ShowProgress(false);
  feedback.SetMessageText("");
}

}  // namespace

void FillMapByTheBook(MapContents& map, const CPropertySettingList& global,
                      const CPropertySettingList& region, std::uint32_t seed, Feedback& feedback,
                      CellListener& listener) {
  std::uint32_t state = seed;
  FillGlobally(map, global, state, feedback, listener);
  for (const auto& setting : region.GetSettings()) FillRegions(map, *setting, feedback, listener);
}

}  // namespace quorvel
