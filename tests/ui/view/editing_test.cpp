// Editing by hand: tools, property editors, filter, the form of a saved map.

#include "map/document/editing.h"

#include <QAccessible>
#include <QListWidget>

#include "map/document/paint_tool.h"
#include "map/fill/map_filter.h"
#include "map/types/member_editors.h"
#include "tests/map/map_samples.h"
#include "tests/ui/editor.h"
#include "tests/ui/modal_script.h"
#include "tests/ui/wizard/cell_page_run.h"

namespace quorvel {
namespace {

using enum CellPageRun::Row;
constexpr int kOwner = 2;  // of the editor's own maps

/// Takes the tool that paints and chooses a member in the bar, by keys.
void PaintWith(Editor& editor, int member) {
  editor.Run(ID_TOOL_CELL_PROPERTY);
  QComboBox& combo = editor.Frame().ToolOptionsBar().MemberCombo();
  PressKey(combo, Qt::Key_Home);
  PressKey(combo, Qt::Key_Down, member);
}

/// The property editor that the bar shows; the test fails unless it is the only one.
QWidget& Box(Editor& editor) {
  CToolOptionsBar& bar = editor.Frame().ToolOptionsBar();
  QList<QWidget*> shown;
  for (QWidget* control : bar.Controls().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (control->isVisible() && control != &bar.MemberCombo()) shown << control;
  }
  EXPECT_EQ(shown.size(), 1);
  return *shown.at(0);
}

void Replace(QWidget& box, const char* text) {
  dynamic_cast<QLineEdit&>(box).selectAll();
  QTest::keyClicks(&box, text);
}

TEST(Editing, EveryKindIsPaintedAlongADragAndSaved) {
  struct Row {
    int member;
    const char *name, *typed;            ///< null: a name is chosen with the key Down
    const char *painted, *trouble = "";  ///< what the box says of the typed text
  };
  // An object member stores nothing; a cell has no text for it.
  constexpr Row rows[] = {{kName, "Name", "Vega", "Vega"},
                          {kCount, "Count", "42", "42"},
                          {kCount, "Count", "12abc", "12", "No number: taken for 12"},
                          {kCount, "Count", "1,000", "1", "No number: taken for 1"},
                          {kWeight, "Weight", "2.5", "2.500000"},
                          {kWeight, "Weight", "warm", "0.000000", "No number: taken for 0"},
                          {kKind, "Kind", nullptr, "star"},
                          {kPart, "Part", nullptr, "<error>"}};
  Editor editor;
  CVastrelDoc& document = *editor.Open(
      editor.folder.Write("map.vrl", SampleClasses() + Lines("[Objects/Galaxy] Width=5 Height=8")));
  editor.View().SetCellSize(50);
  int line = 0;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.painted);
    PaintWith(editor, row.member);
    QWidget& box = Box(editor);
    EXPECT_EQ(box.geometry().left(), editor.Frame().ToolOptionsBar().MemberCombo().geometry().right() + 3);
    if (row.typed) {
      Replace(box, row.typed);
    } else {
      PressKey(box, Qt::Key_Down);
    }
    EXPECT_EQ(box.toolTip(), row.trouble);
    EXPECT_EQ(box.palette().color(QPalette::Text) == QApplication::palette().color(QPalette::Text),
              row.trouble == std::string_view());
    EXPECT_EQ(box.accessibleDescription(), row.name);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Help), row.trouble);

    document.SetModifiedFlag(false);
    editor.PressAt(editor.Middle({0, line}));
    for (const int column : {1, 2}) editor.MovePointer(editor.Middle({column, line}));
    editor.Release(editor.Middle({2, line}));
    editor.MovePointer(editor.Middle({3, line}));
    EXPECT_TRUE(document.IsModified());
    ++line;
  }
  editor.Run(ID_FILE_SAVE);
  EXPECT_FALSE(document.IsModified());

  std::filesystem::copy_file(editor.folder / "map.vrl", editor.folder / "copy.vrl");
  const CVastrelDoc& saved = *editor.Open(editor.folder / "copy.vrl");
  line = 0;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.painted);
    for (const int column : {0, 1, 2}) EXPECT_EQ(ValueText(saved, 5 * line + column, row.name), row.painted);
    EXPECT_EQ(ValueText(saved, 5 * line + 3, row.name), "-") << "the button was up";
    ++line;
  }
}

