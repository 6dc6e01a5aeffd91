#include <cstdlib>

#include <QGuiApplication>

#include "cli/command.h"
#include "cli/map_file.h"
#include "cli/one_standard_input.h"
#include "cli/option_numbers.h"
#include "cli/paper_options.h"
#include "cli/progress_bar.h"
#include "cli/tree_file.h"
#include "data/ascii_case.h"
#include "data/control_escapes.h"
#include "map/fill/fill_settings.h"
#include "map/fill/map_filter.h"
#include "map/types/map_limits.h"
#include "platform/files/atomic_file.h"
#include "render/picture.h"

namespace quorvel {

namespace {

constexpr auto kMaxRoomPx = static_cast<std::int32_t>(kMaxPictureSidePx);

enum class PictureForm { Png, Pdf };

/// Standard output gets a PNG.
PictureForm FormOf(const std::string& out) {
  if (out == kStandardStream || EndsWithIgnoringCase(out, ".png")) return PictureForm::Png;
  if (EndsWithIgnoringCase(out, ".pdf")) return PictureForm::Pdf;
  throw CLI::ValidationError("OUT", out + " ends neither with .png nor with .pdf");
}

CellRange ParseCells(const std::string& text) {
  constexpr auto kLast = static_cast<std::int32_t>(kMaxSideCells - 1);
  const auto [c0, r0, c1, r1] = ParseNumbers<4>("--cells", text, ',', "C0,R0,C1,R1", NumberIn(0, kLast));
  return {{c0, r0}, {c1, r1}};
}

QSize ParseRoom(const std::string& text) {
  const auto [width, height] =
      ParseNumbers<2>("--fit", text, 'x', "WxH, sides in pixels", NumberIn(1, kMaxRoomPx));
  return {width, height};
}

/// The empty name stands for an option that was not given.
std::string RequireName(const std::string& name) {
  return name.empty() ? "the empty name is no index property" : "";
}

bool IsIndexMember(const ClassDef& cellClass, const std::string& name) {
  const MemberDef* member = cellClass.FindMember(name);
  return member && member->GetKind() == MemberKind::Index;
}

/// Keeps the library's remarks about the desktop away from the tool's messages.
void SayNothing(QtMsgType, const QMessageLogContext&, const QString&) {}

void PrepareDrawing() {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  qInstallMessageHandler(&SayNothing);
}

/// Qt's drawing without a screen; labels need its fonts. PrepareDrawing comes first.
class OffScreenDrawing {
 public:
  OffScreenDrawing() : app_(argc_, argv_) {}

 private:
  // The application keeps references to these.
  int argc_ = 1;
  char name_[12] = "quorvel-map";
  char* argv_[2] = {name_, nullptr};
  QGuiApplication app_;
};

class RenderCommand : public Command {
 public:
  void Declare(CLI::App& app) override {
    auto* cellSize = app.add_option("--cell-size", request_.cellSizePx,
                                    "Height of a cell in pixels, 10 to 100; 100 if not given")
                         ->option_text("S")
                         ->transform(NumberIn(10.0F, 100.0F));
    auto* fit = app.add_option_function<std::string>(
                       "--fit", [this](const std::string& text) { request_.fit = ParseRoom(text); },
                       "Draw the largest picture that fits into so many pixels, in place of a cell size")
                    ->option_text("WxH")
                    ->excludes(cellSize);
    app.add_option("--fill", request_.fillMember, "Index property that colours the cells")
        ->option_text("NAME")
        ->check(&RequireName);
    app.add_option("--outline", request_.outlineMember, "Index property that colours their outlines")
        ->option_text("NAME")
        ->check(&RequireName);
    app.add_flag_callback(
        "--no-labels", [this] { request_.labels = Labels::Hidden; }, "Draw no values into the cells");
    app.add_option_function<std::string>(
           "--ground",
           [this](const std::string& answer) {
             request_.ground = answer == "on" ? Ground::Shown : Ground::Hidden;
           },
           "Draw what lies under the cells and around them: on if not given for a PNG, off for a PDF")
        ->option_text("on|off")
        ->check(CLI::IsMember({"on", "off"}));
    app.add_option_function<std::string>(
           "--cells", [this](const std::string& text) { request_.cells = ParseCells(text); },
           "Draw only these cells: the corners' columns and rows")
        ->option_text("C0,R0,C1,R1");
    app.add_option("--filter", filterPath_, "Fade the cells that this filter does not pass")
        ->option_text("FILE");
    paper_.Declare(app, fit);
    app.add_option("FILE", file_, "A map in either form")->required();
    app.add_option_function<std::string>(
           "OUT",
           [this](const std::string& out) {
             form_ = FormOf(out);
             out_ = out;
           },
           "OUT.png or OUT.pdf")
        ->required();
    app.callback([this] {
      RequireOneStandardInput({filterPath_, file_});
      RequirePdfForPaper();
    });
    app.footer(
        "Examples:\n"
        "  quorvel-map render --cell-size 20 --no-labels galaxy.vrl overview.png\n"
        "  quorvel-map render --fill Empire --cells 0,0,19,11 galaxy.vrl corner.pdf\n"
        "  quorvel-map render --paper A3 --pages 2x2 galaxy.vrl poster.pdf");
  }

