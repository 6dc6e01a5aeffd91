#include "map/file/map_reader.h"

#include <algorithm>
#include <random>
#include <sstream>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "map/types/map_limits.h"
#include "platform/files/little_endian.h"
#include "tests/map/failing_memory.h"
#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

/// One member of each kind that has a value, the map 3 x 2.
std::string TextFile(std::string_view cells) {
  return SampleClasses() + Lines("[Objects/Galaxy] Width=3 Height=2") + Lines(cells);
}

/// The values of one cell, or "none" without record.
std::string Cell(const MapContents& contents, std::int32_t index) {
  const auto record = contents.m_pGrid->Find(index);
  if (!record) return "none";
  std::string text;
  for (const auto& member : contents.m_pCellClass->Members()) {
    if (member->GetKind() == MemberKind::Object) continue;
    std::string value;
    member->FormatValue(value, member->GetValuePtr(record->data));
    text += value + ' ';
  }
  return text;
}

/// What both roads make of the bytes. The streamed one must agree where it leads through.
MapContents LoadedByBothRoads(const std::string& bytes, std::string& errorText) {
  NullFeedback feedback;
  std::string streamedErrors;
  std::stringbuf file(bytes);
  const auto streamed = ReadMap(file, Road::Streamed, feedback, streamedErrors);
  auto through = ReadMap(file, Road::Tree, feedback, errorText);
  EXPECT_TRUE(through);
  if (streamed) {
    EXPECT_EQ(Describe(*streamed), Describe(*through));
    EXPECT_EQ(streamedErrors, errorText);
  } else {
    EXPECT_EQ(streamedErrors, "");
  }
  if (!through->m_pGrid) {
    EXPECT_NE(errorText, "");
  }
  return std::move(*through);
}

bool IsStreamed(const std::string& bytes) {
  NullFeedback feedback;
  std::string errorText;
  std::stringbuf file(bytes);
  return ReadMap(file, Road::Streamed, feedback, errorText).has_value();
}

TEST(MapReader, ReadsWhatTheWriterWrote) {
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    for (const FileForm form : {FileForm::Text, FileForm::Binary}) {
      SCOPED_TRACE(fmt::format("seed {}, form {}", seed, NameOf(form)));
      MapContents contents = SampleMap(7, static_cast<int>(seed), seed);
      const std::string bytes = SavedAs(contents, form);
      std::string errorText;
      MapContents again = LoadedByBothRoads(bytes, errorText);
      EXPECT_EQ(errorText, "");
      EXPECT_TRUE(IsStreamed(bytes));
      EXPECT_EQ(Saved(again), bytes);
      EXPECT_EQ(again.m_pGrid->Count(),
                form == FileForm::Binary ? again.m_pGrid->CellCount() : contents.m_pGrid->Count());
      EXPECT_TRUE(std::all_of(again.m_pCellMarks.get(), again.m_pCellMarks.get() + 7 * seed,
                              [](std::uint8_t mark) { return mark == 0; }));
    }
  }
}

