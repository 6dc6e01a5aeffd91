// The editor as its user waits for it: the whole application in one process, off screen.

#include <array>
#include <string>
#include <vector>

#include <QDialog>
#include <QMouseEvent>
#include <QTimer>

#include "bench/bare_copy.h"
#include "bench/click_watch.h"
#include "bench/whole_editor.h"
#include "data/number_members.h"
#include "map/document/editing.h"
#include "map/document/paint_tool.h"
#include "map/document/vastrel_doc.h"
#include "ui/wizard/map_dialogs.h"

namespace quorvel {
namespace {

constexpr char kDefinitions[] =
    "[Classes/Kind]\r\ntype=\"items\"\r\n"
    "0=\"a\"\r\n1=\"b\"\r\n2=\"c\"\r\n3=\"d\"\r\n4=\"e\"\r\n5=\"f\"\r\n6=\"g\"\r\n7=\"h\"\r\n"
    "[Classes/Kind/UI/Color]\r\n0=0x1f77b4\r\n1=0xff7f0e\r\n2=0x2ca02c\r\n3=0xd62728\r\n4=0x9467bd\r\n"
    "5=0x8c564b\r\n6=0xe377c2\r\n7=0x7f7f7f\r\n"
    "[Classes/Map]\r\ntype=\"class\"\r\n[Classes/Map/Width]\r\ntype=\"int\"\r\nrange=\"1<1000<1000\"\r\n"
    "[Classes/Map/Height]\r\ntype=\"int\"\r\nrange=\"1<1000<1000\"\r\n"
    "[Classes/Cell]\r\ntype=\"class\"\r\n[Classes/Cell/Name]\r\ntype=\"string\"\r\nrange=\"\"\r\n"
    "[Classes/Cell/Count]\r\ntype=\"int\"\r\nrange=\"0<0<1000\"\r\n"
    "[Classes/Cell/Weight]\r\ntype=\"float\"\r\nrange=\"0<0<1000\"\r\n"
    "[Classes/Cell/Kind]\r\ntype=\"index\"\r\nrange=\"Kind\"\r\n";

constexpr int kSide = 1000;
constexpr int kCells = kSide * kSide;
constexpr float kSmallCellPx = 10;

/// Three global properties of four values each, and one of eight regions.
NewMapChoice WholeChoice(const ClassDef& cellClass) {
  constexpr std::array<std::array<float, 2>, 8> origins = {
      {{12, 18}, {40, 12}, {72, 15}, {92, 40}, {15, 60}, {45, 52}, {66, 85}, {30, 90}}};
  NewMapChoice choice;
  choice.width = choice.height = kSide;
  for (const char* name : {"Count", "Weight", "Name"}) {
    CPropertySetting& setting = choice.global.Add(cellClass.FindMember(name), CoverageControl::Slider);
    for (const char* text : {"1", "2", "3", "4"}) setting.AppendValue(25).StoreText(text);
  }
  CPropertySetting& regions = choice.region.Add(cellClass.FindMember("Kind"), CoverageControl::Slider);
  for (std::size_t region = 0; region < origins.size(); ++region) {
    CValueSetting& value = regions.AddValue();
    value.SetOrigin(origins[region][0], origins[region][1]);
    value.StoreText(std::to_string(region));
  }
  return choice;
}

/// Counts the paint events of a widget.
class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget& widget) : QObject(&widget) { widget.installEventFilter(this); }
  int Count() const { return count_; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count_;
    return false;
  }

 private:
  int count_ = 0;
};

