#include "cli/command.h"
#include "cli/tree_file.h"
#include "map/types/data_type.h"

namespace quorvel {

namespace {

bool IsBinaryMap(const DataBranch& root) {
  const DataLeaf* type = root.FindLeaf("Version/Data/type");
  return type != nullptr && DataTypeFromName(type->GetValue()) == kBinaryForm;
}

class RewriteCommand : public Command {
 public:
  void Declare(CLI::App& app) override {
    app.add_option("IN", in_, "A generic data file in text form")->required();
    app.add_option("OUT", out_, "The file to write")->required();
    app.footer(
        "Comments and unusable lines are dropped, sections come in the order of the tree.\n"
        "\n"
        "Examples:\n"
        "  quorvel-map rewrite Definitions.txt Definitions.txt\n"
        "  quorvel-map rewrite edited-by-hand.gdf - | less");
  }

  ExitCode Run(Console& console) override {
    DataBranch root("");
    const ExitCode read = ReadTreeFile(console, in_, root);
    if (read != ExitCode::Done) return read;
    if (IsBinaryMap(root)) {
      console.Complain(in_, "a map in binary form; quorvel-map convert can write it as text");
      return ExitCode::No;
    }
    return WriteTreeFile(console, out_, root);
  }

 private:
  std::string in_, out_;
};

}  // namespace

std::unique_ptr<Command> MakeRewriteCommand() {
  return std::make_unique<RewriteCommand>();
}

}  // namespace quorvel
