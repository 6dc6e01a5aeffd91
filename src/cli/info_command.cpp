#include "cli/command.h"
#include "cli/map_file.h"
#include "cli/map_summary.h"

namespace quorvel {

namespace {

class InfoCommand : public Command {
 public:
  void Declare(CLI::App& app) override {
    app.add_option("FILE", file_, "A map in either form")->required();
    app.footer(
        "Prints form, size, records and their bytes, types, and what values each property has.\n"
        "\n"
        "Examples:\n"
        "  quorvel-map info galaxy.vrl\n"
        "  gunzip < galaxy.vrl.gz | quorvel-map info -");
  }

  ExitCode Run(Console& console) override {
    const MapInput map = ReadMapFile(console, file_);
    if (map.code != ExitCode::Trouble) PrintSummary(map.contents, console.Out());
    return map.code;
  }

 private:
  std::string file_;
};

}  // namespace

std::unique_ptr<Command> MakeInfoCommand() {
  return std::make_unique<InfoCommand>();
}

}  // namespace quorvel