TEST(Editing, AFocusedEditBoxHasItsKeys) {
  Editor editor;
  const CVastrelDoc& document = *editor.OpenMap(4, 3);
  editor.Frame().activateWindow();
  QTest::keyClick(&editor.View(), Qt::Key_Minus);
  ASSERT_EQ(editor.View().CellSize(), 90) << "the keys are alive";
  const MemberDef* fill = editor.View().Look().fillMember;

  PaintWith(editor, kName);
  auto& box = dynamic_cast<QLineEdit&>(Box(editor));
  editor.View().setFocus();
  editor.Run(ID_PREV_PANE);
  QTest::keyClick(editor.Frame().focusWidget(), Qt::Key_Tab);
  ASSERT_TRUE(box.hasFocus()) << "the key Tab leads from the member to its value";
  box.clear();
  QTest::keyClicks(&box, "a+-=[]{}");
  EXPECT_EQ(box.text(), "a+-=[]{}");
  for (const auto& [key, text] : {std::pair{Qt::Key_A, "a+-=[]{}"},
                                  {Qt::Key_C, "a+-=[]{}"},
                                  {Qt::Key_X, ""},
                                  {Qt::Key_V, "a+-=[]{}"},
                                  {Qt::Key_Z, ""}}) {
    QTest::keyClick(&box, key, Qt::ControlModifier);
    EXPECT_EQ(box.text(), text) << "Ctrl+" << static_cast<char>(key);
  }
  EXPECT_EQ(editor.View().CellSize(), 90);
  EXPECT_EQ(editor.View().Look().fillMember, fill);
  EXPECT_EQ(IsMarked(document, {0, 0}), 0) << "Ctrl+A was the box's";
}

TEST(Editing, TheBoxesOfTheBarKeepWhatIsChosen) {
  Editor editor;
  ASSERT_TRUE(editor.OpenMap(4, 3));
  PaintWith(editor, kOwner);
  auto& value = dynamic_cast<QComboBox&>(Box(editor));
  QComboBox& member = editor.Frame().ToolOptionsBar().MemberCombo();
  const auto turnWheel = [](QComboBox& box) {
    const QPoint middle = box.rect().center();
    QWheelEvent event(middle, box.mapToGlobal(middle), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box, &event);
    return box.currentIndex();
  };
  editor.Frame().activateWindow();
  editor.View().setFocus();
  EXPECT_EQ(turnWheel(member), kOwner) << "rolled across";
  EXPECT_EQ(turnWheel(value), 0);
  for (const QComboBox* box : {&member, &value})
    EXPECT_EQ(box->focusPolicy(), Qt::StrongFocus) << "the wheel takes no keyboard";
  value.setFocus();
  EXPECT_EQ(turnWheel(value), 1) << "but turns the box that has it";

  editor.Run(ID_TOOL_POINTER);
  EXPECT_FALSE(member.isEnabled());
  EXPECT_TRUE(value.isVisible() && value.isEnabled()) << "the value for the next painting";
}

TEST(Editing, TheBarHoldsTheEditorsOfTheMapInFront) {
  Editor editor;
  const CVastrelDoc& first = *editor.Open(editor.WriteMap("a.vrl", 3, 3));
  PaintWith(editor, kName);
  Replace(Box(editor), "First");
  const QPointer<QWidget> firstBox = &Box(editor);
  const CVastrelDoc& second = *editor.Open(editor.WriteMap("b.vrl", 3, 3));
  EXPECT_TRUE(editor.Action(ID_TOOL_POINTER).isChecked()) << "the other map's tool";
  EXPECT_FALSE(editor.Frame().ToolOptionsBar().MemberCombo().isEnabled());
  PaintWith(editor, kName);
  EXPECT_EQ(dynamic_cast<QLineEdit&>(Box(editor)).text(), "Sol");
  EXPECT_EQ(Box(editor).objectName(), "10001");
  Replace(Box(editor), "Second");
  PaintWith(editor, kOwner);
  EXPECT_EQ(Box(editor).objectName(), "10003");
  editor.Run(ID_TOOL_POINTER);

  const auto textOf = [](const CVastrelDoc& document) {
    return dynamic_cast<const CMemberEdit&>(*FindEditor(document, 10001)).GetText();
  };
  EXPECT_EQ(textOf(first), "First");
  EXPECT_EQ(textOf(second), "Second");
  editor.Run(ID_FILE_CLOSE);
  EXPECT_TRUE(editor.Action(ID_TOOL_CELL_PROPERTY).isChecked());
  EXPECT_TRUE(editor.Frame().ToolOptionsBar().MemberCombo().isEnabled());
  EXPECT_EQ(dynamic_cast<QLineEdit&>(Box(editor)).text(), "First");
  editor.Run(ID_FILE_CLOSE);
  EXPECT_FALSE(firstBox);
  EXPECT_FALSE(editor.Frame().ToolOptionsBar().findChild<QLineEdit*>());
  EXPECT_EQ(editor.Frame().ToolOptionsBar().MemberCombo().count(), 0);
}