TEST(MapReader, ConvertsLeavesByTheMembersKind) {
  const std::tuple<const char*, std::string, std::int32_t, const char*> rows[] = {
      {"defaults", TextFile("[Objects/Galaxy/Cells/4]"), 4, "none 5 1.500000 dust "},
      {"not named", TextFile("[Objects/Galaxy/Cells/4]"), 3, "none"},
      {"types of leaves do not count",
       TextFile("[Objects/Galaxy/Cells/0] Name=12 Count=2.9 Weight=1 Kind='2'"), 0, "12 2 1.000000 hole "},
      {"text that is no number", TextFile("[Objects/Galaxy/Cells/0] Count=x Weight=y Kind=-1"), 0,
       "none 0 0.000000 <error> "},
      {"the last of equal keys", TextFile("[Objects/Galaxy/Cells/0] Count=1 Name='a' Count=2"), 0,
       "a 2 1.500000 dust "},
      {"unknown keys and objects", TextFile("[Objects/Galaxy/Cells/0] Part=3 Colour=4 Count=1"), 0,
       "none 1 1.500000 dust "},
      {"a later branch of the same index begins anew",
       TextFile("[Objects/Galaxy/Cells/1] Count=1 [Objects/Galaxy/Cells/01] Name='b'"), 1,
       "b 5 1.500000 dust "},
      {"a branch that comes again goes on",
       TextFile("[Objects/Galaxy/Cells/1] Count=1 [Objects/Galaxy/Cells/2] Count=2 "
                "[Objects/Galaxy/Cells/1] Name='b'"),
       1, "b 1 1.500000 dust "},
      {"names convert as numbers do", TextFile("[Objects/Galaxy/Cells/x] Count=1"), 0,
       "none 1 1.500000 dust "},
      {"keys as paths", TextFile("[Objects/Galaxy/Cells] 5/Count=3 5\\Name='p'"), 5, "p 3 1.500000 dust "},
      {"a path as key of a cell", TextFile("[Objects/Galaxy/Cells/1] x/Count=3"), 1, "none 5 1.500000 dust "},
      {"the size may come last",
       SampleClasses() + Lines("[Objects/Galaxy/Cells/1] Count=3 [Objects/Galaxy] Width=2 Height=1"), 1,
       "none 3 1.500000 dust "},
      {"the classes may come last",
       Lines("[Objects/Galaxy] Width=2 Height=1 [Objects/Galaxy/Cells/1] Count=3") + SampleClasses(), 1,
       "none 3 1.500000 dust "}};
  for (const auto& [title, file, index, values] : rows) {
    SCOPED_TRACE(title);
    std::string errorText;
    const MapContents contents = LoadedByBothRoads(file, errorText);
    EXPECT_EQ(errorText, "");
    EXPECT_EQ(Cell(contents, index), values);
    EXPECT_EQ(Describe(Loaded(file, errorText)), Describe(contents));
  }
}

TEST(MapReader, TakesTheSizeFromTheFileOrTheMapClass) {
  struct Row {
    const char* title;
    std::string file;
    int width, height, records;
  };
  const Row rows[] = {
      {"no galaxy: the defaults", SampleClasses(), 10, 10, 0},
      {"cells outside are passed over",
       TextFile("[Objects/Galaxy/Cells/-1] [Objects/Galaxy/Cells/6] Count=1 [Objects/Galaxy/Cells/7] "
                "[Objects/Galaxy/Cells/99999999999] [Objects/Galaxy/Cells/5]"),
       3, 2, 1},
      {"any other name of the form is text", TextFile("[Version/Data] type='Binary'"), 3, 2, 0},
      {"no map class",
       Lines("[Classes/Cell] type='class' [Classes/Cell/a] type='int' [Objects/Galaxy] Width=4 "
             "Height=1 [Objects/Galaxy/Cells/3]"),
       4, 1, 1},
      {"a cell class of no bytes",
       Lines("[Classes/Map] type='class' [Classes/Cell] type='class' [Objects/Galaxy] Width=4 "
             "Height=1 [Objects/Galaxy/Cells/3]"),
       4, 1, 0},
      {"large and sparse",
       SampleClasses() + Lines("[Objects/Galaxy] Width=20000000 Height=1 [Objects/Galaxy/Cells/19999999]"),
       20000000, 1, 1}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.title);
    std::string errorText;
    const MapContents contents = LoadedByBothRoads(row.file, errorText);
    ASSERT_TRUE(contents.m_pGrid);
    EXPECT_EQ(contents.m_pGrid->Width(), row.width);
    EXPECT_EQ(contents.m_pGrid->Height(), row.height);
    EXPECT_EQ(contents.m_pGrid->Count(), row.records);
    EXPECT_EQ(errorText, contents.m_pMapClass ? "" : "Map definition not found.\n");
  }
}

