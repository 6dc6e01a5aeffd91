#include "map/fill/map_fill.h"

#include <gmock/gmock.h>

#include "map/fill/random_numbers.h"
#include "tests/map/fill/map_fill_by_the_book.h"
#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

/// What the fill tells, "update N" for a cell; pumping is counted.
class FillLog : public FeedbackLog, public CellListener {
 public:
  void Pump() override { ++pumps; }
  void OnCellChanged(const CellRecord& record) override { Add("update " + std::to_string(record.index)); }

  int pumps = 0;
};

struct ValueRow {
  const char* text;
  float share = 0, x = 50, y = 50;
};

void AddSetting(CPropertySettingList& list, const MemberDef* member, float coverage,
                const std::vector<ValueRow>& values) {
  CPropertySetting& setting = list.Add(member, CoverageControl::Slider);
  setting.SetCoverage(coverage);
  for (const ValueRow& row : values) {
    CValueSetting& value = setting.AppendValue(row.share);
    value.SetOrigin(row.x, row.y);
    value.StoreText(row.text);
  }
}

std::vector<std::string> Values(const MapContents& map, const char* member) {
  std::vector<std::string> values;
  for (std::int32_t index = 0; index < map.m_pGrid->CellCount(); ++index)
    values.push_back(ValueText(map, index, member));
  return values;
}

/// Seed 1 draws 41, 18467, 6334, 26500, 19169, ... of 32767: 0.13, 56.36, 19.33, 80.87, 58.50 percent.
/// Cell 0: covered (0.13 <= 50), second value (56.36 <= 30 + 70). Cell 1: the same (19.33, 80.87). Cell
/// 2: 58.50 is not covered. Then the regions: their seeds are cells 0 and 2, and both reach cell 1 in the
/// first step.
TEST(MapFill, LogWorkedOutByHand) {
  MapContents map = EmptySampleMap(3, 1);
  CPropertySettingList global, region;
  AddSetting(global, Member(map, "Weight"), 100, {});  // without values it draws nothing
  AddSetting(global, Member(map, "Count"), 50, {{"7", 30}, {"9", 70}});
  AddSetting(region, Member(map, "Name"), 100, {{"west", 0, 0, 0}, {"east", 0, 100, 100}});
  FillLog log;
  FillMap(map, global, region, 1, log, log);

  EXPECT_THAT(log.Events(),
              testing::ElementsAre("show", "progress 0", "text Filling Map (cell 0/3)", "progress 0",
                                   "update 0", "text Filling Map (cell 1/3)", "progress 33", "update 1",
                                   "text Filling Map (cell 2/3)", "progress 66", "hide", "text ", "show",
                                   "progress 0", "text Filling Regions (1 cells left)", "progress 67", "hide",
                                   "text "));
  EXPECT_GE(log.pumps, 3 + 1) << "for every cell and step";
  EXPECT_THAT(Values(map, "Count"), testing::ElementsAre("9", "9", "-"));
  EXPECT_THAT(Values(map, "Name"), testing::ElementsAre("none", "none", "-"));
}

TEST(MapFill, CoverageAndSharesAgainstTheDraws) {
  struct Row {
    std::string why;
    float coverage;
    std::vector<ValueRow> values;
    std::uint32_t seed;
    const char* value;  // of the only cell
  };
  const Row rows[] = {
      {"a first draw of 0 is covered by 0", 0, {{"7", 100}}, 20057, "7"},      // draws 0, 7834
      {"any other draw is not", 0, {{"7", 100}}, 1, "-"},                      // draws 41
      {"the greatest draw is covered by 100", 100, {{"7", 100}}, 32638, "7"},  // draws 8316, 32767
      {"and answered by a sum of 100", 100, {{"6", 30}, {"7", 70}}, 32638, "7"},
      {"a sum of 0 answers not even 0", 100, {{"6", 0}, {"7", 30}, {"8", 70}}, 34205, "7"},  // 13433, 0
      {"shares of 0 only", 100, {{"6", 0}, {"7", 0}}, 34205, "-"},
      {"a draw above the total", 100, {{"6", 20}, {"7", 30}}, 1, "-"},  // draws 0.13, 56.36
      {"no draw is below a negative sum", 100, {{"6", -5}, {"7", 60}}, 34205, "7"},
      {"a sum that falls hides nothing that it reached", 100, {{"6", 60}, {"7", -30}, {"8", 30}}, 1, "6"},
      {"a sum that falls back to 0 is passed over", 100, {{"6", 20}, {"7", -20}, {"8", 80}}, 1, "8"},
      {"shares beyond 100", 100, {{"6", 20}, {"7", 500}}, 1, "7"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    MapContents map = EmptySampleMap(1, 1);
    CPropertySettingList global;
    AddSetting(global, Member(map, "Count"), row.coverage, row.values);
    FillLog log;
    FillMap(map, global, {}, row.seed, log, log);
    EXPECT_EQ(ValueText(map, 0, "Count"), row.value);
  }
}

TEST(MapFill, CellsWithoutAnInstanceArePassedOver) {
  MapContents map;
  map.m_pCellClass = map.m_pTypes->Add(std::make_unique<ClassDef>("Cell"));  // empty: makes none
  MakeGrid(map, 4, 1);
  CPropertySettingList global, region;
  AddSetting(global, nullptr, 100, {{"1", 100}});
  AddSetting(region, nullptr, 100, {{"1", 100, 0, 0}});
  FillLog log;
  FillMap(map, global, region, 1, log, log);
  EXPECT_THAT(log.Events(), testing::Not(testing::Contains(testing::StartsWith("update"))));
  EXPECT_THAT(log.Events(), testing::Contains("text Filling Regions (1 cells left)"))
      << "the region grew all the same";
  EXPECT_EQ(map.m_pGrid->Count(), 0);
}

/// Random settings, filled by the arrays and by the lists of the definition: every event and every value
/// agrees.
TEST(MapFill, AgreesWithTheBook) {
  RandomNumbers random(2'024);
  const auto percent = [&] { return static_cast<float>(random.Next() % 1'301) / 10 - 10; };
  for (int round = 0; round < 150; ++round) {
    SCOPED_TRACE(round);
    const int width = 1 + random.Next() % (round % 10 != 0 ? 12 : 30), height = 1 + random.Next() % 9;
    MapContents map = EmptySampleMap(width, height), judge = EmptySampleMap(width, height);
    CPropertySettingList global, region, judgeGlobal, judgeRegion;
    for (const char* name : {"Count", "Name", "Kind", "Part", "no such member"}) {
      std::vector<ValueRow> values(random.Next() % 6, ValueRow{"2"});
      for (ValueRow& row : values)
        row = {random.Next() % 2 != 0 ? "1" : "3", percent() / 2, percent(), percent()};
      const float coverage = percent();
      AddSetting(global, Member(map, name), coverage, values);
      AddSetting(judgeGlobal, Member(judge, name), coverage, values);
      AddSetting(region, Member(map, name), coverage, values);
      AddSetting(judgeRegion, Member(judge, name), coverage, values);
    }
    FillLog log, judgeLog;
    FillMap(map, global, region, round, log, log);
    FillMapByTheBook(judge, judgeGlobal, judgeRegion, round, judgeLog, judgeLog);
    ASSERT_EQ(log.Events(), judgeLog.Events());
    for (const char* name : {"Count", "Name", "Kind"})
      ASSERT_EQ(Values(map, name), Values(judge, name)) << name;
  }
}

}  // namespace
}  // namespace quorvel
