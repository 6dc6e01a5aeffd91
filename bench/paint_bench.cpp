#include <array>
#include <string>

#include <QGuiApplication>
#include <QImage>

#include "bench/bare_copy.h"
#include "data/index_member.h"
#include "data/number_members.h"
#include "data/string_member.h"
#include "map/types/map_contents.h"
#include "platform/documents/feedback.h"
#include "render/map_painter.h"
#include "render/picture.h"

namespace quorvel {
namespace {

constexpr int kFrameWidth = 1920;
constexpr int kFrameHeight = 1080;

ListDef* AddColours(MapContents& map, const char* name, std::initializer_list<std::uint32_t> colours) {
  ListDef* list = map.m_pTypes->Add(std::make_unique<ListDef>(name));
  for (const std::uint32_t colour : colours) {
    list->AddItemName("item " + std::to_string(list->CountItems()));
    list->AddItemValue(colour);
  }
  return list;
}

/// Every cell has a name, a number, a weight and a kind; one in 16 is marked.
MapContents FullMap(int side) {
  MapContents map;
  ListDef* kinds = AddColours(map, "Kind", {0x1f77b4, 0xff7f0e, 0x2ca02c, 0xd62728, 0x9467bd, 0x8c564b});
  map.m_pCellClass = map.m_pTypes->Add(std::make_unique<ClassDef>("Cell"));
  MemberDef* name = map.m_pCellClass->AddMember(std::make_unique<StringMember>("Name"));
  MemberDef* count = map.m_pCellClass->AddMember(std::make_unique<IntMember>("Count"));
  MemberDef* weight = map.m_pCellClass->AddMember(std::make_unique<FloatMember>("Weight"));
  MemberDef* kind = map.m_pCellClass->AddMember(std::make_unique<IndexMember>("Kind", kinds));
  MakeGrid(map, side, side);
  for (int index = 0; index < map.m_pGrid->CellCount(); ++index) {
    const auto record = CreateCell(map, map.m_pGrid->CoordOf(index));
    const auto draw = [index](int salt, int values) {
      return std::to_string((static_cast<std::uint32_t>(index) * 2654435761U >> salt) % values);
    };
    name->StoreText(name->GetValuePtr(record->data), "star " + draw(16, 200));
    count->StoreText(count->GetValuePtr(record->data), draw(14, 100));
    weight->StoreText(weight->GetValuePtr(record->data), draw(12, 400) + ".25");
    kind->StoreText(kind->GetValuePtr(record->data), draw(10, 6));
    map.m_pCellMarks[static_cast<std::size_t>(index)] = index * 7 % 16 == 0 ? 1 : 0;
  }
  return map;
}

/// A whole repaint of a window, labels included. Argument: cell size.
void Repaint(benchmark::State& state) {
  static const MapContents map = FullMap(300);
  MapLook look;
  look.cellSizePx = static_cast<float>(state.range(0));
  look.fillMember = look.outlineMember = map.m_pCellClass->FindMember("Kind");
  QImage frame(kFrameWidth, kFrameHeight, QImage::Format_RGB32);
  MapPainter painter;
  painter.Paint(map, look, frame, 0, 0, frame.rect());

  const CellMetrics metrics = CellMetrics::At(look.cellSizePx);
  const std::size_t cells = static_cast<std::size_t>(kFrameWidth) * kFrameHeight /
                            static_cast<std::size_t>(metrics.columnStep * metrics.height);
  BesideCopy beside(state, cells, static_cast<std::size_t>(frame.sizeInBytes()));
  for (auto _ : state) beside.Time([&] { painter.Paint(map, look, frame, 300, 300, frame.rect()); });
}
BENCHMARK(Repaint)->ArgName("px")->Arg(10)->Arg(20)->Arg(40)->Arg(100)->UseManualTime()->Unit(
    benchmark::kMillisecond);

/// One changed cell in a window. Argument: cell size.
void RepaintCell(benchmark::State& state) {
  static const MapContents map = FullMap(300);
  MapLook look;
  look.cellSizePx = static_cast<float>(state.range(0));
  look.fillMember = look.outlineMember = map.m_pCellClass->FindMember("Kind");
  QImage frame(kFrameWidth, kFrameHeight, QImage::Format_RGB32);
  MapPainter painter;
  const MapRect ink = CellInk(look, {5, 5});
  const QRect area(static_cast<int>(ink.left), static_cast<int>(ink.top), static_cast<int>(ink.Width()),
                   static_cast<int>(ink.Height()));
  for (auto _ : state) painter.Paint(map, look, frame, 0, 0, area);
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(RepaintCell)->ArgName("px")->Arg(10)->Arg(100);

/// Takes any number of bytes and keeps none.
class Sink : public std::streambuf {
 protected:
  std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

/// A picture file of the whole map. Arguments: side in cells, cell size.
void Png(benchmark::State& state) {
  const MapContents map = FullMap(static_cast<int>(state.range(0)));
  PictureRequest request;
  request.cellSizePx = static_cast<float>(state.range(1));
  const MapRect extent = MapExtent(*map.m_pGrid, request.cellSizePx);
  NullFeedback feedback;
  std::string errorText;
  BesideCopy beside(state, static_cast<std::size_t>(map.m_pGrid->CellCount()),
                    static_cast<std::size_t>(extent.Width() * extent.Height() * 3));
  for (auto _ : state) {
    Sink sink;
    beside.Time([&] { RenderPng(map, request, sink, feedback, errorText); });
  }
}
BENCHMARK(Png)
    ->ArgNames({"side", "px"})
    ->Args({100, 40})
    ->Args({100, 100})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorvel

// Labels need fonts, and fonts need an application.
int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
