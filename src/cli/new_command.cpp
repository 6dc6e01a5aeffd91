#include <charconv>
#include <string_view>

#include "cli/command.h"
#include "cli/form_option.h"
#include "cli/new_map.h"
#include "cli/one_standard_input.h"
#include "cli/progress_bar.h"

namespace quorvel {

namespace {

constexpr std::uint32_t kMaxNewSide = 1000;

/// A whole number in plain decimal digits.
std::optional<std::uint32_t> ParseDecimal(std::string_view text) {
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return number;
}

std::optional<std::int32_t> ParseSide(std::string_view text) {
  const auto cells = ParseDecimal(text);
  if (!cells || *cells < 1 || *cells > kMaxNewSide) return {};
  return static_cast<std::int32_t>(*cells);
}

NewMapSize ParseSize(const std::string& text) {
  const std::size_t cross = std::min(text.find('x'), text.size());
  const auto width = ParseSide(text.substr(0, cross));
  const auto height = ParseSide(std::string_view(text).substr(std::min(cross + 1, text.size())));
  if (!width || !height)
    throw CLI::ValidationError("--size", text + " is not WxH with sides of 1 to 1000 cells");
  return {*width, *height};
}

std::uint32_t ParseSeed(const std::string& text) {
  const auto seed = ParseDecimal(text);
  if (!seed) throw CLI::ValidationError("--seed", text + " is not a number of 0 to 4294967295");
  return *seed;
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
    app.add_option_function<std::string>(
           "--seed", [this](const std::string& text) { request_.seed = ParseSeed(text); },
           "Seed of the random numbers")
        ->option_text("N");
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
