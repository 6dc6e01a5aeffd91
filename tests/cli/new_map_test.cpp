#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/samples.h"

namespace quorvel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string Size(const std::string& dump) {
  const std::size_t at = dump.find("width ");
  return dump.substr(at, dump.find('\n', dump.find("height ")) - at);
}

/// Runs `new` and gives the size lines of the map's dump.
std::string NewSize(const TempFolder& folder, std::vector<std::string> options) {
  const std::string out = folder / "size.vrl";
  options.insert(options.begin(), "new");
  options.push_back(out);
  const ToolRun run = RunMapTool(options);
  return run.code == 0 ? Size(RunMapTool({"dump", "map", out}).out) : run.err;
}

TEST(New, OptionsWinOverSettingsAndSettingsOverDefinitions) {
  const TempFolder folder;
  const std::string types = folder.Write("types.txt", TypesText());
  const std::string other = folder.Write("other.txt", Replaced(TypesText(), "1<3<1000", "1<8<1000"));
  const std::string plain = folder.Write("plain.txt", TypesText() + "[Fill]\r\nSeed=1\r\n");
  const std::string sized =
      folder.Write("sized.txt", TypesText() + "[Fill]\r\nWidth=4\r\nHeight=5000\r\nSeed=1\r\n");
  const std::string tiny = folder.Write("tiny.txt", Replaced(TypesText(), "1<3<1000", "1<0<1000"));

  EXPECT_EQ(NewSize(folder, {"--definitions", types}), "width 3\nheight 2");
  EXPECT_EQ(NewSize(folder, {"--definitions", tiny}),
            "width 1\nheight 2");  // clamped as the wizard's Finish does
  EXPECT_EQ(NewSize(folder, {"--definitions", types, "--size", "1000x1"}), "width 1000\nheight 1");
  EXPECT_EQ(NewSize(folder, {"--settings", plain}), "width 3\nheight 2");
  EXPECT_EQ(NewSize(folder, {"--settings", plain, "--definitions", other}), "width 8\nheight 2");
  EXPECT_EQ(NewSize(folder, {"--settings", sized}), "width 4\nheight 1000");
  EXPECT_EQ(NewSize(folder, {"--settings", sized, "--size", "2x2"}), "width 2\nheight 2");
}

TEST(New, WithoutDefinitionsTakesTheEditorsOwn) {
  const TempFolder folder;
  folder.Write("Definitions.txt", TypesText());
  const std::string types = folder.Write("elsewhere.txt", Replaced(TypesText(), "1<3<1000", "1<8<1000"));
  const std::string home = "HOME=" + folder.Path();
  RunSettings settings{
      .input = {},
      .outPath = {},
      .folder = folder.Path(),
      .environment = {home, "XDG_CONFIG_HOME=" + (folder / "none"), "XDG_CONFIG_DIRS=" + (folder / "none")}};
  ASSERT_EQ(RunMapTool({"new", "out.vrl"}, settings).code, 0);
  EXPECT_EQ(Size(RunMapTool({"dump", "map", folder / "out.vrl"}).out), "width 3\nheight 2");

  std::filesystem::create_directories(folder / "config/Kelmsor");
  folder.Write("config/Kelmsor/Quorvel.conf",
               "[Software\\Kelmsor\\Quorvel\\Definitions]\nDefaultFile=" + types + "\n");
  settings.environment[1] = "XDG_CONFIG_HOME=" + (folder / "config");
  ASSERT_EQ(RunMapTool({"new", "out.vrl"}, settings).code, 0);
  EXPECT_EQ(Size(RunMapTool({"dump", "map", folder / "out.vrl"}).out), "width 8\nheight 2");

  std::filesystem::remove(types);
  const ToolRun run = RunMapTool({"new", "out.vrl"}, settings);
  EXPECT_EQ(run.code, 2);
  EXPECT_THAT(run.err, StartsWith("quorvel-map: " + types + ": "));
}

