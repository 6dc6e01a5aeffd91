#include <cstdint>
#include <limits>

#include "cli/command.h"
#include "cli/form_option.h"
#include "cli/new_map.h"
#include "cli/one_standard_input.h"
#include "cli/option_numbers.h"
#include "cli/progress_bar.h"

namespace quorvel {

namespace {

NewMapSize ParseSize(const std::string& text) {
  const auto [width, height] =
      ParseNumbers<2>("--size", text, 'x', "WxH, columns and rows", NumberIn(1, kMaxNewMapSide));
  return {width, height};
}

class NewCommand : public Command {
 public:
  void Declare(CLI::App& app) override {
    app.add_option("--definitions", request_.definitionsPath,
                   "Take the types from this file, not the settings'")
        ->option_text("FILE");
    app.add_option("--settings", request_.settingsPath, "Fill the map as this file says")
        ->option_text("FILE");
    app.add_option_function<std::string>(
           "--size", [this](const std::string& text) { request_.size = ParseSize(text); },
           "Columns and rows, 1 to 1000 each")
        ->option_text("WxH");
    app.add_option("--seed", request_.seed, "Seed of the random numbers")
        ->option_text("N")
        ->transform(NumberIn(std::uint32_t{0}, std::numeric_limits<std::uint32_t>::max()));
    AddFormOption(app, form_);
    app.add_option("OUT", out_, "The map to write")->required();
    app.callback([this] {
      RequireOneStandardInput({request_.definitionsPath.value_or(""), request_.settingsPath.value_or("")});
    });
    app.footer(
        "Without --settings the map is empty. What neither the options nor the settings file give is the\n"
        "editor's default definitions file, the definitions' default size, and the time as seed.\n"
        "\n"
        "Examples:\n"
        "  quorvel-map new --definitions Definitions.txt --size 40x30 empty.vrl\n"
        "  quorvel-map new --settings rival-empires.txt --seed 7 --form binary empires.vrl");
  }

  ExitCode Run(Console& console) override {
    NobodyListens nobody;
    const auto feedback = MakeFeedback(console.progress);
    MapInput map = MakeNewMap(console, request_, *feedback, nobody);
    if (map.code != ExitCode::Done) return map.code;
    map.contents.m_nDataType = DataTypeOf(form_);
    return WriteMapFile(console, out_, map.contents);
  }

 private:
  NewMapRequest request_;
  FileForm form_ = FileForm::Text;
  std::string out_;
};

}  // namespace

std::unique_ptr<Command> MakeNewCommand() {
  return std::make_unique<NewCommand>();
}

}  // namespace quorvel
