#include "map/types/definitions.h"

#include <sstream>

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
  const std::tuple<const char*, std::string, std::string> rows[] = {
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
  for (const auto& [title, entries, types] : rows) {
    std::string errorText;
    EXPECT_EQ(DescribeTypes(*Build(entries, errorText).m_pTypes), types) << title;
  }
}

TEST(Definitions, SayWhichClassesAreMissing) {
  for (const auto& [words, expected] :
       {std::pair{"", "Classes not found.\nMap definition not found.\nCell definition not found.\n"},
        {"[Classes]", "Map definition not found.\nCell definition not found.\n"},
        {"[Classes/Map] type='x' [Classes/Cell] type='class'", "Map definition not found.\n"},  // a list
        {"[Classes/Map] type='class' [Classes/cell] type='class'", "Cell definition not found.\n"}}) {
    std::string errorText;
    Build(Lines(words), errorText);
    EXPECT_EQ(errorText, expected) << words;
  }
}

}  // namespace
}  // namespace quorvel
