#include "ui/app/command_line.h"

#include <CLI/CLI.hpp>

#include "data/control_escapes.h"
#include "ui/resources/version_info.h"

namespace quorvel {

namespace {

constexpr int kWrongUsage = 2;

/// What the library says, with the arguments in it as a terminal can show them.
std::string FailureMessage(const CLI::App* program, const CLI::Error& error) {
  return CLI::FailureMessage::simple(
      program, CLI::Error(error.get_name(), WithEscapes(error.what()), error.get_exit_code()));
}

}  // namespace

CommandLineResult ParseCommandLine(int argc, const char* const* argv) {
  CommandLineResult result;
  CCommandLineInfo& info = result.info;
  CLI::App program("Edits hexagonal galaxy maps (.vrl, .gdf).", "quorvel");
  program.failure_message(&FailureMessage);
  program.set_version_flag("--version", std::string(kProductName) + " " + kFileVersion);
  auto* files = program.add_option("FILE", info.m_files, "Maps to open; with none, no map is opened");
  bool prints = false;
  auto* print = program.add_flag("--print", prints, "Print the maps on the default printer and end");
  print->needs(files);
  auto* printTo = program
                      .add_option("--print-to", info.m_strPrinterName,
                                  "Print the maps on this printer, or all into this .pdf file, and end")
                      ->option_text("PRINTER")
                      ->needs(files)
                      ->excludes(print);
  program.footer(
      "Examples:\n  quorvel galaxy.vrl\n  quorvel --print galaxy.vrl\n  quorvel --print-to Office "
      "galaxy.vrl");
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    result.isDone = true;
    result.exitCode = program.exit(error) == 0 ? 0 : kWrongUsage;
    return result;
  }
  if (!info.m_files.empty()) info.m_nShellCommand = CCommandLineInfo::FileOpen;
  if (prints) info.m_nShellCommand = CCommandLineInfo::FilePrint;
  if (printTo->count() > 0) info.m_nShellCommand = CCommandLineInfo::FilePrintTo;
  return result;
}

}  // namespace quorvel