TEST(MapReader, RefusesTextFilesWithALine) {
  const std::string bigBlocks = Lines("[Classes/Big] type='class'") + [] {
    std::string members;
    for (int i = 0; i < 1000; ++i) members += Lines(fmt::format("[Classes/Big/m{}] type='int'", i));
    return members;
  }();
  std::string manyBig = bigBlocks + Lines("[Classes/Map] type='class' [Classes/Cell] type='class'");
  for (int i = 0; i < 200; ++i)
    manyBig += Lines(fmt::format("[Classes/Cell/o{}] type='object' range='Big'", i));
  manyBig += Lines("[Objects/Galaxy] Width=1000 Height=1");
  for (int i = 0; i < 1000; ++i) manyBig += Lines(fmt::format("[Objects/Galaxy/Cells/{}]", i));
  const std::string manyBigLine = fmt::format(
      "Values of {0} cells, 800000 bytes each, are above the limit of {1} cells for a file of {2} bytes.\n",
      MaxLoadedCells(FileForm::Text, 800000, manyBig.size()) + 1,
      MaxLoadedCells(FileForm::Text, 800000, manyBig.size()), manyBig.size());
  const std::tuple<const char*, std::string, std::string> rows[] = {
      {"empty file", "", "Classes not found.\nMap definition not found.\nCell definition not found.\n"},
      {"no cell class", Lines("[Classes/Map] type='class' [Objects/Galaxy] Width=0"),
       "Cell definition not found.\n"},
      {"no size", SampleClasses() + Lines("[Objects/Galaxy]"),
       "Map width 0 is below 1.\nMap height 0 is below 1.\n"},
      {"no size, but cells", SampleClasses() + Lines("[Objects/Galaxy/Cells/0] Count=1"),
       "Map width 0 is below 1.\nMap height 0 is below 1.\n"},
      {"no map class and no galaxy", Lines("[Classes/Cell] type='class'"),
       "Map definition not found.\nMap width 0 is below 1.\nMap height 0 is below 1.\n"},
      {"too many cells", SampleClasses() + Lines("[Objects/Galaxy] Width=20000000 Height=6"),
       "Map size 20000000 x 6 = 120000000 cells is above the limit of 100000000 cells.\n"},
      {"cells too large for so small a file", manyBig, manyBigLine}};
  for (const auto& [title, file, reason] : rows) {
    SCOPED_TRACE(title);
    std::string errorText;
    EXPECT_FALSE(LoadedByBothRoads(file, errorText).m_pGrid);
    EXPECT_EQ(errorText, reason);
  }
}

/// A binary file of the sample classes, 2 x 2, with texts, and what its header says.
struct BinaryFile {
  std::string bytes;
  std::size_t data = 0, text = 0;

  BinaryFile() {
    MapContents contents = EmptySampleMap(2, 2);
    SetValue(contents, 0, "Name", "abc");
    SetValue(contents, 3, "Name", "last");
    bytes = SavedAs(contents, FileForm::Binary);
    data = Offset("Data=");
    text = Offset("Text=");
  }

  std::size_t Offset(std::string_view key) const {
    return std::stoul(bytes.substr(bytes.find(key) + key.size()));
  }

  /// The file with another little-endian number at a place of the data block.
  std::string WithNumber(std::size_t place, std::uint32_t number) const {
    std::string changed = bytes;
    std::string field;
    PutLittleEndian(field, number);
    return changed.replace(data + place, field.size(), field);
  }

  /// The file with another offset in its header, of as many digits.
  std::string WithOffset(std::string_view key, std::string_view digits) const {
    std::string changed = bytes;
    return changed.replace(changed.find(key) + key.size(), digits.size(), digits);
  }
};

TEST(MapReader, FindsTextsByTheirOffset) {
  const BinaryFile file;
  const std::pair<std::string, const char*> rows[] = {
      {file.bytes, "abc"},
      {file.WithNumber(12, 4), "none"},                      // another cell's
      {file.WithNumber(12, 6), "ne"},                        // the middle of a text
      {file.bytes.substr(0, file.bytes.size() - 1), "abc"},  // a last text without its zero
      {file.WithOffset("Text=", "000"), "[Version]"}};       // the text block anywhere before
  for (const auto& [bytes, firstName] : rows) {
    SCOPED_TRACE(firstName);
    std::string errorText;
    const MapContents contents = Loaded(bytes, errorText);
    EXPECT_EQ(errorText, "");
    ASSERT_TRUE(contents.m_pGrid);
    EXPECT_TRUE(Cell(contents, 0).starts_with(firstName)) << Cell(contents, 0);
  }
}

