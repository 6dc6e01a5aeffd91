// quorvel --print-to, as a script runs it: the real program, and no display.

#include <iterator>
#include <regex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "places.h"
#include "tests/cli/samples.h"

namespace quorvel {
namespace {

using testing::HasSubstr;

ToolRun RunEditor(const std::vector<std::string>& arguments) {
  RunSettings settings;
  // Nobody answers at that port, so whoever has a printer keeps their paper.
  settings.environment = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "CUPS_SERVER=127.0.0.1:9"};
  return RunProgram(QUORVEL_BIN_DIR "/quorvel", arguments, settings);
}

std::ptrdiff_t PagesIn(const std::string& pdf) {
  const std::regex page("/Type\\s*/Page\\b");
  return std::distance(std::sregex_iterator(pdf.begin(), pdf.end(), page), std::sregex_iterator());
}

TEST(PrintFiles, PrintsAllThatCanBeIntoOneFile) {
  const TempFolder folder;
  folder.Write("one.vrl", MapText());
  ASSERT_EQ(
      RunMapTool({"new", "--definitions", folder / "one.vrl", "--size", "120x1", folder / "two pages.vrl"})
          .code,
      0);
  folder.Write("refused.vrl", Replaced(MapText(), "Width=3", "Width=0"));
  const struct {
    std::vector<std::string> maps;
    int code, pages;
    std::string message;
  } rows[] = {{{"one.vrl"}, 0, 1, ""},
              {{"one.vrl", "two pages.vrl", "one.vrl"}, 0, 4, ""},
              {{"refused.vrl", "one.vrl"}, 1, 1, "refused.vrl: "},
              {{"none.vrl", "one.vrl", "refused.vrl"}, 2, 1, "none.vrl: No such file or directory\n"},
              {{"none.vrl"}, 2, 0, "none.vrl: "},
              {{"refused.vrl"}, 1, 0, "refused.vrl: "}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.maps));
    folder.Write("all.pdf", "old");
    std::vector<std::string> arguments = {"--print-to", folder / "all.pdf"};
    for (const std::string& map : row.maps) arguments.push_back(folder / map);
    const ToolRun run = RunEditor(arguments);
    EXPECT_EQ(run.code, row.code);
    EXPECT_EQ(run.out, "");
    if (row.message.empty())
      EXPECT_EQ(run.err, "");
    else
      EXPECT_THAT(run.err, HasSubstr("quorvel: " + (folder / row.message)));
    const std::string pdf = ReadBytes(folder / "all.pdf");
    EXPECT_EQ(PagesIn(pdf), row.pages);
    EXPECT_EQ(pdf == "old", row.pages == 0);
  }
}

TEST(PrintFiles, WithoutAPrinterItIsTroubleAndSaysSo) {
  const TempFolder folder;
  const std::string map = folder.Write("map.vrl", MapText());
  const struct {
    std::vector<std::string> arguments;
    std::string message;
  } rows[] = {{{"--print-to", "Office", map}, "quorvel: Office: There is no such printer\n"},
              {{"--print", map}, "quorvel: the default printer: There is no such printer\n"},
              {{"--print-to", folder / "none/map.pdf", map},
               "quorvel: " + (folder / "none/map.pdf") + ": No such file or directory\n"},
              {{"--print"}, "FILE"},
              {{"--print", "--print-to", "Office", map}, "--print-to"}};
  for (const auto& row : rows) {
    const ToolRun run = RunEditor(row.arguments);
    EXPECT_EQ(run.code, 2) << row.message;
    EXPECT_THAT(run.err, HasSubstr(row.message));
  }
}

}  // namespace
}  // namespace quorvel