TEST(New, EmptyMapIsWrittenToTheLetter) {
  const TempFolder folder;
  const std::string types = folder.Write("types.txt", TypesText());
  const std::string empty = std::string(kVersion) + kTypes +
                            "[Declare/Galaxy]\ntype=\"Map\"\n[Objects/Galaxy]\nWidth=3\nHeight=2\n"
                            "[Objects/Galaxy/Cells]\n";
  const ToolRun run = RunMapTool({"new", "--definitions", types, "-"});
  EXPECT_EQ(run.out, WithCrLf(empty));
  EXPECT_EQ(run.err, "");  // no seed was needed
  EXPECT_EQ(RunMapTool({"new", "--definitions", types, "--form", "binary", folder / "b.vrl"}).code, 0);
  EXPECT_THAT(RunMapTool({"dump", "map", folder / "b.vrl"}).out,
              StartsWith("form binary\nwidth 3\nheight 2\nrecord 0 "));
}

TEST(New, RefusesBadSettingsAndWritesNothing) {
  const std::pair<std::string, const char*> rows[] = {
      {TypesText(), "Fill"},
      {TypesText() + "[Fill/Global/0]\r\nmember=\"ghost\"\r\n", "ghost"},
      {Replaced(TypesText(), "[Classes/Map]", "[Classes/Chart]") + "[Fill]\r\nSeed=1\r\n",
       "Map definition not found."}};
  for (const auto& [text, reason] : rows) {
    SCOPED_TRACE(reason);
    const TempFolder folder;
    const std::string settings = folder.Write("settings.txt", text), out = folder.Write("out.vrl", "old");
    const ToolRun run = RunMapTool({"new", "--settings", settings, out});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, StartsWith("quorvel-map: " + settings + ": "));
    EXPECT_THAT(run.err, HasSubstr(reason));
    EXPECT_EQ(ReadBytes(out), "old");
    const ToolRun dump = RunMapTool({"dump", "fill", settings});
    EXPECT_EQ(dump.code, 1);
    EXPECT_THAT(dump.out, StartsWith("error "));
    EXPECT_THAT(dump.out, HasSubstr("width none\n"));
    EXPECT_EQ(RunMapTool({"dump", "fill-log", settings}).code, 1);
  }
}

// One value for every cell, the seed in the settings: three cells, whose updates come in index order.
constexpr char kOneValue[] = R"([Fill]
Width=3
Height=1
Seed=4294967295
[Fill/Global/0]
member="v"
[Fill/Global/0/Values/a]
value=8
share=100
)";

TEST(DumpFill, PrintsTheFilledMapOrEveryEventInOrder) {
  const std::string settings = WithCrLf(std::string(kTypes) + kOneValue);
  const ToolRun run = RunOn(settings, {"dump", "fill", "-"});
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.out,
            "form text\nwidth 3\nheight 1\nrecord 0 6e6f206f6e65 8 3fc00000 0 -\n"
            "record 1 6e6f206f6e65 8 3fc00000 0 -\nrecord 2 6e6f206f6e65 8 3fc00000 0 -\n");
  EXPECT_EQ(run.err, "");
  const std::string log =
      "show\nprogress 0\n"
      "text Filling Map (cell 0/3)\nprogress 0\nupdate 0\n"
      "text Filling Map (cell 1/3)\nprogress 33\nupdate 1\n"
      "text Filling Map (cell 2/3)\nprogress 66\nupdate 2\n"
      "hide\ntext\n";
  EXPECT_EQ(RunOn(settings, {"dump", "fill-log", "-"}).out, log);
}

TEST(New, ASeedFromTheClockIsToldAndRepeatsTheMap) {
  const TempFolder folder;
  const std::string settings =
      folder.Write("s.txt", Replaced(WithCrLf(std::string(kTypes) + kOneValue), "Seed=4294967295\r\n", "") +
                                "[Fill/Global/0]\r\ncoverage=50\r\n");
  const std::string one = folder / "one.vrl", two = folder / "two.vrl";
  const ToolRun run = RunMapTool({"new", "--settings", settings, "--size", "40x40", one});
  ASSERT_EQ(run.code, 0);
  const std::size_t at = run.err.find("seed ");
  ASSERT_NE(at, run.err.npos) << run.err;
  const std::string seed = run.err.substr(at + 5, run.err.find(' ', at + 5) - at - 5);
  ASSERT_EQ(RunMapTool({"new", "--settings", settings, "--size", "40x40", "--seed", seed, two}).err, "");
  EXPECT_EQ(ReadBytes(two), ReadBytes(one));
}

}  // namespace
}  // namespace quorvel
