#include <iterator>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "places.h"
#include "tests/cli/tool_run.h"

namespace quorvel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::vector<std::string> Words(const std::string& line) {
  std::istringstream words(line);
  return {std::istream_iterator<std::string>(words), {}};
}

TEST(Usage, WrongArgumentsAreTroubleOnStandardError) {
  const char* const kFiles = " in.vrl out.png";
  std::vector<std::string> rows = {
      "--unknown", "new", "convert in.vrl out.vrl", "convert --form text in.vrl", "rewrite in.gdf",
      "rewrite in.gdf out.gdf more.gdf", "info", "check", "diff a.vrl", "render in.vrl",
      // neither picture nor document
      "render in.vrl out.gif", "dump in.vrl", "dump trees in.vrl", "dump tree",
      // standard input can be read only once
      "new --definitions - --settings - out.vrl", "render --filter - - out.png", "check - a.vrl -"};
  // Sides are 1 to 1000, and 4294967297 would be 1 in 32 bits.
  for (const char* size : {"10", "10x", "0x10", "10x1001", "-3x4", "4294967297x1", "3x4x5"})
    rows.push_back(std::string("new --size ") + size + " out.vrl");
  for (const char* seed : {"4294967296", "-1", "7a"})
    rows.push_back(std::string("new --seed ") + seed + " out.vrl");
  for (const char* size : {"9", "101", "abc"})
    rows.push_back(std::string("render --cell-size ") + size + kFiles);
  for (const char* options : {"--cells 1,2,3", "--cells 1,2,3,x", "--ground grey", "--fit 100", "--fit 0x10",
                              "--fit 10x10x10", "--fit 10x10 --cell-size 20"})
    rows.push_back(std::string("render ") + options + kFiles);
  for (const char* options : {"--paper A5", "--paper 20x300mm", "--pages 2x0", "--cell-mm 0",
                              "--cell-mm 8 --fit-page", "--fit-page --fit 10x10"})
    rows.push_back(std::string("render ") + options + " in.vrl out.pdf");
  rows.push_back("render --paper A4 in.vrl out.png");
  for (const std::string& line : rows) {
    SCOPED_TRACE(line);
    const ToolRun run = RunMapTool(Words(line));
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, StartsWith("quorvel-map: "));
  }
}

TEST(Usage, WrongArgumentsAreNamed) {
  const struct {
    std::vector<std::string> arguments;
    const char* text;
  } rows[] = {
      {{}, "a command is missing; the commands are new, convert, rewrite, info, check, diff, render, dump\n"},
      {{"draw", "a.vrl"}, "there is no command draw; the commands are new, convert"},
      {{"new", "--form", "Text", "out.vrl"}, "Text is no file form; there are text and binary\n"},
      {{"dr\x1b[2J\n", "a.vrl"}, "quorvel-map: there is no command dr%1B[2J%0A; the commands are new"},
      {{"info", "a.vrl", "b\x9b\n"}, "b%9B%0A\n"},
      {{"info", "mis\nsing\xc2\x9b"}, "quorvel-map: mis%0Asing%C2%9B: "},
      {{"new", "--size", "10x1001", "out.vrl"}, "--size: 1001 is not in 1 to 1000\n"},
      {{"new", "--size", "3x4x5", "out.vrl"}, "--size: 3x4x5 is not WxH, columns and rows\n"},
      {{"new", "--seed", "-1", "out.vrl"}, "--seed: -1 is not in 0 to 4294967295\n"},
      {{"render", "--cell-size", "9", "a.vrl", "out.png"}, "--cell-size: 9 is not in 10 to 100\n"},
      {{"render", "--cells", "0,0,x,1", "a.vrl", "out.png"}, "--cells: x is not in 0 to 19999999\n"},
      {{"diff", "-", "-"}, "standard input can be read only once\n"},
      {{"render", "--fill", "", "in.vrl", "out.png"}, "the empty name is no index property\n"},
  };
  for (const auto& row : rows) {
    const ToolRun run = RunMapTool(row.arguments);
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err, HasSubstr(row.text));
  }
}

TEST(Usage, EndlessZerosAreNoMap) {
  RunSettings small;
  small.memoryBytes = std::size_t{512} << 20;
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"info", "/dev/zero"},
                                                    {"check", "/dev/zero"},
                                                    {"dump", "defs", "/dev/zero"}}) {
    SCOPED_TRACE(arguments[0]);
    EXPECT_EQ(RunMapTool(arguments, small).code, 1);
  }
}

