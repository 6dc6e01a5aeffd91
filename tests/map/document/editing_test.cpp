#include "map/document/editing.h"

#include <gmock/gmock.h>

#include "map/document/paint_tool.h"
#include "map/document/vastrel_doc.h"
#include "tests/map/map_samples.h"
#include "tests/map/scripted_services.h"
#include "tests/platform/text_document.h"

namespace quorvel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StatusFeedback : public NullFeedback {
 public:
  void SetStatusText(std::string_view text) override { texts.emplace_back(text); }
  std::vector<std::string> texts;
};

/// A document of a 4 x 3 map with a property of every kind, and one view on it.
class Editing : public testing::Test {
 protected:
  Editing() : document(services) {
    document.Adopt(EmptySampleMap(4, 3));
    document.AddView(view);
    view.hints.clear();
  }

  void Press(CellCoord cell) {
    SetCurrentCell(document, &cell);
    ApplyTool(document, ToolPhase::Pressed);
  }
  void Drag(CellCoord cell) {
    SetCurrentCell(document, &cell);
    ApplyTool(document, ToolPhase::Moved);
  }
  std::string Marks() const {
    std::string marks;
    for (std::int32_t index = 0; index < 12; ++index)
      marks += IsMarked(document, document.m_pGrid->CoordOf(index)) != 0 ? '#' : '.';
    return marks;
  }
  std::vector<std::string> TakeHints() { return view.TakeHints(); }

  StatusFeedback feedback;
  ScriptedServices world;
  Services services{world.prompts,     feedback,       world.mapDialogs,
                    world.toolOptions, world.settings, world.clock};
  CVastrelDoc document;
  LoggingView view;
};

TEST_F(Editing, TheCurrentCellIsShownAndToldOnce) {
  const CellCoord first{2, 1}, outside{-1, -1};
  EXPECT_TRUE(SetCurrentCell(document, &first));
  EXPECT_FALSE(SetCurrentCell(document, &first)) << "the same cell again";
  EXPECT_FALSE(SetCurrentCell(document, nullptr)) << "clears the text, keeps the cell";
  EXPECT_EQ(*document.m_pCurrentCell, first);
  EXPECT_TRUE(SetCurrentCell(document, &outside));
  EXPECT_THAT(feedback.texts, ElementsAre("6(2:1)", "", ""));
  EXPECT_THAT(TakeHints(), ElementsAre("current 2:1 from -1:-1", "current -1:-1 from 2:1"));
}

TEST_F(Editing, NothingHappensWithoutAGrid) {
  document.m_pGrid.reset();
  document.m_pCellMarks.reset();
  const CellCoord cell{0, 0};
  for (const CellCoord* none : {&cell, static_cast<const CellCoord*>(nullptr)})
    EXPECT_FALSE(SetCurrentCell(document, none));
  EXPECT_THAT(feedback.texts, IsEmpty());
  *document.m_pCurrentCell = cell;
  for (const int tool : {kCellPropertyTool, kPointerTool}) {
    SelectTool(document, tool);
    ApplyTool(document, ToolPhase::Pressed);
  }
  OnEditSelectAll(document);
  OnEditDeselect(document);
  SetMark(document, cell, 1);
  EXPECT_EQ(IsMarked(document, cell), 0);
  EXPECT_THAT(TakeHints(), ElementsAre("tool", "tool"));
  EXPECT_FALSE(document.IsModified());
}

TEST_F(Editing, ADragMarksOrUnmarksLikeItsFirstCell) {
  Press({1, 0});
  Drag({2, 0});
  Drag({2, 1});
  ApplyTool(document, ToolPhase::Released);
  EXPECT_EQ(Marks(), ".##...#.....");
  TakeHints();

  Press({2, 0});  // marked: this drag unmarks
  Drag({1, 0});
  Drag({0, 0});  // was never marked
  EXPECT_EQ(Marks(), "......#.....");
  EXPECT_THAT(TakeHints(), ElementsAre("current 2:0 from 2:1", "cell 2:0", "current 1:0 from 2:0", "cell 1:0",
                                       "current 0:0 from 1:0"));
  Press({});  // outside counts as unmarked: the drag marks
  Drag({3, 2});
  EXPECT_EQ(Marks(), "......#....#");
  EXPECT_FALSE(document.IsModified());
}

TEST_F(Editing, OnlyTheMarkBitOfAMarkIsChanged) {
  SetMark(document, {1, 1}, 0xF0);
  OnEditSelectAll(document);
  EXPECT_EQ(IsMarked(document, {1, 1}), 0xF1);
  EXPECT_EQ(Marks(), "############");
  OnEditDeselect(document);
  EXPECT_EQ(IsMarked(document, {1, 1}), 0xF0);
  EXPECT_THAT(TakeHints(), ElementsAre("all", "all"));
  SetMark(document, {4, 0}, 1);  // outside
  EXPECT_EQ(IsMarked(document, {0, 1}), 0);
}

TEST_F(Editing, ToolsAndTheirCursors) {
  EXPECT_EQ(SelectTool(document, kCellPropertyTool), 1);
  EXPECT_EQ(document.m_hToolCursor, ToolCursor::Paint);
  EXPECT_EQ(document.m_pPaintMember, document.m_pCellClass->FindMember("Name"));
  EXPECT_THAT(TakeHints(), ElementsAre("tool"));
  EXPECT_EQ(SelectTool(document, 7), 7);
  EXPECT_EQ(document.m_hToolCursor, ToolCursor::Paint) << "an unknown tool changes its number only";
  EXPECT_THAT(TakeHints(), IsEmpty());
  Press({1, 1});
  EXPECT_EQ(document.m_pGrid->Count(), 0);
  EXPECT_EQ(Marks(), "............");
  EXPECT_EQ(SelectTool(document, kPointerTool), 0);
  EXPECT_EQ(document.m_hToolCursor, ToolCursor::Pointer);
}

}  // namespace
}  // namespace quorvel
