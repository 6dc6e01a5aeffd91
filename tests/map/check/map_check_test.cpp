#include "map/check/map_check.h"

#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Every problem as "LINE: TEXT", or "TEXT" where no line is named.
std::vector<std::string> Problems(const std::string& bytes) {
  std::stringbuf file(bytes);
  NullFeedback feedback;
  std::vector<std::string> problems;
  CheckFile(file, feedback, [&problems](const Problem& problem) {
    problems.push_back((problem.line != 0 ? std::to_string(problem.line) + ": " : "") + problem.text);
  });
  return problems;
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, text.npos) << from;
  return text.replace(at, from.size(), to);
}

/// A sound map of 3 x 2 cells, of which 1 and 4 have values of their own.
std::string SoundMap() {
  MapContents map = ContentsOf(SampleClasses() + Lines("[Classes/Kind/UI/Color] 0=1 1=2 2=3"));
  MakeGrid(map, 3, 2);
  SetValue(map, 1, "Name", "Vega");
  SetValue(map, 4, "Count", "9");
  return SavedAs(map, FileForm::Text);
}

std::string BinaryMap() {
  std::string errorText;
  MapContents map = Loaded(SoundMap(), errorText);
  return SavedAs(map, FileForm::Binary);
}

/// Number of the line that begins with this text.
std::size_t LineNumber(const std::string& text, std::string_view line) {
  const std::size_t at = text.find(line);
  if (at == text.npos) return 0;
  return 1 + static_cast<std::size_t>(
                 std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\r'));
}

TEST(MapCheck, WhatTheEditorSavesIsSound) {
  EXPECT_THAT(Problems(SoundMap()), IsEmpty());
  EXPECT_THAT(Problems(BinaryMap()), IsEmpty());
  EXPECT_THAT(Problems(SampleClasses() + Lines("[Classes/Kind/UI/Color] 0=1 1=2 2=3 //fine")), IsEmpty());
}

struct CheckRow {
  const char* from;
  const char* to;
  const char* at;       ///< beginning of the line that is named, empty for none
  const char* problem;  ///< the only one
};

// With the point that the text form ends them with; the range of Weight is taken away.
TEST(MapCheck, NumbersThatAreNoneAreSoundAsTheWriterWritesThem) {
  MapContents map =
      ContentsOf(Replaced(SampleClasses(), "0<1.5<9", "0") + Lines("[Classes/Kind/UI/Color] 0=1 1=2 2=3"));
  MakeGrid(map, 3, 2);
  const char* const texts[] = {"inf", "-inf", "nan", "-nan"};
  for (int cell = 0; cell < 4; ++cell) SetValue(map, cell, "Weight", texts[cell]);
  const std::string text = SavedAs(map, FileForm::Text);
  EXPECT_THAT(text, testing::HasSubstr("Weight=-nan.\r\n"));
  EXPECT_THAT(Problems(text), IsEmpty());
  EXPECT_THAT(Problems(SavedAs(map, FileForm::Binary)), IsEmpty());
  EXPECT_THAT(Problems(Replaced(text, "=nan.", "=nan..")), testing::SizeIs(1));
}

TEST(MapCheck, OneFaultOfATextMapIsOneProblemWithItsLine) {
  const CheckRow rows[] = {
      // the head
      {"CellType=\"hex\"", "CellType=hex", "CellType=hex", "Version/CellType is hex instead of \"hex\""},
      {"FileVersion=0", "FileVersion=1", "FileVersion=1", "Version/FileVersion is 1 instead of 0"},
      {"FileVersion=0\r\n", "", "", "Version/FileVersion is missing"},
      {"FileVersion=0", "FileVersion=0\r\nAuthor=\"x\"", "Author",
       "Version/Author is not part of such a map"},
      {"type=\"text\"", "type=\"Text\"", "type=\"Text\"",
       "Version/Data/type is \"Text\" instead of \"text\""},
      {"type=\"Map\"", "type=\"Chart\"", "type=\"Chart\"",
       "Declare/Galaxy/type is \"Chart\" instead of \"Map\""},
      // lines
      {"[Version]\r\n", "[Version]\r\nword\r\n", "word",
       "the line is ignored, it is neither a section nor key=value"},
      {"CellType=\"hex\"", "CellType=\"hex\"\r\nCellType=\"hex\"", "CellType=\"hex\"\r\n[",
       "CellType is given again, the value of line 4 is lost"},
      {"[Declare/Galaxy]", "[Classes/Cell]\r\n[Declare/Galaxy]", "[Classes/Cell]\r\n[Declare",
       "section [Classes/Cell] is given again"},
      {"Name=\"Vega\"", "Name", "Name\r\n", "the line is ignored, it is neither a section nor key=value"},
      // the map object
      {"Width=3", "Width=3\r\nDepth=4", "Depth", "no member of class Map is named Depth"},
      {"Height=2", "Height=2.5", "Height=2.5", "Height is no whole number, \"2.5\" is read as 2"},
      // cells
      {"Cells/4]", "Cells/6]", "[Objects/Galaxy/Cells/6]",
       "cell 6 is outside the grid of 3x2 and is ignored"},
      {"Cells/4]", "Cells/04]", "[Objects/Galaxy/Cells/04]", "cell name 04 is read as 4"},
      {"Cells/4]", "Cells/1]", "[Objects/Galaxy/Cells/1]\r\nName=\"none\"", "cell 1(1:0) is named again"},
      {"Count=9", "Count=10", "Count=10", "cell 4(1:1): Count is 10, outside 0..9"},
      {"Count=9", "Count=-1", "Count=-1", "cell 4(1:1): Count is -1, outside 0..9"},
      {"Count=9", "Count=many", "Count=many", "cell 4(1:1): Count is no whole number, \"many\" is read as 0"},
      {"Count=9", "Mass=9", "Mass", "cell 4(1:1): no member is named Mass"},
      {"Count=9", "Part=9", "Part=9", "cell 4(1:1): Part is an object and holds no value"},
      {"Count=9", "Count=9\r\nsub/x=1", "sub/x", "leaf sub/x lies below a cell and is ignored"},
      {"Weight=1.500000", "Weight=nan", "Weight=nan", "cell 1(1:0): Weight is nan, outside 0..9"},
      {"Kind=0", "Kind=3", "Kind=3", "cell 1(1:0): Kind is 3, but list Kind has 3 items"},
      {"Kind=0", "Kind=-1", "Kind=-1", "cell 1(1:0): Kind is -1, but list Kind has 3 items"}};
  for (const CheckRow& row : rows) {
    SCOPED_TRACE(std::string(row.from) + " -> " + row.to);
    const std::string map = Replaced(SoundMap(), row.from, row.to);
    const std::string line = *row.at == '\0' ? "" : std::to_string(LineNumber(map, row.at)) + ": ";
    EXPECT_THAT(Problems(map), ElementsAre(line + row.problem));
  }
}

TEST(MapCheck, OneFaultOfTheTypesIsOneProblem) {
  const std::string sound = SampleClasses() + Lines("[Classes/Kind/UI/Color] 0=1 1=2 2=3");
  const CheckRow rows[] = {
      {"[Classes/Kind]", "[Classes]\r\nnote=1\r\n[Classes/Kind]", "note",
       "Classes/note belongs to no type and is ignored"},
      {"[Classes/Map]", "[Classes/Empty]\r\n[Classes/Map]", "[Classes/Empty]",
       "type Empty is skipped, it has no type"},
      {"[Classes/Map]", "[Classes/X]\r\ntype=class\r\n[Classes/Map]", "type=class",
       "type X is skipped, its type is not in quotes"},
      {"[Classes/Map]", "[Classes/X]\r\ntype=\"List\"\r\n[Classes/Map]", "type=\"List\"",
       "type X is skipped, a list's type is any word but \"List\""},
      {"[Classes/Part]\r\n", "[Classes/Part]\r\nrange=4\r\n", "range=4",
       "type Part is skipped, its range is not in quotes"},
      {"2=3\r\n", "", "[Classes/Kind]", "list Kind has 3 items but 2 colours"},
      {"range=\"0<5<9\"", "range=0", "range=0", "member Cell/Count is skipped, its range is not in quotes"},
      {"type=\"float\"", "type=\"real\"", "type=\"real\"",
       "member Cell/Weight is skipped, \"real\" is no kind of member"},
      {"range=\"0<5<9\"", "range=\"6<5<9\"", "range=\"6<5<9\"",
       "member Cell/Count has a default of 5, outside 6..9"},
      {"range=\"Kind\"", "range=\"Sort\"", "range=\"Sort\"",
       "member Cell/Kind names list Sort, which is missing"},
      {"range=\"Part\"", "range=\"Cell\"", "range=\"Cell\"",
       "member Cell/Part holds its own class and takes no room"},
      {"[Classes/Map/Height]\r\ntype=\"int\"", "[Classes/Map/Height]\r\ntype=\"string\"", "",
       "class Map has no Width or no Height with a range of numbers"}};
  for (const CheckRow& row : rows) {
    SCOPED_TRACE(std::string(row.from) + " -> " + row.to);
    const std::string types = Replaced(sound, row.from, row.to);
    const std::string line = *row.at == '\0' ? "" : std::to_string(LineNumber(types, row.at)) + ": ";
    const auto problems = Problems(types);
    ASSERT_FALSE(problems.empty());
    EXPECT_EQ(problems.front(), line + row.problem);
    EXPECT_LE(problems.size(), 2U);  // a type that is skipped may be missed elsewhere
  }
  EXPECT_THAT(Problems(Replaced(sound, "[Classes/Map]", "[Classes/Chart]")).front(),
              "Map definition not found.");
}

TEST(MapCheck, TypesThatComeTooLateAreTold) {
  const std::string late = Lines(
      "[Classes/Map] type='class' [Classes/Map/Width] type='int' [Classes/Map/Height] type='int' "
      "[Classes/Cell] type='class' [Classes/Cell/k] type='index' range='Kind' [Classes/Kind] type='names' "
      "0='x' UI/Color/0=1");
  EXPECT_THAT(Problems(late), ElementsAre("11: member Cell/k names list Kind, which comes too late"));
}

std::string WithNumber(std::string bytes, std::size_t at, std::int32_t number) {
  for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(number >> (8 * i));
  return bytes;
}

TEST(MapCheck, BlocksOfABinaryMapAreMeasured) {
  const std::string sound = BinaryMap();
  const std::string textBlock = std::string("none\0Vega\0none\0none\0none\0none\0", 30);
  const std::size_t data = sound.size() - textBlock.size() - std::size_t{6} * 16 - 12;
  ASSERT_TRUE(sound.ends_with(textBlock));
  const std::size_t firstValues = data + 12;

  EXPECT_THAT(Problems(sound + "more"),
              ElementsAre("the text block has 34 bytes, but the texts of the cells take 30"));
  EXPECT_THAT(Problems(WithNumber(sound, firstValues + 4, 77)),
              ElementsAre("cell 0(0:0): Count is 77, outside 0..9"));
  EXPECT_THAT(Problems(WithNumber(sound, firstValues + 12, 5)),
              ElementsAre("cell 0(0:0): Kind is 5, but list Kind has 3 items"));
  EXPECT_EQ(Problems(WithNumber(sound, data + 8, 5)).size(), 1U);  // a wrong count is refused with its reason
  EXPECT_THAT(Problems(Replaced(sound, "string=4", "string=8")).size(), 1U);
  std::string padding = sound;
  padding[data - 1] = 'x';
  EXPECT_THAT(Problems(padding), ElementsAre("not all bytes between the text and the data block are zero"));
}

// Whatever a file holds, the check ends and tells something or nothing.
TEST(MapCheck, TakesFilesCutAtEveryLength) {
  for (const std::string& bytes : {SoundMap(), BinaryMap()}) {
    for (std::size_t length = 0; length < bytes.size(); length += 3) Problems(bytes.substr(0, length));
  }
}

}  // namespace
}  // namespace quorvel
