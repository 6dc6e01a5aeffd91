#include "cli/command.h"
#include "cli/map_file.h"
#include "cli/one_standard_input.h"
#include "map/check/map_diff.h"

namespace quorvel {

namespace {

class DiffCommand : public Command {
 public:
  void Declare(CLI::App& app) override {
    app.add_option("A", a_, "The first map")->required();
    app.add_option("B", b_, "The second map, in the same or the other form")->required();
    app.callback([this] { RequireOneStandardInput({a_, b_}); });
    app.footer(
        "Values are compared by their bits; a cell that is not stored counts with its defaults.\n"
        "\n"
        "Examples:\n"
        "  quorvel-map diff yesterday.vrl today.vrl\n"
        "  quorvel-map diff galaxy.vrl galaxy-binary.vrl && echo equal");
  }

  ExitCode Run(Console& console) override {
    const MapInput a = ReadMapFile(console, a_);
    const MapInput b = ReadMapFile(console, b_);
    if (Worse(a.code, b.code) != ExitCode::Done) return ExitCode::Trouble;
    const bool equal = DiffMaps(a.contents, b.contents, [&console](const std::string& line) {
      console.Out().Line() += line;
      console.Out().EndLine();
    });
    return equal ? ExitCode::Done : ExitCode::No;
  }

 private:
  std::string a_, b_;
};

}  // namespace

std::unique_ptr<Command> MakeDiffCommand() {
  return std::make_unique<DiffCommand>();
}

}  // namespace quorvel