TEST(MapReader, RefusesBinaryFilesWithALine) {
  const BinaryFile file;
  const std::size_t size = file.bytes.size();
  const std::string noRoom = "Data block offset {} leaves no room for the size in a file of {} bytes.\n";
  const std::tuple<const char*, std::string, std::string> rows[] = {
      {"width 0", file.WithNumber(0, 0), "Map width 0 is below 1.\n"},
      {"negative height", file.WithNumber(4, 0xffffffff), "Map height -1 is below 1.\n"},
      {"another count", file.WithNumber(8, 3), "Cell count 3 is not 2 x 2 = 4.\n"},
      {"more cells than bytes", file.WithNumber(0, 200).replace(file.data + 8, 2, "\x90\x01"),
       fmt::format("The values of 400 cells end at {}, past the end of a file of {} bytes.\n",
                   file.data + 12 + 400 * 16, size)},
      {"cut within the values", file.bytes.substr(0, file.text - 1),
       fmt::format("The values of 4 cells end at {}, past the end of a file of {} bytes.\n", file.text,
                   file.text - 1)},
      {"a text at the end", file.WithNumber(12, static_cast<std::uint32_t>(size - file.text)),
       fmt::format("The text \"Name\" of cell 0 starts at {0}, outside a file of {0} bytes.\n", size)},
      {"a text far behind", file.WithNumber(28, 0xffffffff),
       fmt::format("The text \"Name\" of cell 1 starts at {}, outside a file of {} bytes.\n",
                   file.text + 0xffffffffU, size)},
      {"texts before the file", file.WithOffset("Text=", "-99"),
       fmt::format("The text \"Name\" of cell 0 starts at -99, outside a file of {} bytes.\n", size)},
      {"data before the file", file.WithOffset("Data=", "-99"), fmt::format(fmt::runtime(noRoom), -99, size)},
      {"data at the end", file.WithOffset("Data=", std::to_string(size - 11)),
       fmt::format(fmt::runtime(noRoom), size - 11, size)},
      {"data in the header", file.WithOffset("Data=", "000"),  // reads "[Version" as a size
       "Map width 1919243867 is above the limit of 20000000 cells a side.\n"
       "Map height 1852795251 is above the limit of 20000000 cells a side.\n"}};
  for (const auto& [title, bytes, reason] : rows) {
    SCOPED_TRACE(title);
    std::string errorText;
    EXPECT_FALSE(Loaded(bytes, errorText).m_pGrid);
    EXPECT_EQ(errorText, reason);
  }
}

// Without texts the last value ends with the file.
TEST(MapReader, TheDataBlockMayEndWithTheFile) {
  MapContents contents = ContentsOf(Lines(
      "[Classes/Map] type='class' [Classes/Cell] type='class' [Classes/Cell/a] type='int' range='0<7<9'"));
  MakeGrid(contents, 3, 1);
  const std::string bytes = SavedAs(contents, FileForm::Binary);
  std::string errorText;
  EXPECT_EQ(Saved(Loaded(bytes, errorText)), bytes);
  EXPECT_EQ(errorText, "");
  EXPECT_FALSE(Loaded(bytes.substr(0, bytes.size() - 1), errorText).m_pGrid);
  EXPECT_NE(errorText, "");
}

TEST(MapReader, ReadsFilesCutAnywhereOrRefusesThem) {
  for (const FileForm form : {FileForm::Text, FileForm::Binary}) {
    MapContents contents = SampleMap(3, 3, 5);
    const std::string bytes = SavedAs(contents, form);
    int loaded = 0;
    for (std::size_t length = 0; length < bytes.size(); ++length) {
      SCOPED_TRACE(fmt::format("form {}, {} bytes", NameOf(form), length));
      std::string errorText;
      loaded += LoadedByBothRoads(bytes.substr(0, length), errorText).m_pGrid ? 1 : 0;
    }
    EXPECT_GT(loaded, 0);  // a text form without its last cells; a binary form without its last zero
  }
}

/// Changes of the kind that a hand or a broken program makes, and that lead off the streamed road.
std::string Mutated(std::string bytes, std::mt19937& random) {
  constexpr std::string_view kBytes("\r\n/\\[]=\"09-. \t\0", 16);
  constexpr std::string_view kPieces[] = {
      "//",          "Cells/",   "[Objects/Galaxy/Cells/2]\r\n", "[]\r\n", "[Objects/Galaxy]\r\nWidth=2\r\n",
      "Count=7\r\n", "x/y=1\r\n"};
  const auto draw = [&random](std::size_t choices) { return random() % choices; };
  for (std::size_t changes = 1 + draw(4); changes > 0; --changes) {
    const std::size_t place = draw(bytes.size());
    const std::size_t length = std::min<std::size_t>(draw(3), bytes.size() - place);
    const std::size_t piece = draw(std::size(kBytes) + std::size(kPieces));
    bytes.replace(place, length,
                  piece < kBytes.size() ? kBytes.substr(piece, 1) : kPieces[piece - kBytes.size()]);
  }
  return bytes;
}

