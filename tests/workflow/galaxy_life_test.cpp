#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "places.h"
#include "tests/cli/tool_run.h"

namespace quorvel {
namespace {

using testing::HasSubstr;

const char* const kSettings[] = {"cradle.txt", "scattered-stars.txt", "rival-empires.txt", "whole-galaxy.txt",
                                 "spiral.txt"};

std::string SettingsPath(const std::string& name) {
  return QUORVEL_SOURCE_DIR "/share/settings/" + name;
}

int RunSilently(const std::vector<std::string>& arguments) {
  const ToolRun run = RunMapTool(arguments);
  EXPECT_EQ(run.out, "") << testing::PrintToString(arguments);
  EXPECT_EQ(run.err, "") << testing::PrintToString(arguments);
  return run.code;
}

// One map through all commands, as a script would do it: what is made is sound, keeps its values in either
// form, and from the first binary form on every conversion gives the same bytes.
TEST(GalaxyLife, AMapKeepsItsValuesThroughEveryForm) {
  for (const char* name : kSettings) {
    SCOPED_TRACE(name);
    const TempFolder folder;
    const std::string made = folder / "made.vrl", binary = folder / "binary.vrl", text = folder / "text.vrl";
    ASSERT_EQ(RunSilently({"new", "--settings", SettingsPath(name), "--seed", "11", "--size", "30x20", made}),
              0);
    EXPECT_EQ(RunSilently({"check", made}), 0);
    ASSERT_EQ(RunSilently({"convert", "--form", "binary", made, binary}), 0);
    EXPECT_EQ(RunSilently({"check", binary}), 0);
    EXPECT_EQ(RunSilently({"diff", made, binary}), 0);
    ASSERT_EQ(RunSilently({"convert", "--form", "text", binary, text}), 0);
    EXPECT_EQ(RunSilently({"check", text}), 0);
    EXPECT_EQ(RunSilently({"diff", made, text}), 0);

    const std::string again = folder / "again.vrl";
    ASSERT_EQ(RunSilently({"convert", "--form", "binary", text, again}), 0);
    EXPECT_EQ(ReadBytes(again), ReadBytes(binary));
    ASSERT_EQ(RunSilently({"convert", "--form", "text", again, again}), 0);
    EXPECT_EQ(ReadBytes(again), ReadBytes(text));
    ASSERT_EQ(RunSilently({"rewrite", text, again}), 0);
    EXPECT_EQ(ReadBytes(again), ReadBytes(text));
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"again.vrl", "binary.vrl", "made.vrl", "text.vrl"}));
  }
}

TEST(GalaxyLife, TheSameSeedGivesTheSameBytesAndTheDumpOfTheFillIsTheMap) {
  const TempFolder folder;
  const std::string settings = SettingsPath("whole-galaxy.txt");
  const std::string one = folder / "one.vrl", two = folder / "two.vrl", other = folder / "other.vrl";
  ASSERT_EQ(RunSilently({"new", "--settings", settings, "--seed", "1", one}), 0);
  ASSERT_EQ(RunSilently({"new", "--settings", settings, "--seed", "1", two}), 0);
  ASSERT_EQ(RunSilently({"new", "--settings", settings, "--seed", "2", other}), 0);
  EXPECT_EQ(ReadBytes(two), ReadBytes(one));
  EXPECT_EQ(RunMapTool({"diff", one, other}).code, 1);

  const std::string fixed = folder / "fixed.vrl";
  ASSERT_EQ(RunSilently({"new", "--settings", settings, fixed}), 0);  // with the settings' own seed
  EXPECT_EQ(RunMapTool({"dump", "fill", settings}).out, RunMapTool({"dump", "map", fixed}).out);
}

TEST(GalaxyLife, EverySettingsFileAndTheDefinitionsAreSound) {
  EXPECT_EQ(RunSilently({"check", QUORVEL_SOURCE_DIR "/share/Definitions.txt"}), 0);
  for (const char* name : kSettings) EXPECT_EQ(RunSilently({"check", SettingsPath(name)}), 0) << name;
}

// An edit of one value by hand, found by diff, refused by nobody, and named by check when it leaves its
// range.
TEST(GalaxyLife, AnEditByHandIsFoundAgain) {
  const TempFolder folder;
  const std::string made = folder / "made.vrl";
  ASSERT_EQ(RunSilently({"new", "--settings", SettingsPath("rival-empires.txt"), "--seed", "5", made}), 0);
  std::string text = ReadBytes(made);
  const std::size_t cell = text.find("[Objects/Galaxy/Cells/"), value = text.find("Planets=0", cell);
  ASSERT_NE(value, text.npos);
  const std::string edited = folder.Write("edited.vrl", text.replace(value, 9, "Planets=99"));
  const ToolRun diff = RunMapTool({"diff", made, edited});
  EXPECT_EQ(diff.code, 1);
  EXPECT_THAT(diff.out, HasSubstr(" Planets: 0 -> 99\n"));
  const ToolRun check = RunMapTool({"check", edited});
  EXPECT_EQ(check.code, 1);
  EXPECT_THAT(check.out, HasSubstr(": Planets is 99, outside 0..12\n"));
}

}  // namespace
}  // namespace quorvel
