#include <cstdlib>
#include <regex>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "places.h"
#include "tests/cli/tool_run.h"

namespace quorvel {
namespace {

using testing::HasSubstr;

/// The lines of a document's blocks that are marked as shell commands.
std::string ShellCommands(const std::string& document) {
  std::istringstream lines(document);
  std::string commands;
  bool inBlock = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("```")) {
      inBlock = line == "```sh";
    } else if (inBlock) {
      commands += line + '\n';
    }
  }
  return commands;
}

/// Runs the commands in the folder, as somebody would in a checkout whose programs are installed. Every line
/// is echoed into the log before it runs, and the first that fails ends the run.
int RunCommands(const TempFolder& folder, const std::string& commands) {
  folder.Write("commands", "set -eux\nln -s '" QUORVEL_SOURCE_DIR "/share' share\n" + commands);
  const std::string run = "cd '" + folder.Path() +
                          "' && HOME=$PWD XDG_RUNTIME_DIR=$PWD PATH='" QUORVEL_BIN_DIR
                          "':$PATH sh commands > log 2>&1";
  return std::system(run.c_str());
}

TEST(Documents, EveryCommandOfTheDocumentsRuns) {
  for (const char* name : {"README.md", "docs/user-guide.md"}) {
    SCOPED_TRACE(name);
    const std::string commands = ShellCommands(ReadBytes(std::string(QUORVEL_SOURCE_DIR "/") + name));
    EXPECT_THAT(commands, HasSubstr("quorvel-map new --settings share/settings/"));
    const TempFolder folder;
    EXPECT_EQ(RunCommands(folder, commands), 0) << folder.Read("log");
  }
}

TEST(Documents, ManualPagesBearTheVersionAndADate) {
  std::string version = RunMapTool({"--version"}).out;
  version = version.substr(version.find(' ') + 1);
  version.pop_back();
  for (const char* name : {"quorvel", "quorvel-map"}) {
    const std::string page = ReadBytes(std::string(QUORVEL_BIN_DIR "/../share/man/") + name + ".1");
    const std::string title = page.substr(0, page.find('\n'));
    EXPECT_TRUE(std::regex_match(title, std::regex("\\.TH [A-Z-]+ 1 \\d{4}-\\d{2}-\\d{2} \"Quorvel " +
                                                   version + "\" \"User Commands\"")))
        << title;
  }
}

}  // namespace
}  // namespace quorvel
