#include "cli/command.h"
#include "cli/read_outcome.h"
#include "cli/tree_file.h"
#include "data/text_signs.h"
#include "map/file/map_file_layout.h"
#include "map/types/file_form.h"
#include "map/types/map_limits.h"

namespace quorvel {

namespace {

bool IsBinaryMap(const DataBranch& root) {
  const DataLeaf* type = root.FindLeaf(kDataTypePath);
  return type && FileFormOf(DataTypeFromName(type->GetValue())) == FileForm::Binary;
}

constexpr char kNoTextForm[] =
    "the first line is neither a section nor key=value; such a file is not written over itself";
constexpr char kBareLineFeed[] =
    "a line holds a line feed without a carriage return and would be lost in part; --lf reads such lines";

/// Why the text must not take the place of the file that it was read from; null: it may.
const char* LossInPlace(std::streambuf& file, LineEnds lineEnds) {
  if (!BeginsAsTextForm(file, LineEnds::Any)) return kNoTextForm;
  if (lineEnds == LineEnds::CarriageReturn && HoldsBareLineFeed(file)) return kBareLineFeed;
  return BeginsAsTextForm(file, lineEnds) ? nullptr : kNoTextForm;
}

class RewriteCommand : public Command {
 public:
  void Declare(CLI::App& app) override {
    app.add_flag("--lf", anyLineEnds_, "Read lines that end in LF, CR or CR LF, and skip a byte order mark");
    app.add_option("IN", in_, "A generic data file in text form")->required();
    app.add_option("OUT", out_, "The file to write")->required();
    app.footer(
        "Comments and unusable lines are dropped, sections come in the order of the tree. A file is not "
        "written\n"
        "over itself when it does not begin as a generic data file or when lines end in LF alone.\n"
        "\n"
        "Examples:\n"
        "  quorvel-map rewrite Definitions.txt Definitions.txt\n"
        "  quorvel-map rewrite --lf edited-by-hand.gdf - | less");
  }

  ExitCode Run(Console& console) override {
    DataBranch root("");
    const ExitCode read = Read(console, root);
    if (read != ExitCode::Done) return read;
    if (IsBinaryMap(root)) {
      console.Complain(in_, "a map in binary form; quorvel-map convert can write it as text");
      return ExitCode::No;
    }
    return WriteTreeFile(console, out_, root);
  }

 private:
  ExitCode Read(Console& console, DataBranch& root) const {
    const LineEnds lineEnds = anyLineEnds_ ? LineEnds::Any : LineEnds::CarriageReturn;
    FileSource source(in_, FileSource::Accept::AnyInput, kMaxTextFileBytes);
    const bool isInPlace = out_ != kStandardStream && source.IsFileAt(out_);
    const char* loss = isInPlace ? LossInPlace(source, lineEnds) : nullptr;
    if (!loss) root.ReadText(&source, lineEnds);
    const ExitCode outcome = ReadOutcome(console, in_, source);
    if (outcome != ExitCode::Done || !loss) return outcome;
    console.Complain(in_, loss);
    return ExitCode::No;
  }

  bool anyLineEnds_ = false;
  std::string in_, out_;
};

}  // namespace

std::unique_ptr<Command> MakeRewriteCommand() {
  return std::make_unique<RewriteCommand>();
}

}  // namespace quorvel
