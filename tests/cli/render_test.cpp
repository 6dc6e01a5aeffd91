#include <regex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/samples.h"

namespace quorvel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::uint32_t BigEndianAt(const std::string& bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

/// "WIDTHxHEIGHT" of a PNG's header, "" for anything else.
std::string PictureSize(const std::string& bytes) {
  if (!bytes.starts_with("\x89PNG\r\n\x1a\n") || bytes.size() < 24) return {};
  return std::to_string(BigEndianAt(bytes, 16)) + "x" + std::to_string(BigEndianAt(bytes, 20));
}

// At s = 40 a column is 34 pixels and a row 40; the map of 3 x 2 is trunc(3 * 34 + 11.547) by trunc(2 * 40 +
// 20).
TEST(Render, DrawsTheMapOrAPartOfIt) {
  const TempFolder folder;
  const std::string map = folder.Write("map.vrl", MapText()), out = folder / "out.png";
  ASSERT_EQ(RunMapTool({"render", "--cell-size", "40", map, out}).code, 0);
  EXPECT_EQ(PictureSize(ReadBytes(out)), "113x100");
  const std::string whole = ReadBytes(out);
  // Cell (1, 0) lies at 34..78 by 20..60.
  ASSERT_EQ(RunMapTool({"render", "--cell-size", "40", "--cells", "1,0,1,0", map, out}).code, 0);
  EXPECT_EQ(PictureSize(ReadBytes(out)), "44x40");
  ASSERT_EQ(RunMapTool({"render", "--cell-size", "40", "--fill", "star", "--outline", "star", map, out}).code,
            0);
  EXPECT_EQ(ReadBytes(out), whole);  // the first index property is what is drawn anyway
  ASSERT_EQ(RunMapTool({"render", "--cell-size", "40", "--no-labels", map, out}).code, 0);
  EXPECT_NE(ReadBytes(out), whole);
  EXPECT_EQ(RunMapTool({"render", "--cell-size", "40", map, "-"}).out, whole);
  EXPECT_EQ(RunMapTool({"render", "--cell-size", "40", "--ground", "on", map, "-"}).out, whole);
  EXPECT_NE(RunMapTool({"render", "--cell-size", "40", "--ground", "off", map, "-"}).out, whole);
  ASSERT_EQ(RunMapTool({"render", map, folder / "out.PDF"}).code, 0);
  EXPECT_THAT(ReadBytes(folder / "out.PDF"), StartsWith("%PDF-"));
}

// The map of 113 x 100 pixels at 40 is 30 or 20 pixels a cell, averaged down, where less room is given.
TEST(Render, FitsThePictureIntoTheRoomGiven) {
  const TempFolder folder;
  const std::string map = folder.Write("map.vrl", MapText());
  const auto rendered = [&map](std::vector<std::string> options) {
    options.insert(options.begin(), "render");
    options.insert(options.end(), {map, "-"});
    return RunMapTool(options).out;
  };
  EXPECT_EQ(rendered({"--fit", "113x100"}), rendered({"--cell-size", "40"}));
  EXPECT_EQ(PictureSize(rendered({"--fit", "113x1000"})), "113x100");
  EXPECT_EQ(PictureSize(rendered({"--fit", "112x1000"})), "112x99");
  EXPECT_EQ(PictureSize(rendered({"--fit", "60x9"})), "9x9") << "less than ten pixels a cell";
  EXPECT_EQ(PictureSize(rendered({"--fit", "9999x9999"})), "286x250") << "a hundred at most";
}

/// The pages of a PDF by their sizes in points, as "WxH".
std::vector<std::string> SheetsOf(const std::string& pdf) {
  const std::regex box("/MediaBox \\[\\s*0 0 ([0-9]+)\\S* ([0-9]+)");
  std::vector<std::string> sheets;
  for (std::sregex_iterator page(pdf.begin(), pdf.end(), box); page != std::sregex_iterator(); ++page)
    sheets.push_back((*page)[1].str() + "x" + (*page)[2].str());
  return sheets;
}

// The map is 286 x 250 pixels at 100, so 8 mm a cell make it 22.88 mm wide.
TEST(Render, LaysTheMapOnSheetsOfPaper) {
  const TempFolder folder;
  const std::string map = folder.Write("map.vrl", MapText()), out = folder / "out.pdf";
  const struct {
    std::vector<std::string> options;
    std::vector<std::string> sheets;
  } rows[] = {{{"--cell-mm", "8"}, {"595x842"}},
              {{"--fit-page"}, {"842x595"}},
              {{"--paper", "Letter"}, {"612x792"}},
              {{"--paper", "A3", "--pages", "2x1"}, {"842x1191", "842x1191"}},
              {{"--paper", "100x200mm", "--fit-page"}, {"283x567"}},
              {{"--paper", "100x200mm", "--cell-mm", "40"}, {"283x567", "283x567"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.options));
    std::vector<std::string> arguments = {"render"};
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    arguments.insert(arguments.end(), {map, out});
    EXPECT_EQ(RunMapTool(arguments).code, 0);
    EXPECT_EQ(SheetsOf(ReadBytes(out)), row.sheets);
  }
}

TEST(Render, AFilterFadesCells) {
  const TempFolder folder;
  const std::string map = folder.Write("map.vrl", MapText()), out = folder / "out.png";
  const auto filter = [&folder](const char* value) {
    return folder.Write(
        "filter.txt",
        WithCrLf("[Filter/0]\nmember=\"v\"\n[Filter/0/Values/0]\nvalue=" + std::string(value) + "\n"));
  };
  ASSERT_EQ(RunMapTool({"render", "--cell-size", "40", map, out}).code, 0);
  const std::string plain = ReadBytes(out);
  ASSERT_EQ(RunMapTool({"render", "--cell-size", "40", "--filter", filter("7"), map, out}).code, 0);
  EXPECT_NE(ReadBytes(out), plain);  // cell 4 holds 5
  const ToolRun refused = RunMapTool(
      {"render", "--filter", folder.Write("f.txt", "[Filter/0]\r\nmember=\"ghost\"\r\n"), map, out});
  EXPECT_EQ(refused.code, 1);
  EXPECT_THAT(refused.err, HasSubstr("ghost"));
}

TEST(Render, RefusesWhatCannotBeDrawnAndWritesNothing) {
  const TempFolder folder;
  const std::string map = folder.Write("map.vrl", MapText());
  const std::string refused = folder.Write("refused.vrl", Replaced(MapText(), "Width=3", "Width=0"));
  const std::string wide = folder.Write("wide.vrl", Replaced(MapText(), "Width=3", "Width=20000000"));
  const std::string out = folder.Write("out.png", "old");
  const struct {
    std::vector<std::string> options;
    std::string map;
    int code;
  } rows[] = {{{"--fill", "name"}, map, 2},  // no index property
              {{"--outline", "ghost"}, map, 2},
              {{"--cells", "0,0,3,0"}, map, 2},  // column 3 is outside
              {{}, refused, 1},
              {{}, wide, 1}};  // more pixels than a picture may have
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.options) + row.map);
    std::vector<std::string> arguments = {"render"};
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    arguments.insert(arguments.end(), {row.map, out});
    const ToolRun run = RunMapTool(arguments);
    EXPECT_EQ(run.code, row.code);
    EXPECT_THAT(run.err, StartsWith("quorvel-map: " + row.map + ": "));
    EXPECT_EQ(ReadBytes(out), "old");
    EXPECT_EQ(folder.Names().size(), 4U);
  }
}

}  // namespace
}  // namespace quorvel