TEST(Editing, TheFilterFadesWhatFailsIt) {
  Editor editor(Answers::InWindows);
  const CVastrelDoc& document = *editor.OpenMap(4, 3);
  editor.MovePointer({-9, -9});
  editor.Settle();
  const auto looks = [&](CellCoord cell) {
    QRect middle(0, 0, 60, 60);
    middle.moveCenter(editor.Middle(cell));
    return editor.View().viewport()->grab(middle).toImage();
  };
  const QImage free = looks({0, 0}), taken = looks({1, 0});
  const auto addAurelia = [](QDialog& wizard) {
    CellPageDriver page(wizard);
    page.Choose(kOwner);
    page.Add();
    page.DoubleClickValue(0);
    page.ChooseName(1);
  };
  const auto filter = [&](ModalSteps steps, int end, bool isActive) {
    WhenModal([=](QDialog& wizard) {
      steps(wizard);
      Press(wizard, end);
    });
    editor.Run(ID_VIEW_FILTER);
    EXPECT_EQ(editor.Action(ID_VIEW_FILTER).isChecked(), isActive);
  };

  filter(addAurelia, IDCANCEL, false);
  EXPECT_FALSE(document.m_pFilter);
  filter(addAurelia, ID_WIZFINISH, true);
  ASSERT_TRUE(document.m_pFilter);
  EXPECT_NE(looks({0, 0}), free);
  EXPECT_EQ(looks({1, 0}), taken);
  EXPECT_FALSE(editor.View().Look().filter(*document.m_pGrid->Find(0))) << "printing looks the same way";
  EXPECT_TRUE(editor.View().Look().filter(*document.m_pGrid->Find(1)));

  const auto removeValue = [](QDialog& wizard) {
    CellPageDriver page(wizard);
    page.Choose(kOwner);
    page.ClickValue(0);
    Press(page.page, IDC_REMOVE_VALUES);
  };
  filter(removeValue, IDCANCEL, true);
  EXPECT_NE(looks({0, 0}), free) << "the page had a copy";
  const auto unselect = [](QDialog& wizard) {
    CellPageDriver page(wizard);
    page.Choose(kOwner);
    EXPECT_EQ(page.Text(0, 0), "Aurelia");
    QTest::mouseClick(&page.SelectButton(), Qt::LeftButton);
  };
  filter(unselect, ID_WIZFINISH, false);
  EXPECT_EQ(looks({0, 0}), free);
  EXPECT_FALSE(document.IsModified());
}

TEST(Editing, SaveAsAsksForTheFormOfAProductMap) {
  Editor editor(Answers::InWindows);
  const CVastrelDoc& document = *editor.OpenMap(3, 3);
  WhenModals({[](QDialog& dialog) {
                auto* forms = FindControl<QListWidget>(dialog, IDC_DATA_TYPE);
                ASSERT_TRUE(forms) << dialog.windowTitle().toStdString();
                EXPECT_EQ(forms->accessibleName(), "Data Type");
                PressKey(*forms, Qt::Key_Down);
                Press(dialog, IDOK);
              },
              [&](QDialog& dialog) { NameFile(dialog, editor.folder / "new.vrl"); }});
  editor.Run(ID_FILE_SAVE_AS);
  EXPECT_EQ(document.GetTitle(), "new.vrl");
  EXPECT_NE(editor.folder.Read("new.vrl").find("type=\"binary\""), std::string::npos);
}

}  // namespace
}  // namespace quorvel