  ExitCode Run(Console& console) override {
    const MapInput map = ReadMapFile(console, file_);
    if (map.code != ExitCode::Done) return map.code;
    if (!MembersExist(console, *map.contents.m_pCellClass) || !CellsExist(console, *map.contents.m_pGrid))
      return ExitCode::Trouble;
    const ExitCode filtered = SetFilter(console, map.contents);
    return filtered == ExitCode::Done ? Draw(console, map.contents) : filtered;
  }

 private:
  void RequirePdfForPaper() {
    request_.paper = paper_.Request();
    if (request_.paper && form_ != PictureForm::Pdf)
      throw CLI::ValidationError("OUT", "only a .pdf is laid on sheets of paper");
  }

  bool MembersExist(Console& console, const ClassDef& cellClass) const {
    for (const auto& [option, name] :
         {std::pair{"--fill", &request_.fillMember}, {"--outline", &request_.outlineMember}}) {
      if (name->empty() || IsIndexMember(cellClass, *name)) continue;
      console.Complain(file_, std::string(option) + ": the map has no index property " + WithEscapes(*name));
      return false;
    }
    return true;
  }

  bool CellsExist(Console& console, const CellGrid& grid) const {
    if (!request_.cells || (grid.IsValid(request_.cells->first) && grid.IsValid(request_.cells->last)))
      return true;
    console.Complain(file_, "--cells: not all of them are on the map");
    return false;
  }

  ExitCode SetFilter(Console& console, const MapContents& contents) {
    if (filterPath_.empty()) return ExitCode::Done;
    DataBranch tree("");
    const ExitCode read = ReadTreeFile(console, filterPath_, tree);
    if (read != ExitCode::Done) return read;
    std::string errorText;
    filter_ = ReadFilterSettings(tree, contents.m_pCellClass, errorText);
    console.Complain(filterPath_, errorText);
    if (!filter_) return ExitCode::No;
    request_.filter = [this](const CellRecord& record) { return PassesFilter(*filter_, record.data); };
    return ExitCode::Done;
  }

  ExitCode Draw(Console& console, const MapContents& contents) const {
    PrepareDrawing();
    const OffScreenDrawing drawing;
    const auto feedback = MakeFeedback(console.progress);
    const auto render = form_ == PictureForm::Png ? &RenderPng : &RenderPdf;
    AtomicFile file(out_);
    std::string errorText;
    const bool drawn = render(contents, request_, file, *feedback, errorText);
    if (!drawn && !errorText.empty()) {
      console.Complain(file_, errorText);
      return ExitCode::No;
    }
    if (file.Commit(errorText)) return ExitCode::Done;
    console.Complain(out_, errorText);
    return ExitCode::Trouble;
  }

  PictureRequest request_;
  PaperOptions paper_;
  PictureForm form_ = PictureForm::Png;
  std::string filterPath_, file_, out_;
  std::optional<CPropertySettingList> filter_;
};

}  // namespace

std::unique_ptr<Command> MakeRenderCommand() {
  return std::make_unique<RenderCommand>();
}

}  // namespace quorvel