TEST(MapReader, BothRoadsAgreeOnDamagedFiles) {
  std::mt19937 random(20);
  int streamed = 0;
  for (std::uint32_t round = 0; round < 1500; ++round) {
    MapContents contents = SampleMap(3, 4, round % 50);
    const std::string bytes =
        Mutated(SavedAs(contents, round % 8 == 0 ? FileForm::Binary : FileForm::Text), random);
    SCOPED_TRACE(bytes);
    std::string errorText;
    LoadedByBothRoads(bytes, errorText);
    streamed += IsStreamed(bytes) ? 1 : 0;
    if (HasFailure()) break;
  }
  EXPECT_GT(streamed, 100);
  EXPECT_LT(streamed, 1400);
}

/// Input that only goes forward, as a pipe does.
class ForwardOnly : public std::stringbuf {
 public:
  using std::stringbuf::stringbuf;

 protected:
  pos_type seekoff(off_type, std::ios_base::seekdir, std::ios_base::openmode) override {
    return {off_type(-1)};
  }
  pos_type seekpos(pos_type, std::ios_base::openmode) override { return {off_type(-1)}; }
};

TEST(MapReader, ReadsInputThatCannotSeek) {
  for (const FileForm form : {FileForm::Text, FileForm::Binary}) {
    MapContents contents = SampleMap(40, 40, 3);
    const std::string bytes = SavedAs(contents, form);
    ForwardOnly pipe(bytes);
    NullFeedback feedback;
    std::string errorText;
    MapContents loaded;
    EXPECT_EQ(LoadMapFile(pipe, loaded, feedback, errorText), Outcome::Done);
    EXPECT_EQ(Saved(loaded), bytes);
    EXPECT_EQ(errorText, "");
  }
}

TEST(MapReader, WantOfMemoryGivesTheWholeMapOrNothing) {
  MapContents sample = SampleMap(20, 10, 3);
  const std::string text = SavedAs(sample, FileForm::Text);
  for (const std::string& bytes : {text, text + Lines("[Objects/Galaxy/Cells/7]"),  // takes the tree
                                   SavedAs(sample, FileForm::Binary)}) {
    std::string errorText;
    const std::string expected = Describe(Loaded(bytes, errorText));
    NullFeedback feedback;
    std::stringbuf file(bytes);
    MapContents contents;
    const auto load = [&] { return LoadMapFile(file, contents, feedback, errorText) == Outcome::Done; };
    EXPECT_GT(RefusalsOf(load,
                         [&](bool isDone) {
                           EXPECT_EQ(errorText,
                                     isDone ? "" : "There is not enough memory to open the map.\n");
                           EXPECT_EQ(contents.m_pGrid ? Describe(contents) : "", isDone ? expected : "");
                           contents = MapContents();
                           errorText.clear();
                         }),
              50);
  }
}

TEST(MapReader, ReportsEveryCellOnBothRoads) {
  const std::string file = TextFile(
      "[Objects/Galaxy/Cells/0] [Objects/Galaxy/Cells/3] Count=1 [Objects/Galaxy/Cells/6] "
      "[Objects/Galaxy/Cells/7]");
  const char* expected =
      "wait;text Loading file definitions...;text ;end wait;show;progress 0;text Loading map...;progress 0;"
      "progress 50;hide;text ;";
  for (const Road road : {Road::Streamed, Road::Tree}) {
    std::stringbuf input(file);
    FeedbackLog log;
    std::string errorText;
    EXPECT_TRUE(ReadMap(input, road, log, errorText));
    std::string events;
    for (const std::string& event : log.Events()) events += event + ';';
    EXPECT_EQ(events, expected);
  }
}

}  // namespace
}  // namespace quorvel
