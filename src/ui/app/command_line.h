#pragma once

#include <string>
#include <vector>

namespace quorvel {

/// What the program was started for. File names are bytes as given.
struct CCommandLineInfo {
  enum Shell { FileNothing = -1, FileOpen, FilePrint, FilePrintTo } m_nShellCommand = FileNothing;
  std::vector<std::string> m_files;
  std::string m_strPrinterName;
};

struct CommandLineResult {
  CCommandLineInfo info;
  int exitCode = 0;
  /// A text was printed (--help, --version, a fault); the program ends with the exit code.
  bool isDone = false;
};

CommandLineResult ParseCommandLine(int argc, const char* const* argv);

}  // namespace quorvel
