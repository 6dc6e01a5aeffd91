#include "cli/command.h"
#include "cli/tree_dump.h"
#include "cli/tree_file.h"

namespace quorvel {

namespace {

ExitCode DumpTreeFile(Console& console, const std::string& path) {
  DataBranch root("");
  const ExitCode code = ReadTreeFile(console, path, root);
  DumpTree(root, console.Out());
  return code;
}

struct DumpRow {
  const char* what;
  ExitCode (*dump)(Console& console, const std::string& path);
};

constexpr DumpRow kDumps[] = {{"tree", &DumpTreeFile}};

class DumpCommand : public Command {
 public:
  void Declare(CLI::App& app) override {
    std::vector<std::string> names;
    for (const DumpRow& row : kDumps) names.emplace_back(row.what);
    app.add_option("WHAT", what_, "tree")->required()->check(CLI::IsMember(names));
    app.add_option("FILE", file_, "The file to print")->required();
    app.footer(
        "tree      branches and leaves of any generic data file\n"
        "\n"
        "Examples:\n"
        "  quorvel-map dump tree Definitions.txt");
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
