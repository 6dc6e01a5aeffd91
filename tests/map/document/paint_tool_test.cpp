#include "map/document/paint_tool.h"

#include <gmock/gmock.h>

#include "map/document/editing.h"
#include "map/document/vastrel_doc.h"
#include "map/types/definitions.h"
#include "map/types/member_editors.h"
#include "tests/map/failing_memory.h"
#include "tests/map/map_samples.h"
#include "tests/map/scripted_services.h"
#include "tests/platform/temp_folder.h"
#include "tests/platform/text_document.h"

namespace quorvel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CMemberEdit& EditBox(const CVastrelDoc& document, const char* member) {
  return dynamic_cast<CMemberEdit&>(*EditorOf(*Member(document, member)));
}
CMemberCombo& ComboBox(const CVastrelDoc& document, const char* member) {
  return dynamic_cast<CMemberCombo&>(*EditorOf(*Member(document, member)));
}

/// A document of a 4 x 3 map with a property of every kind: Name, Count, Weight, Kind, Part.
class PaintTool : public testing::Test {
 protected:
  PaintTool() : document(world.services) {
    document.Adopt(EmptySampleMap(4, 3));
    document.AddView(view);
    document.SetModifiedFlag(false);
  }

  void Choose(const char* member) {
    const auto& members = document.m_pCellClass->Members();
    for (int position = 0; position < static_cast<int>(members.size()); ++position)
      if (members[position]->GetName() == member)
        OnToolOptionsCommand(document, kToolCombo, kSelectionChanged, position);
  }
  void Paint(CellCoord cell, ToolPhase phase = ToolPhase::Pressed) {
    SetCurrentCell(document, &cell);
    view.hints.clear();
    ApplyTool(document, phase);
  }
  int ShownEditor() const { return EditorOf(*document.m_pPaintMember)->GetControlId(); }

  ScriptedServices world;
  CVastrelDoc document;
  LoggingView view;
};

TEST_F(PaintTool, EditorsAreCreatedOnceWithTheDefaults) {
  EXPECT_THAT(document.m_editors, IsEmpty());
  SelectTool(document, kCellPropertyTool);
  EXPECT_EQ(EditBox(document, "Weight").GetText(), "1.500000");
  EXPECT_THAT(ComboBox(document, "Kind").GetNames(), ElementsAre("dust", "star", "hole"));
  EXPECT_THAT(ComboBox(document, "Part").GetNames(), ElementsAre("Size"));
  EXPECT_EQ(ComboBox(document, "Part").GetSelection(), 0);

  std::vector<std::string> names;
  for (const MemberDef* member : document.m_editors) names.push_back(member->GetName());
  EXPECT_THAT(names, ElementsAre("Name", "Count", "Part", "Size", "Weight", "Kind"));
  EXPECT_EQ(FindEditor(document, 10001), &EditBox(document, "Name"));
  EXPECT_EQ(FindEditor(document, 10003), &ComboBox(document, "Part"));
  EXPECT_FALSE(FindEditor(document, 10007));

  EditBox(document, "Count").SetText("8");
  SelectTool(document, kPointerTool);
  SelectTool(document, kCellPropertyTool);
  EXPECT_EQ(EditBox(document, "Count").GetText(), "8");
  EXPECT_EQ(document.m_editors.size(), 6U);
}

TEST_F(PaintTool, ShowsTheEditorOfThePaintedMember) {
  SelectTool(document, kCellPropertyTool);
  Choose("Weight");
  for (const int position : {-1, 5}) OnToolOptionsCommand(document, kToolCombo, kSelectionChanged, position);
  OnToolOptionsCommand(document, kToolCombo + 1, kSelectionChanged, 0);
  OnToolOptionsCommand(document, kToolCombo, kSelectionChanged + 1, 0);
  SelectTool(document, kPointerTool);
  SelectTool(document, kCellPropertyTool);
  EXPECT_EQ(document.m_nPaintIndex, 3) << "what is not handled changes nothing, the last member comes back";
  EXPECT_EQ(ShownEditor(), 10005);
}

