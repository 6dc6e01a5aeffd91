#include "cli/tool.h"

#include <new>
#include <string>
#include <vector>

#include "cli/command.h"

namespace quorvel {

namespace {

constexpr char kVersion[] = "quorvel-map " QUORVEL_VERSION;

constexpr char kExamples[] =
    "A file named - is standard input or standard output.\n"
    "\n"
    "Exit codes: 0 done, all well, equal; 1 differences, problems, or a refused file; 2 trouble.\n"
    "\n"
    "Examples:\n"
    "  quorvel-map new --settings scattered-stars.txt --seed 7 stars.vrl\n"
    "  quorvel-map convert --form binary stars.vrl stars-binary.vrl\n"
    "  quorvel-map check *.vrl\n"
    "  quorvel-map render --cell-size 40 stars.vrl stars.png";

/// The argument parser and the commands whose fields it fills.
class CommandLine {
 public:
  explicit CommandLine(Console& console)
      : app_("Make, check, convert, compare and draw hexagonal galaxy maps.", "quorvel-map") {
    app_.set_version_flag("--version", kVersion, "Print the version and stop");
    app_.add_flag_callback(
        "--quiet", [&console] { console.progress = ProgressDisplay::Never; }, "Show no progress bar");
    app_.set_help_flag("--help", "Print this help and stop");
    app_.require_subcommand(1);
    app_.fallthrough();
    app_.footer(kExamples);
    for (const CommandRow& row : Commands()) AddCommand(row);
  }

  void Parse(int argc, const char* const* argv) { app_.parse(argc, argv); }

  Command& Chosen() const { return *commands_[ChosenNumber()]; }

  /// The command that tells how to use what was asked for.
  std::string HelpCommand() const {
    const std::size_t number = ChosenNumber();
    return "quorvel-map " + (number < rows_.size() ? rows_[number]->get_name() + " " : "") + "--help";
  }

  /// What is wrong with the arguments. Without a command the parser says no more than that.
  std::string Trouble(const CLI::ParseError& error) const {
    if (ChosenNumber() < rows_.size()) return error.what();
    const std::vector<std::string> words = app_.remaining();
    std::string trouble = words.empty()               ? "a command is missing"
                          : words[0].starts_with('-') ? "there is no option " + words[0]
                                                      : "there is no command " + words[0];
    trouble += "; the commands are";
    for (const CLI::App* row : rows_) trouble += (row == rows_.front() ? " " : ", ") + row->get_name();
    return trouble;
  }

  /// Help of the command that was named, or of the whole tool.
  std::string Help() const { return app_.help(); }

 private:
  std::size_t ChosenNumber() const {
    std::size_t number = 0;
    while (number < rows_.size() && !rows_[number]->parsed()) ++number;
    return number;
  }

  void AddCommand(const CommandRow& row) {
    CLI::App* app = app_.add_subcommand(row.name, row.summary);
    commands_.push_back(row.make());
    rows_.push_back(app);
    commands_.back()->Declare(*app);
  }

  CLI::App app_;
  std::vector<CLI::App*> rows_;
  std::vector<std::unique_ptr<Command>> commands_;
};

ExitCode RunCommandLine(Console& console, int argc, const char* const* argv) {
  CommandLine line(console);
  try {
    line.Parse(argc, argv);
  } catch (const CLI::CallForVersion&) {
    console.Out().Write(kVersion);
    console.Out().EndLine();
    return ExitCode::Done;
  } catch (const CLI::CallForHelp&) {
    console.Out().Write(line.Help());
    return ExitCode::Done;
  } catch (const CLI::ParseError& error) {
    console.Complain(line.Trouble(error));
    console.Complain("see " + line.HelpCommand());
    return ExitCode::Trouble;
  }
  return line.Chosen().Run(console);
}

}  // namespace

ExitCode RunTool(int argc, const char* const* argv) try {
  Console console;
  const ExitCode code = RunCommandLine(console, argc, argv);
  std::string errorText;
  if (console.Out().Finish(errorText)) return code;
  Console::Complain("standard output", errorText);
  return ExitCode::Trouble;
} catch (const std::bad_alloc&) {
  Console::Complain(kNoMemoryMessage);
  return ExitCode::Trouble;
}

}  // namespace quorvel
