#include <sstream>

#include "cli/command.h"
#include "cli/one_standard_input.h"
#include "cli/progress_bar.h"
#include "cli/read_outcome.h"
#include "data/control_escapes.h"
#include "map/check/map_check.h"
#include "map/file/whole_input.h"
#include "map/types/map_limits.h"

namespace quorvel {

namespace {

/// What cannot be read twice goes into memory first.
Outcome Check(FileSource& source, Feedback& feedback, const ProblemSink& report) {
  if (source.CanSeek()) return CheckFile(source, feedback, report);
  std::stringbuf inMemory(ReadWholeInput(source), std::ios_base::in);
  return source.Error().empty() ? CheckFile(inMemory, feedback, report) : source.GetOutcome();
}

class CheckCommand : public Command {
 public:
  void Declare(CLI::App& app) override {
    app.add_option("FILE", files_, "Maps of either form, or definitions files")->required();
    app.callback([this] { RequireOneStandardInput(files_); });
    app.footer(
        "One problem a line, with the number of the file's line where it can be named; silent when all is "
        "well.\n"
        "\n"
        "Examples:\n"
        "  quorvel-map check Definitions.txt\n"
        "  quorvel-map check *.vrl || echo 'not all is well'");
  }

  ExitCode Run(Console& console) override {
    ExitCode code = ExitCode::Done;
    for (const std::string& path : files_) code = Worse(code, CheckOne(console, path));
    return code;
  }

 private:
  static ExitCode CheckOne(Console& console, const std::string& path) {
    ExitCode code = ExitCode::Done;
    FileSource source(path, FileSource::Accept::AnyInput, kMaxTextFileBytes);
    if (source.IsOpen()) {
      const auto feedback = MakeFeedback(console.progress);
      const Outcome outcome = Check(source, *feedback, [&](const Problem& problem) {
        code = ExitCode::No;
        Print(console.Out(), path, problem);
      });
      if (outcome == Outcome::NoMemory) console.Complain(path, kNoMemoryMessage);
      code = Worse(code, CodeOf(outcome));
    }
    return Worse(code, ReadOutcome(console, path, source));
  }

  static void Print(Results& out, const std::string& path, const Problem& problem) {
    std::string& line = out.Line();
    AppendWithEscapes(line, path);
    line += ": ";
    if (problem.line != 0) (line += std::to_string(problem.line)) += ": ";
    AppendWithEscapes(line, problem.text);
    out.EndLine();
  }

  std::vector<std::string> files_;
};

}  // namespace

std::unique_ptr<Command> MakeCheckCommand() {
  return std::make_unique<CheckCommand>();
}

}  // namespace quorvel