TEST(Usage, HelpAndVersionGoToStandardOutput) {
  EXPECT_EQ(RunMapTool({"--version"}).out, "quorvel-map 0.0.0.3\n");
  const ToolRun help = RunMapTool({"--help"});
  EXPECT_EQ(help.code, 0);
  EXPECT_EQ(help.err, "");
  for (const char* command : {"new", "convert", "rewrite", "info", "check", "diff", "render", "dump"}) {
    SCOPED_TRACE(command);
    EXPECT_THAT(help.out, HasSubstr(command));
    const ToolRun run = RunMapTool({command, "--help"});
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.out, HasSubstr("quorvel-map " + std::string(command)));
    EXPECT_THAT(run.out, HasSubstr("Examples:"));
  }
}

TEST(Usage, CompletionAndManualKnowEveryOption) {
  const std::string completion = ReadBytes(QUORVEL_SOURCE_DIR "/share/completions/quorvel-map");
  const std::string manual = ReadBytes(QUORVEL_SOURCE_DIR "/share/man/quorvel-map.1");
  for (const char* command : {"new", "convert", "rewrite", "info", "check", "diff", "render", "dump"}) {
    const std::string help = RunMapTool({command, "--help"}).out;
    for (std::size_t at = help.find("  --"); at != help.npos; at = help.find("  --", at + 2)) {
      const std::size_t end = help.find_first_of(" ,\n", at + 2);
      const std::string option = help.substr(at + 2, end - at - 2);
      SCOPED_TRACE(std::string(command) + " " + option);
      EXPECT_THAT(completion, HasSubstr(option));
      std::string inManual;
      for (const char byte : option) (byte == '-' ? inManual += '\\' : inManual) += byte;
      EXPECT_THAT(manual, HasSubstr(inManual));
    }
  }
}

TEST(Usage, FilesMayBeNamedLikeCommandsAndOptions) {
  const TempFolder folder;
  folder.Write("info", "a=1\r\n");
  folder.Write("-x", "a=1\r\n");
  folder.Write("[b]", "a=1\r\n");
  RunSettings inFolder;
  inFolder.folder = folder.Path();
  EXPECT_EQ(RunMapTool({"dump", "tree", "info"}, inFolder).out, "L a 0 31\n");
  EXPECT_EQ(RunMapTool({"dump", "tree", "--", "-x"}, inFolder).out, "L a 0 31\n");
  EXPECT_EQ(RunMapTool({"dump", "tree", "[b]"}, inFolder).out, "L a 0 31\n");
}

TEST(Usage, FilesThatCannotBeReadAreTrouble) {
  const TempFolder folder;
  const std::string missing = folder / "missing.vrl";
  const std::string out = folder / "out.png";
  std::vector<std::vector<std::string>> rows = {{"info", missing},
                                                {"check", missing},
                                                {"diff", missing, missing},
                                                {"info", folder.Path()},
                                                {"rewrite", folder.Path(), out}};
  for (const char* command :
       {"new --definitions", "new --settings", "convert --form text", "rewrite", "render"}) {
    rows.push_back(Words(command));
    rows.back().insert(rows.back().end(), {missing, out});
  }
  for (const char* what : {"tree", "defs", "map", "fill", "fill-log"})
    rows.push_back({"dump", what, missing});
  for (const auto& arguments : rows) {
    SCOPED_TRACE(testing::PrintToString(arguments));
    const ToolRun run = RunMapTool(arguments);
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err, StartsWith("quorvel-map: " + folder.Path()));
    EXPECT_EQ(folder.Names(), std::vector<std::string>{});
  }
}

TEST(Usage, ResultsThatCannotBeWrittenAreTrouble) {
  const TempFolder folder;
  const std::string tree = folder.Write("in.gdf", "a=1\r\n");
  RunSettings toFull;
  toFull.outPath = "/dev/full";
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"dump", "tree", tree}, {"rewrite", tree, "-"}, {"--help"}, {"--version"}}) {
    SCOPED_TRACE(testing::PrintToString(arguments));
    const ToolRun run = RunMapTool(arguments, toFull);
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err, HasSubstr("No space left on device"));
  }
}

}  // namespace
}  // namespace quorvel
