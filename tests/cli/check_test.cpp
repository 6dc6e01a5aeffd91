#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/samples.h"

namespace quorvel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Check, IsSilentWhenAllIsWellAndNamesFilesAndLines) {
  const TempFolder folder;
  const std::string sound = folder.Write("sound.vrl", MapText());
  const std::string binary = folder / "binary.vrl";
  ASSERT_EQ(RunMapTool({"convert", "--form", "binary", sound, binary}).code, 0);
  const ToolRun silent = RunMapTool({"check", sound, binary, folder.Write("types.txt", TypesText())});
  EXPECT_EQ(silent.code, 0);
  EXPECT_EQ(silent.out + silent.err, "");

  const std::string bad =
      folder.Write("bad.vrl", Replaced(Replaced(MapText(), "v=7", "v=70"), "name=\"a\"", "n\nm\x7f=1"));
  const ToolRun run = RunMapTool({"check", bad, sound});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, bad + ": 50: cell 0(0:0): no member is named n%0Am%7F\n" + bad +
                         ": 51: cell 0(0:0): v is 70, outside 0..9\n");

  // The highest code wins, and the files after a missing one are still looked at.
  const ToolRun worse = RunMapTool({"check", folder / "missing.vrl", bad});
  EXPECT_EQ(worse.code, 2);
  EXPECT_THAT(worse.err, StartsWith("quorvel-map: " + (folder / "missing.vrl") + ": "));
  EXPECT_THAT(worse.out, StartsWith(bad + ": "));

  const ToolRun odd = RunMapTool({"check", folder.Write("odd\x1b\n.vrl", ReadBytes(bad))});
  EXPECT_THAT(odd.out, StartsWith(folder / "odd%1B%0A.vrl: 50: "));

  const ToolRun refused = RunOn(Replaced(MapText(), "Width=3", "Width=0"), {"check", "-"});
  EXPECT_EQ(refused.code, 1);
  EXPECT_THAT(refused.out, StartsWith("-: "));
}

TEST(Info, TellsWhatAMapHolds) {
  const ToolRun run = RunOn(MapText(), {"info", "-"});
  EXPECT_EQ(run.code, 0);
  for (const char* fact :
       {"text", "3 x 2, 6 cells", "2, values of 20 bytes each, 40 bytes in all", "Star, list of 2 items",
        "Cell, class of 5 members", "2 different texts, 0 cells without", "v, int: 5 to 7",
        "f, float: 0.5 to 1.5", "star, index: Red 1, Blue sky 1", "base, object"}) {
    EXPECT_THAT(run.out, HasSubstr(fact));
  }
  EXPECT_EQ(RunOn(Replaced(MapText(), "Width=3", "Width=0"), {"info", "-"}).code, 1);
}

}  // namespace
}  // namespace quorvel
