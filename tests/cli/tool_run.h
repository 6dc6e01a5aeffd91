#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

#include "tests/platform/temp_folder.h"

namespace quorvel {

std::string ReadBytes(const std::string& path);

/// Text with every line ended by CR LF, as the text form wants it.
std::string WithCrLf(std::string_view text);

/// How one run of a program ended and what it said.
struct ToolRun {
  int code = -1;    ///< exit code, -1 when a signal ended the run
  int signal = 0;   ///< the signal that ended it, 0 for none
  std::string out;  ///< standard output, empty when it went to `outPath`
  std::string err;
};

struct RunSettings {
  std::string input;    ///< standard input
  std::string outPath;  ///< where standard output goes instead of into ToolRun::out
  std::string folder;   ///< working folder
  /// "NAME=value" beside the usual ones; "NAME" alone takes one away.
  std::vector<std::string> environment;
  std::size_t memoryBytes = 0;  ///< address space the program may take; 0, or under the sanitizer: no limit
  bool closeStreams = false;    ///< runs with all three standard streams closed
};

/// Runs a program to its end; `program` is its path.
ToolRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const RunSettings& settings = {});

/// Runs build/.../bin/quorvel-map to its end.
ToolRun RunMapTool(const std::vector<std::string>& arguments, const RunSettings& settings = {});

/// The same with this standard input.
ToolRun RunOn(const std::string& input, const std::vector<std::string>& arguments);

/// Starts quorvel-map and lets it run; its output is thrown away.
pid_t StartMapTool(const std::vector<std::string>& arguments);

/// Waits for a started program.
ToolRun WaitForTool(pid_t process);

}  // namespace quorvel