/// Runs the message loop until the view has painted what is there now.
void FinishPainting(CMapView& view) {
  const PaintCount paints(*view.viewport());
  view.viewport()->update();
  while (paints.Count() == 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// File New, run until the map of the choice is filled and painted.
void MakeNewMap(WholeEditor& editor) {
  editor.App().OnFileNew();
  while (editor.App().IsBusy() || !editor.Document().m_pGrid ||
         editor.Document().m_pGrid->Count() < kCells - kSide * 10) {  // borders between regions may be empty
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  FinishPainting(editor.View());
}

/// From Finish of the wizard to the whole map filled and painted. Argument: cell size.
void NewMap(benchmark::State& state) {
  double slowestAnswer = 0;
  for (auto _ : state) {
    std::chrono::steady_clock::time_point finished;
    WholeEditor* application = nullptr;
    std::optional<ClickWatch> clicks;
    WholeEditor editor(kDefinitions, [&](const ClassDef& cellClass) {
      application->View().SetCellSize(static_cast<float>(state.range(0)));
      QCoreApplication::processEvents();
      clicks.emplace();
      finished = std::chrono::steady_clock::now();
      return WholeChoice(cellClass);
    });
    application = &editor;
    MakeNewMap(editor);
    state.SetIterationTime(
        std::chrono::duration<double>(std::chrono::steady_clock::now() - finished).count());
    slowestAnswer = std::max(slowestAnswer, clicks->LongestSeconds());
  }
  state.SetItemsProcessed(state.iterations() * kCells);
  state.counters["slowest answer ms"] = slowestAnswer * 1e3;
}
BENCHMARK(NewMap)->ArgName("px")->Arg(10)->Arg(100)->Iterations(1)->UseManualTime()->Unit(
    benchmark::kMillisecond);

/// A million changed cells of a map in sight, told to the view as a fill tells them, frames included.
void TellOfAllCells(benchmark::State& state) {
  WholeEditor editor(kDefinitions, WholeChoice);
  MakeNewMap(editor);
  editor.View().SetCellSize(kSmallCellPx);
  FinishPainting(editor.View());
  double slowestAnswer = 0;
  for (auto _ : state) {
    ClickWatch clicks;
    CVastrelDoc& document = editor.Document();
    LoopFeedback steps(editor.GetFeedback());
    for (auto record = document.m_pGrid->Following(-1); record;
         record = document.m_pGrid->Following(record->index)) {
      document.OnCellChanged(*record);
      steps.Step([](Feedback&) {});
    }
    slowestAnswer = std::max(slowestAnswer, clicks.LongestSeconds());
  }
  state.SetItemsProcessed(state.iterations() * kCells);
  state.counters["slowest answer ms"] = slowestAnswer * 1e3;
}
BENCHMARK(TellOfAllCells)->Unit(benchmark::kMillisecond);

void MoveTo(CMapView& view, CellCoord cell, QEvent::Type type = QEvent::MouseMove) {
  const PixelPoint middle = CellMetrics::At(view.CellSize()).Outline(cell)[6];
  const QPoint place = QPoint(middle.x, middle.y) - view.ScrollPosition();
  const bool moves = type == QEvent::MouseMove;
  QMouseEvent event(type, place, view.viewport()->mapToGlobal(place), moves ? Qt::NoButton : Qt::LeftButton,
                    type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(view.viewport(), &event);
  QCoreApplication::processEvents();
}

/// A drag that paints 500 cells one after the other; what a move takes until it is on the screen.
void PaintByDrag(benchmark::State& state) {
  constexpr int kMoves = 500;
  constexpr int kRowCells = 200;
  WholeEditor editor(kDefinitions, WholeChoice);
  MakeNewMap(editor);
  CMapView& view = editor.View();
  view.SetCellSize(kSmallCellPx);
  FinishPainting(view);
  SelectTool(editor.Document(), kCellPropertyTool);
  ShowPaintEditor(editor.Document(), 1);
  std::vector<double> moves;
  for (auto _ : state) {
    MoveTo(view, {4, 4}, QEvent::MouseButtonPress);
    for (int move = 0; move < kMoves; ++move) {
      const CellCoord cell = {5 + move % kRowCells, 4 + move / kRowCells};
      moves.push_back(SecondsOf([&] { MoveTo(view, cell); }));
    }
    MoveTo(view, {4, 4}, QEvent::MouseButtonRelease);
  }
  state.SetItemsProcessed(state.iterations() * kMoves);
  state.counters["move ms"] = Median(moves) * 1e3;
  state.counters["slowest move ms"] = *std::ranges::max_element(moves) * 1e3;
}
BENCHMARK(PaintByDrag)->Unit(benchmark::kMillisecond);

/// The filter's page of a class with 200 members, the first of which has 500 values, until it is painted.
void OpenFilterPage(benchmark::State& state) {
  constexpr int kMembers = 200;
  constexpr int kValues = 500;
  ClassDef cellClass("Cell");
  CPropertySettingList filter;
  for (int member = 0; member < kMembers; ++member) {
    filter.Add(cellClass.AddMember(std::make_unique<IntMember>("member " + std::to_string(member))),
               CoverageControl::Button);
  }
  for (int value = 0; value < kValues; ++value)
    filter.GetSettings().front()->AppendValue(100.0F / kValues).StoreText(std::to_string(value));

  WindowMapDialogs dialogs(nullptr);
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    QTimer::singleShot(0, [&] {
      auto* page = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      page->repaint();
      state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
      page->reject();
    });
    dialogs.ChooseFilter(&filter, &cellClass);
  }
}
BENCHMARK(OpenFilterPage)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorvel

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Quorvel"));
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
