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
  const std::tuple<std::string, std::string, int, const char*> rows[] = {
      {map, map, 0, ""},
      {map, changed, 1, "0(0:0) v: 7 -> 8\n"},
      // Cell 4 is (1, 1) in one map and (0, 1) in the other; both hold defaults.
      {map, wider, 1, "size: 3x2 -> 4x2\n"},
      {map, refused, 2, ""},
      {erring, map, 2, ""},
      {map, missing, 2, ""},
      {missing, map, 2, ""},
  };
  for (const auto& [a, b, code, out] : rows) {
    SCOPED_TRACE(a + " " + b);
    const ToolRun run = RunMapTool({"diff", a, b});
    EXPECT_EQ(run.code, code);
    EXPECT_EQ(run.out, out);
    EXPECT_EQ(run.err.empty(), code != 2);
  }
}

}  // namespace
}  // namespace quorvel
