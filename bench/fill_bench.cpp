#include <array>
#include <memory>
#include <string>

#include "bench/bare_copy.h"
#include "data/index_member.h"
#include "data/number_members.h"
#include "data/string_member.h"
#include "map/fill/map_fill.h"

namespace quorvel {
namespace {

constexpr std::array kGlobalMembers = {"Count", "Weight", "Name"};

MapContents EmptyMap(int side) {
  MapContents map;
  ListDef* kinds = map.m_pTypes->Add(std::make_unique<ListDef>("Kind"));
  for (const char* item : {"a", "b", "c", "d", "e", "f", "g", "h"}) kinds->AddItemName(item);
  map.m_pCellClass = map.m_pTypes->Add(std::make_unique<ClassDef>("Cell"));
  map.m_pCellClass->AddMember(std::make_unique<StringMember>("Name"));
  map.m_pCellClass->AddMember(std::make_unique<IntMember>("Count"));
  map.m_pCellClass->AddMember(std::make_unique<FloatMember>("Weight"));
  map.m_pCellClass->AddMember(std::make_unique<IndexMember>("Kind", kinds));
  MakeGrid(map, side, side);
  return map;
}

CPropertySettingList GlobalSettings(const MapContents& map) {
  CPropertySettingList settings;
  for (const char* member : kGlobalMembers) {
    CPropertySetting& setting = settings.Add(map.m_pCellClass->FindMember(member), CoverageControl::Slider);
    for (const char* text : {"1", "2", "3", "4"}) setting.AppendValue(25).StoreText(text);
  }
  return settings;
}

/// One property of eight regions.
CPropertySettingList RegionSettings(const MapContents& map) {
  constexpr std::array<std::array<float, 2>, 8> origins = {
      {{12, 18}, {40, 12}, {72, 15}, {92, 40}, {15, 60}, {45, 52}, {66, 85}, {30, 90}}};
  CPropertySettingList settings;
  CPropertySetting& setting = settings.Add(map.m_pCellClass->FindMember("Kind"), CoverageControl::Slider);
  for (std::size_t region = 0; region < origins.size(); ++region) {
    CValueSetting& value = setting.AddValue();
    value.SetOrigin(origins[region][0], origins[region][1]);
    value.StoreText(std::to_string(region));
  }
  return settings;
}

struct Nobody : CellListener {
  void OnCellChanged(const CellRecord& record) override { benchmark::DoNotOptimize(record.index); }
};

enum Phases : std::int64_t { kGlobal = 1, kRegion = 2 };

/// Arguments: side, phases. Four members of 4 bytes a cell.
void Fill(benchmark::State& state) {
  const auto side = static_cast<int>(state.range(0));
  const std::int64_t phases = state.range(1);
  const std::size_t cells = static_cast<std::size_t>(side) * side;
  Nobody nobody;
  NullFeedback feedback;
  BesideCopy beside(state, cells, cells * 16);
  for (auto _ : state) {
    MapContents map = EmptyMap(side);
    const CPropertySettingList none, global = GlobalSettings(map), region = RegionSettings(map);
    beside.Time([&] {
      FillMap(map, (phases & kGlobal) != 0 ? global : none, (phases & kRegion) != 0 ? region : none, 1,
              feedback, nobody);
    });
  }
}
BENCHMARK(Fill)
    ->ArgNames({"side", "phases"})
    ->ArgsProduct({{500, 707, 1000}, {kGlobal, kRegion, kGlobal | kRegion}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorvel
