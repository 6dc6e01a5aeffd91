#include "cli/command.h"
#include "cli/defs_dump.h"
#include "cli/fill_log.h"
#include "cli/map_dump.h"
#include "cli/map_file.h"
#include "cli/new_map.h"
#include "cli/progress_bar.h"
#include "cli/tree_dump.h"
#include "cli/tree_file.h"
#include "map/types/definitions.h"

namespace quorvel {

namespace {

ExitCode DumpTreeFile(Console& console, const std::string& path) {
  DataBranch root("");
  const ExitCode code = ReadTreeFile(console, path, root);
  DumpTree(root, console.Out());
  return code;
}

ExitCode DumpDefinitionsFile(Console& console, const std::string& path) {
  DataBranch root("");
  const ExitCode read = ReadTreeFile(console, path, root, TreePart::WithoutObjects);
  if (read != ExitCode::Done) return read;
  MapContents contents;
  std::string errorText;
  BuildTypes(root, contents, errorText);
  console.Complain(path, errorText);
  DumpErrors(errorText, console.Out());
  DumpDefinitions(contents, console.Out());
  return errorText.empty() ? ExitCode::Done : ExitCode::No;
}

ExitCode DumpInput(Console& console, const MapInput& map) {
  if (map.code == ExitCode::Trouble) return map.code;
  DumpErrors(map.errorText, console.Out());
  DumpMap(map.contents, console.Out());
  return map.code;
}

ExitCode DumpMapFile(Console& console, const std::string& path) {
  return DumpInput(console, ReadMapFile(console, path));
}

NewMapRequest RequestFrom(const std::string& settingsPath) {
  NewMapRequest request;
  request.settingsPath = settingsPath;
  return request;
}

ExitCode DumpFill(Console& console, const std::string& path) {
  NobodyListens nobody;
  const auto feedback = MakeFeedback(console.progress);
  return DumpInput(console, MakeNewMap(console, RequestFrom(path), *feedback, nobody));
}

ExitCode DumpFillLog(Console& console, const std::string& path) {
  FillLog log(console.Out());
  return MakeNewMap(console, RequestFrom(path), log, log).code;
}

struct DumpRow {
  const char* what;
  ExitCode (*dump)(Console& console, const std::string& path);
};

constexpr DumpRow kDumps[] = {{"tree", &DumpTreeFile},
                              {"defs", &DumpDefinitionsFile},
                              {"map", &DumpMapFile},
                              {"fill", &DumpFill},
                              {"fill-log", &DumpFillLog}};

class DumpCommand : public Command {
 public:
  void Declare(CLI::App& app) override {
    std::vector<std::string> names;
    for (const DumpRow& row : kDumps) names.emplace_back(row.what);
    app.add_option("WHAT", what_, "tree, defs, map, fill or fill-log")
        ->required()
        ->check(CLI::IsMember(names));
    app.add_option("FILE", file_, "The file to print")->required();
    app.footer(
        "tree      branches and leaves of any generic data file\n"
        "defs      types and size limits of a definitions file or map\n"
        "map       size and records of a map\n"
        "fill      the map that a settings file makes\n"
        "fill-log  every event of that fill, in order\n"
        "\n"
        "Examples:\n"
        "  quorvel-map dump defs Definitions.txt\n"
        "  quorvel-map dump map galaxy.vrl | grep -c ^record");
  }

  ExitCode Run(Console& console) override {
    for (const DumpRow& row : kDumps) {
      if (what_ == row.what) return row.dump(console, file_);
    }
    return ExitCode::Trouble;  // the argument parser lets no other word through
  }

 private:
  std::string what_, file_;
};

}  // namespace

std::unique_ptr<Command> MakeDumpCommand() {
  return std::make_unique<DumpCommand>();
}

}  // namespace quorvel
