#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/samples.h"

namespace quorvel {
namespace {

using testing::StartsWith;

constexpr char kTypeLines[] =
    "list Star 2 2\n"
    "item 526564\n"
    "item 426c756520736b79\n"
    "value 16711680\n"
    "value 255\n"
    "class Base 4\n"
    "member 0 crew int 0,99,4 -\n"
    "class Map 8\n"
    "member 0 Width int 1,1000,3 -\n"
    "member 4 Height int 1,1000,2 -\n"
    "class Cell 20\n"
    "member 0 name string 6e6f206f6e65 -\n"
    "member 4 v int 0,9,5 -\n"
    "member 8 f float 00000000,40000000,3fc00000 -\n"
    "member 12 star index 0,1,0 Star\n"
    "member 16 base object - Base\n";

struct DumpRow {
  const char* what;
  std::string input;
  int code;
  std::string lines;
};

TEST(DumpDefs, PrintsTypesAndLimits) {
  const std::string types = kTypes;
  const DumpRow rows[] = {
      {"a definitions file", types, 0, std::string(kTypeLines) + "limits 1 1 1 1000 1000 3 2\n"},
      {"no types at all", "a=1\n", 1,
       "error Classes not found.\nerror Map definition not found.\nerror Cell definition not found.\n"
       "limits 1 - - - - - -\n"},
      {"types that come too late, or never",
       "[Classes/Cell]\ntype=\"class\"\n[Classes/Cell/i]\ntype=\"index\"\nrange=\"Late\"\n"
       "[Classes/Cell/o]\ntype=\"object\"\nrange=\"Never\"\n[Classes/Cell/"
       "self]\ntype=\"object\"\nrange=\"Cell\"\n"
       "[Classes/Late]\ntype=\"names\"\n0=\"x\"\n",
       1,
       "error Map definition not found.\nclass Cell 4\nmember 0 i index 0,-1,0 -\nmember 4 o object - -\n"
       "member 4 self object - Cell\nlist Late 1 0\nitem 78\nlimits 1 - - - - - -\n"},
      {"names and values at the edge",
       "[Classes/a b]\ntype=\"names\"\n0=\"\"\n[Classes/a b/UI/Color]\n0=4294967295\n"
       "[Classes/Map]\ntype=\"class\"\n[Classes/Cell]\ntype=\"class\"\n[Classes/Cell/m%]\ntype=\"string\"\n",
       0,
       "list a%20b 1 1\nitem -\nvalue 4294967295\nclass Map 0\nclass Cell 4\nmember 0 m%25 string - -\n"
       "limits 0 - - - - - -\n"},
  };
  for (const DumpRow& row : rows) {
    SCOPED_TRACE(row.what);
    const ToolRun run = RunOn(WithCrLf(row.input), {"dump", "defs", "-"});
    EXPECT_EQ(run.code, row.code);
    EXPECT_EQ(run.out, row.lines);
    EXPECT_EQ(run.err.empty(), row.code == 0);
  }
  EXPECT_EQ(RunOn(MapText(), {"dump", "defs", "-"}).out,
            std::string(kTypeLines) + "limits 1 1 1 1000 1000 3 2\n");
}

TEST(DumpMap, PrintsWhatCouldBeLoaded) {
  const std::string records = "record 0 61 7 3f000000 1 -\nrecord 4 6e6f206f6e65 5 3fc00000 0 -\n";
  const std::string map = MapText();
  const DumpRow rows[] = {
      {"a map", map, 0, "form text\nwidth 3\nheight 2\n" + records},
      {"a definitions file is an empty map of the default size", TypesText(), 0,
       "form text\nwidth 3\nheight 2\n"},
      {"no class Map, but a size",
       Replaced(map, "[Classes/Map]\r\ntype=\"class\"", "[Classes/Map]\r\ntype=\"x\""), 1,
       "error Map definition not found.\nform text\nwidth 3\nheight 2\n" + records},
      {"no class Cell", Replaced(map, "[Classes/Cell]\r\ntype=\"class\"", "[Classes/Cell]\r\ntype=\"x\""), 1,
       "error Cell definition not found.\nform text\nwidth none\nheight none\n"},
      {"values are read as their kind reads them",
       Replaced(map, "v=7\r\nf=0.500000\r\nstar=1", "v=2.9\r\nf=nan\r\nstar=-1"), 0,
       "form text\nwidth 3\nheight 2\nrecord 0 61 2 7fc00000 -1 -\nrecord 4 6e6f206f6e65 5 3fc00000 0 -\n"},
  };
  for (const DumpRow& row : rows) {
    SCOPED_TRACE(row.what);
    const ToolRun run = RunOn(row.input, {"dump", "map", "-"});
    EXPECT_EQ(run.code, row.code);
    EXPECT_EQ(run.out, row.lines);
    EXPECT_EQ(run.err.empty(), row.code == 0);
  }
}

// The journey of a whole map takes the further conversions.
TEST(Convert, GivesTheOtherFormOfTheSameMap) {
  EXPECT_EQ(RunOn(MapText(), {"convert", "--form", "text", "-", "-"}).out, MapText());
  const std::string binary = RunOn(MapText(), {"convert", "--form", "binary", "-", "-"}).out;
  const std::string standard = " 6e6f206f6e65 5 3fc00000 0 -\n";
  EXPECT_EQ(RunOn(binary, {"dump", "map", "-"}).out,
            "form binary\nwidth 3\nheight 2\nrecord 0 61 7 3f000000 1 -\nrecord 1" + standard + "record 2" +
                standard + "record 3" + standard + "record 4" + standard + "record 5" + standard);
}

TEST(Convert, RefusesWhatHasErrorsAndKeepsTheOutput) {
  const TempFolder folder;
  const std::string out = folder.Write("out.vrl", "old");
  for (const auto& [from, to] : {std::pair{"[Classes/Map]\r\ntype=\"class\"", "[Classes/Map]\r\ntype=\"x\""},
                                 std::pair{"Width=3", "Width=0"}}) {
    SCOPED_TRACE(to);
    const ToolRun run = RunOn(Replaced(MapText(), from, to), {"convert", "--form", "binary", "-", out});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, StartsWith("quorvel-map: -: "));
    EXPECT_EQ(ReadBytes(out), "old");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.vrl"});
  }
}

}  // namespace
}  // namespace quorvel
