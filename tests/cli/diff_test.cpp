#include <gtest/gtest.h>

#include "tests/cli/samples.h"

namespace quorvel {
namespace {

TEST(Diff, ExitCodeTellsEqualFromDifferentFromTrouble) {
  const TempFolder folder;
  const std::string map = folder.Write("map.vrl", MapText());
  const std::string changed = folder.Write("changed.vrl", Replaced(MapText(), "v=7", "v=8"));
  const std::string wider = folder.Write("wider.vrl", Replaced(MapText(), "Width=3", "Width=4"));
  const std::string refused = folder.Write("refused.vrl", Replaced(MapText(), "Width=3", "Width=0"));
  const std::string erring =
      folder.Write("erring.vrl", Replaced(MapText(), "[Classes/Map]", "[Classes/Chart]"));
  const std::string missing = folder / "missing.vrl";
  const struct {
    std::string a, b;
    int code;
    const char* out;
  } rows[] = {
      {map, map, 0, ""},
      {map, changed, 1, "0(0:0) v: 7 -> 8\n"},
      // Cell 4 is (1, 1) in one map and (0, 1) in the other; both hold defaults.
      {map, wider, 1, "size: 3x2 -> 4x2\n"},
      {map, refused, 2, ""},
      {erring, map, 2, ""},
      {map, missing, 2, ""},
      {missing, map, 2, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.a + " " + row.b);
    const ToolRun run = RunMapTool({"diff", row.a, row.b});
    EXPECT_EQ(run.code, row.code);
    EXPECT_EQ(run.out, row.out);
    EXPECT_EQ(run.err.empty(), row.code != 2);
  }
}

}  // namespace
}  // namespace quorvel
