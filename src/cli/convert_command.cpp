#include "cli/command.h"
#include "cli/form_option.h"
#include "cli/map_file.h"

namespace quorvel {

namespace {

class ConvertCommand : public Command {
 public:
  void Declare(CLI::App& app) override {
    AddFormOption(app, form_)->required();
    app.add_option("IN", in_, "A map in either form")->required();
    app.add_option("OUT", out_, "The map to write; may be IN")->required();
    app.footer(
        "Examples:\n"
        "  quorvel-map convert --form binary galaxy.vrl galaxy-binary.vrl\n"
        "  quorvel-map convert --form text galaxy.vrl - | less");
  }

  ExitCode Run(Console& console) override {
    MapInput input = ReadMapFile(console, in_);
    if (input.code != ExitCode::Done) return input.code;
    input.contents.m_nDataType = DataTypeOf(form_);
    return WriteMapFile(console, out_, input.contents);
  }

 private:
  FileForm form_ = FileForm::Text;
  std::string in_, out_;
};

}  // namespace

std::unique_ptr<Command> MakeConvertCommand() {
  return std::make_unique<ConvertCommand>();
}

}  // namespace quorvel
