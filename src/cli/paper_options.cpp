#include "cli/paper_options.h"

#include <string>
#include <string_view>

#include "cli/option_numbers.h"

namespace quorvel {
namespace {

constexpr double kMinCellMm = 0.1;
constexpr double kMaxCellMm = 1000;
constexpr int kMaxSheetsAlong = 1000;
constexpr std::string_view kMm = "mm";
constexpr char kNoPaper[] = " is neither A4, A3, Letter nor WxHmm";

struct NamedPaper {
  std::string_view name;
  double widthMm, heightMm;
};
constexpr NamedPaper kPapers[] = {{"A4", 210, 297}, {"A3", 297, 420}, {"Letter", 215.9, 279.4}};

/// A paper given by its sides is not turned.
void SetPaper(PaperRequest& request, const std::string& text) {
  for (const NamedPaper& paper : kPapers) {
    if (text != paper.name) continue;
    request.sheetMm = {paper.widthMm, paper.heightMm};
    return;
  }
  if (!text.ends_with(kMm)) throw CLI::ValidationError("--paper", text + kNoPaper);
  const auto [width, height] = ParseNumbers<2>("--paper", text.substr(0, text.size() - kMm.size()), 'x',
                                               "WxHmm", NumberIn(kMinSheetSideMm, kMaxSheetSideMm));
  request.sheetMm = QSizeF(width, height);
  request.mayTurn = false;
}

QSize ParseSheets(const std::string& text) {
  const auto [across, down] = ParseNumbers<2>(
      "--pages", text, 'x', "NxM, pages side by side and below each other", NumberIn(1, kMaxSheetsAlong));
  return {across, down};
}

}  // namespace

void PaperOptions::Declare(CLI::App& app, CLI::Option* fit) {
  app.add_option_function<std::string>(
         "--paper", [this](const std::string& text) { SetPaper(Asked(), text); },
         "PDF: lay the map on sheets of this paper; A4 if only a size is given")
      ->option_text("A4|A3|Letter|WxHmm")
      ->excludes(fit);
  auto* cellMm = app.add_option_function<double>(
                        "--cell-mm", [this](double mm) { Asked().size.cellMm = mm; },
                        "PDF: height of a cell on the paper, in millimetres")
                     ->option_text("X")
                     ->transform(NumberIn(kMinCellMm, kMaxCellMm))
                     ->excludes(fit);
  auto* fitPage = app.add_flag_callback(
                         "--fit-page",
                         [this] {
                           Asked().size.sheets = {1, 1};
                         },
                         "PDF: as large as fits on one sheet")
                      ->excludes(fit)
                      ->excludes(cellMm);
  app.add_option_function<std::string>(
         "--pages", [this](const std::string& text) { Asked().size.sheets = ParseSheets(text); },
         "PDF: as large as fits on N sheets side by side and M below each other")
      ->option_text("NxM")
      ->excludes(fit)
      ->excludes(cellMm)
      ->excludes(fitPage);
}

}  // namespace quorvel
