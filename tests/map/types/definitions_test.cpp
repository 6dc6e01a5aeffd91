#include "map/types/definitions.h"

#include <sstream>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

MapContents Build(const std::string& file, std::string& errorText) {
  MapContents contents;
  std::stringbuf input(file);
  DataBranch tree({});
  NullFeedback feedback;
  const bool loaded = LoadDefinitions(input, tree, contents, feedback, errorText);
  EXPECT_EQ(loaded, errorText.empty());
  return contents;
}

TEST(Definitions, BuildWhatEntriesDeclare) {
  struct Row {
    const char* title;
    std::string entries, types;
  };
  const Row rows[] = {
      {"members of every kind",
       Lines("[Classes/L] type='stars' 0='a' 1='b' [Classes/C] type='CLASS' [Classes/C/s] "
             "type='String' range='2<3' [Classes/C/i] type='int' range='x:1<5<9' [Classes/C/f] "
             "type='float' range='-1.5<2' [Classes/C/x] type='index' range='L' [Classes/C/o] "
             "type='object' range='C'"),
       "list L: a b |\nclass C: s 0 \"2<3\" -; i 1 1,9,5 -; f 2 -1.5,2,0 -; x 3 0,1,0 L; o 4 - C;\n"},
      {"a missing range is empty, also after a member that has one",
       Lines("[Classes/C] type='class' [Classes/C/a] type='int' range='1<2<3' [Classes/C/b] "
             "type='int' [Classes/C/s] type='string'"),
       "class C: a 1 1,3,2 -; b 1 0,0,0 -; s 0 \"\" -;\n"},
      {"words must be quoted, entries and members without a sound one are skipped",
       Lines("[Classes/A] type=class [Classes/B] 0='x' [Classes/D] type='class' range=5 [Classes/C] "
             "type='class' [Classes/C/a] type=int [Classes/C/b] type='int' range=1<1000 [Classes/C/c] "
             "type='double' [Classes/C/d] range='1' [Classes/C/e] type='int'"),
       "class C: e 1 0,0,0 -;\n"},
      {"the word list declares nothing", Lines("[Classes/L] type='List' 0='x'"), ""},
      {"items begin with the leaf 0 and take all that follow",
       Lines("[Classes/L] before='no' type='names' 0='a' 7=5 range='last'"), "list L: a 5 last |\n"},
      {"colours in every base of strtoul",
       Lines("[Classes/L] type='names' 0='a' [Classes/L/UI/Color] x=1 0=0xFF00FF 1=010 2='12x' 3=none"),
       "list L: a | 16711935 8 12 0\n"},
      {"references are found among earlier types only, each sort for itself",
       Lines("[Classes/C] type='class' [Classes/C/x] type='index' range='L' [Classes/C/o] "
             "type='object' range='L' [Classes/L] type='names' [Classes/D] type='class' [Classes/D/x] "
             "type='index' range='L' [Classes/D/y] type='index' range='C'"),
       "class C: x 3 0,-1,0 -; o 4 - -;\nlist L: |\nclass D: x 3 0,-1,0 L; y 3 0,-1,0 -;\n"},
      {"leaves directly below Classes are no entries", Lines("[Classes] type='class'"), ""}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.title);
    std::string errorText;
    EXPECT_EQ(DescribeTypes(*Build(row.entries, errorText).m_pTypes), row.types);
  }
}

TEST(Definitions, SayWhichClassesAreMissing) {
  struct Row {
    const char* title;
    std::string file;
    const char* errorText;
  };
  const Row rows[] = {
      {"nothing", "", "Classes not found.\nMap definition not found.\nCell definition not found.\n"},
      {"no class", Lines("[Classes]"), "Map definition not found.\nCell definition not found.\n"},
      {"a list is no class", Lines("[Classes/Map] type='x' [Classes/Cell] type='class'"),
       "Map definition not found.\n"},
      {"names in their own case", Lines("[Classes/Map] type='class' [Classes/cell] type='class'"),
       "Cell definition not found.\n"},
      {"all there", SampleClasses(), ""}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.title);
    std::string errorText;
    Build(row.file, errorText);
    EXPECT_EQ(errorText, row.errorText);
  }
}

TEST(Definitions, ClassesThatDoubleEachOtherAreMeasuredAtOnce) {
  std::string file = Lines("[Classes/c0] type='class' [Classes/c0/x] type='int'");
  for (int i = 1; i <= 40; ++i) {
    file +=
        Lines(fmt::format("[Classes/c{0}] type='class' [Classes/c{0}/a] type='object' range='c{1}' "
                          "[Classes/c{0}/b] type='object' range='c{1}'",
                          i, i - 1));
  }
  file += Lines(
      "[Classes/Map] type='class' [Classes/Cell] type='class' [Classes/Cell/o] type='object' "
      "range='c40'");
  std::string errorText;
  const MapContents contents = Build(file, errorText);
  EXPECT_EQ(errorText, "");
  EXPECT_FALSE(CheckMap(contents, 1, 1, errorText));
  EXPECT_EQ(errorText, "Values of one cell take 2147483644 bytes, above the limit of 1048576 bytes.\n");
}

}  // namespace
}  // namespace quorvel