TEST_F(PaintTool, EveryKindIsPaintedAsItConverts) {
  // A member, the text or position in its editor, and the value that is painted.
  constexpr std::tuple<const char*, const char*, const char*> rows[] = {
      {"Name", "Vega", "Vega"},  {"Name", "", ""},        {"Count", "7x", "7"},
      {"Count", "x7", "0"},      {"Kind", "2", "hole"},   {"Weight", " 2.5deg", "2.500000"},
      {"Kind", "-1", "<error>"}, {"Kind", "4", "<error>"}};
  SelectTool(document, kCellPropertyTool);
  for (const auto& [member, edited, painted] : rows) {
    SCOPED_TRACE(std::string(member) + " " + edited);
    Choose(member);
    if (auto* box = dynamic_cast<CMemberEdit*>(EditorOf(*Member(document, member))))
      box->SetText(edited);
    else
      ComboBox(document, member).SetSelection(std::stoi(edited));
    document.SetModifiedFlag(false);
    Paint({2, 1});
    EXPECT_EQ(ValueText(document, 6, member), painted);
    EXPECT_TRUE(document.IsModified());
    EXPECT_THAT(view.hints, ElementsAre("cell 2:1"));
  }
  EXPECT_EQ(document.m_pGrid->Count(), 1);
}

TEST_F(PaintTool, AnObjectMemberMakesTheRecordAndStoresNothing) {
  SelectTool(document, kCellPropertyTool);
  Choose("Part");
  Paint({4, 0});
  EXPECT_EQ(document.m_pGrid->Count(), 0) << "outside the map";
  EXPECT_FALSE(document.IsModified());
  Paint({3, 2});
  EXPECT_EQ(ValueText(document, 11, "Count"), "5") << "a new record holds the defaults";
  EXPECT_THAT(view.hints, IsEmpty());
  EXPECT_TRUE(document.IsModified());
}

TEST_F(PaintTool, WantOfMemoryEndsTheStrokeAndLeavesTheCell) {
  constexpr const char* kText = "a text too long to lie within a string";
  const TempFolder folder;
  for (const bool isKept : {false, true}) {
    SCOPED_TRACE(isKept ? "kept safe from a crash" : "not kept");
    world.services.journalsFolder = isKept ? folder / "journals" : "";
    std::unique_ptr<CVastrelDoc> fresh;
    const auto begin = [&] {
      fresh = std::make_unique<CVastrelDoc>(world.services);
      fresh->Adopt(EmptySampleMap(4, 3));
      SelectTool(*fresh, kCellPropertyTool);
      EditBox(*fresh, "Name").SetText(kText);
      constexpr CellCoord kCell{1, 1};
      SetCurrentCell(*fresh, &kCell);
    };
    begin();
    const auto paint = [&] {
      ApplyTool(*fresh, ToolPhase::Pressed);
      return world.prompts.messages.empty();
    };
    const auto check = [&](bool isDone) {
      EXPECT_EQ(ValueText(*fresh, 5, "Name"), isDone ? kText : "-");
      EXPECT_EQ(fresh->IsModified(), isDone);
      if (!isDone) {
        EXPECT_THAT(world.prompts.TakeMessages(),
                    ElementsAre("Map file error:\n\nThere is not enough memory to paint the cell.\n"));
        constexpr CellCoord kNext{2, 1};
        SetCurrentCell(*fresh, &kNext);
        ApplyTool(*fresh, ToolPhase::Moved);
        EXPECT_EQ(fresh->m_pGrid->Count(), 0);
      }
      fresh->OnCloseDocument();
      begin();
    };
    EXPECT_GT(RefusalsOf(paint, check), 2);
  }
}

TEST(MemberEditors, ComeWithTheDefinitionsOnceForMembersThatShareAClass) {
  DataBranch file("");
  std::stringbuf text(
      Lines("[Classes/Cell] type='class' [Classes/Cell/Self] type='object' range='Cell' "
            "[Classes/Cell/Name] type='string'"));
  file.ReadText(&text);
  MapContents contents;
  std::string errorText;
  BuildTypes(file, contents, errorText);
  ASSERT_TRUE(contents.m_pCellClass);
  const auto& members = contents.m_pCellClass->Members();
  ASSERT_EQ(members.size(), 2U);
  ASSERT_TRUE(EditorOf(*members[1]));
  const MemberEditor* before = EditorOf(*members[0]);
  AttachEditor(*members[0]);
  EXPECT_EQ(EditorOf(*members[0]), before);

  int lastControl = 10000;
  std::vector<MemberDef*> created;
  for (const auto& member : members) CreateEditors(*member, lastControl, created);
  EXPECT_EQ(lastControl, 10002);
  EXPECT_THAT(created, ElementsAre(members[0].get(), members[1].get()));
}

}  // namespace
}  // namespace quorvel
