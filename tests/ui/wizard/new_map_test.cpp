// New maps through the windows: type, definitions, wizard, fill.

#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QScrollBar>
#include <QSlider>

#include "map/document/editing.h"
#include "tests/ui/editor.h"
#include "tests/ui/modal_script.h"
#include "tests/ui/wizard/cell_page_run.h"

namespace quorvel {
namespace {

constexpr char kDefinitions[] =
    "[Classes/Terrain] type='index' 0='Rock' 1='Ice' 2='Gas' [Classes/Map] type='class' [Classes/Map/Width] "
    "type='int' range='1<5<1000' [Classes/Map/Height] type='int' range='1<6<1000' [Classes/Cell] "
    "type='class' "
    "[Classes/Cell/Ground] type='index' range='Terrain' [Classes/Cell/Count] type='int' range='0<7<99'";

/// What the journey below enters, as the batch tool is told it.
constexpr char kSettings[] =
    "[Fill] Width=12 Height=9 Seed=4711 [Fill/Global/0] member='Ground' coverage=80 [Fill/Global/0/Values/0] "
    "value=0 share=60 [Fill/Global/0/Values/1] value=2 share=40 [Fill/Region/0] member='Count' "
    "[Fill/Region/0/Values/0] value=21 x=20 y=60 [Fill/Region/0/Values/1] value=7 x=50 y=50";

void ChooseProductMap(QDialog& dialog) {
  auto* types = FindControl<QListWidget>(dialog, IDC_NEW_TYPES);
  ASSERT_TRUE(types) << dialog.windowTitle().toStdString();
  PressKey(*types, Qt::Key_Down);
  Press(dialog, IDOK);
}

void EnterSize(QDialog& wizard, int right, int down) {
  PressKey(*FindControl<QSlider>(wizard, IDC_WIDTH_SLIDER), Qt::Key_Right, right);
  PressKey(*FindControl<QSlider>(wizard, IDC_HEIGHT_SLIDER), Qt::Key_Right, down);
}

void EnterGlobalSettings(CellPageDriver page) {
  PressKey(page.Coverage(), Qt::Key_PageDown);
  page.Add(2);
  page.Choose(1);
  EXPECT_EQ(page.Coverage().value(), 100);
  EXPECT_EQ(page.Shares(), "");
  page.Choose(0);
  EXPECT_EQ(page.Coverage().value(), 80) << "each property keeps its own";
  PressKey(*page.ShownShares()[1], Qt::Key_PageUp, 2);
  PressKey(page.Values(), Qt::Key_Down, 2);
  PressKey(page.Values(), Qt::Key_F2);
  page.ChooseName(2);
}

void EnterRegionSettings(CellPageDriver page) {
  page.Choose(1);
  page.Add(2);
  PressKey(page.Picker(), Qt::Key_Left, 3, Qt::ShiftModifier);
  PressKey(page.Picker(), Qt::Key_Down, 10);
  PressKey(page.Values(), Qt::Key_F2);
  ASSERT_TRUE(page.Editor());
  QTest::keyClicks(page.Editor(), "21");  // and the wizard ends while it is being typed
}

void Finish(QDialog& wizard) {
  while (FindControl<QAbstractButton>(wizard, ID_WIZNEXT)->isVisible()) Press(wizard, ID_WIZNEXT);
  Press(wizard, ID_WIZFINISH);
}

void RunWizard(QDialog& wizard) {
  EnterSize(wizard, 7, 3);
  Press(wizard, ID_WIZNEXT);
  EnterGlobalSettings(CellPageDriver(wizard));
  Press(wizard, ID_WIZNEXT);
  EnterRegionSettings(CellPageDriver(wizard));
  Finish(wizard);
}

std::string OnlyFileIn(const std::string& folder) {
  const std::filesystem::directory_iterator files(folder);
  EXPECT_EQ(std::distance(begin(files), end(files)), 1);
  return std::filesystem::directory_iterator(folder)->path();
}

TEST(NewMap, TheBatchToolMakesTheSameMapFromTheKeptSettings) {
  Editor editor(Answers::InWindows);
  editor.GiveDefinitions(Lines(kDefinitions));
  WhenModals({ChooseProductMap, RunWizard});
  editor.Run(ID_FILE_NEW);
  CVastrelDoc& document = *editor.View().Document();
  ASSERT_TRUE(document.m_pGrid);
  EXPECT_TRUE(document.IsModified());
  ASSERT_TRUE(document.OnSaveDocument(editor.folder / "made.vrl"));

  const std::string settings = editor.folder.Write("settings.txt", Lines(kSettings));
  const std::vector<std::string> rows[] = {
      {"new", "--settings", OnlyFileIn(editor.folder / "fills"), editor.folder / "again.vrl"},
      {"new", "--definitions", editor.folder / "Definitions.txt", "--settings", settings,
       editor.folder / "again.vrl"}};
  for (const auto& arguments : rows) {
    SCOPED_TRACE(arguments[1]);
    const ToolRun run = RunMapTool(arguments);
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(editor.folder.Read("again.vrl"), editor.folder.Read("made.vrl"));
  }
}

TEST(NewMap, ACancelledWizardLeavesTheEmptyMap) {
  Editor editor(Answers::InWindows);
  editor.GiveDefinitions(Lines(kDefinitions));
  WhenModals({ChooseProductMap, [](QDialog& wizard) {
                EnterSize(wizard, 7, 3);
                Press(wizard, IDCANCEL);
              }});
  editor.Run(ID_FILE_NEW);
  const CVastrelDoc& document = *editor.View().Document();
  ASSERT_TRUE(document.m_pGrid);
  EXPECT_EQ(document.m_pGrid->Width(), 5);
  EXPECT_EQ(document.m_pGrid->Height(), 6);
  EXPECT_EQ(document.m_pGrid->Count(), 0);
  EXPECT_FALSE(document.IsModified());
  const QScrollBar& down = *editor.View().verticalScrollBar();
  EXPECT_EQ(down.singleStep(), 100) << "the view was told of the grid";
  EXPECT_EQ(down.maximum(), std::max(0, 650 - editor.View().viewport()->height()));
  EXPECT_EQ(editor.Frame().ToolOptionsBar().MemberCombo().count(), 2) << "the bar knows the new members";
}

TEST(NewMap, AsksWhereTheDefinitionsAre) {
  Editor editor(Answers::InWindows);
  const std::string file = editor.folder.Write("mine.txt", Lines(kDefinitions));
  WhenModals({ChooseProductMap,
              [](QDialog& dialog) {
                const auto* box = qobject_cast<QMessageBox*>(&dialog);
                ASSERT_TRUE(box);
                EXPECT_EQ(box->icon(), QMessageBox::NoIcon);
                box->button(QMessageBox::Ok)->click();
              },
              [&](QDialog& dialog) { NameFile(dialog, file); },
              [](QDialog& wizard) { Press(wizard, IDCANCEL); }});
  editor.Run(ID_FILE_NEW);
  EXPECT_TRUE(editor.View().Document()->m_pGrid);
}

/// Counts the paint events of a widget.
class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint;
    return false;
  }
};

TEST(NewMap, TheWindowLivesWhileTheMapIsFilled) {
  Editor editor(Answers::InWindows);
  std::string large = Lines(kDefinitions);
  for (const char* side : {"<5<", "<6<"}) large.replace(large.find(side), 3, "<400<");
  editor.GiveDefinitions(large);
  WhenModals({ChooseProductMap, [](QDialog& wizard) {
                Press(wizard, ID_WIZNEXT);
                CellPageDriver(wizard).Add();
                Finish(wizard);
              }});

  int looks = 0;
  std::unique_ptr<PaintCount> paints;
  QTimer whileFilling;
  QObject::connect(&whileFilling, &QTimer::timeout, [&] {
    if (QApplication::activeModalWidget() || !editor.app.IsBusy()) return;
    if (!paints) paints = std::make_unique<PaintCount>(*editor.View().viewport());
    if (!editor.Pane(ID_SEPARATOR).startsWith("Filling Map (cell ") || ++looks != 3) return;
    EXPECT_TRUE(editor.Frame().findChild<QProgressBar*>()->isVisible());
    for (const int command :
         {ID_FILE_NEW, ID_FILE_OPEN, ID_FILE_SAVE, ID_FILE_SAVE_AS, ID_FILE_CLOSE, ID_FILE_PRINT,
          ID_FILE_PRINT_PREVIEW, ID_VIEW_FILTER, ID_EDIT_SELECT_ALL, ID_TOOL_CELL_PROPERTY, ID_APP_EXIT})
      EXPECT_FALSE(editor.Action(command).isEnabled()) << command;
    EXPECT_TRUE(QGuiApplication::overrideCursor());
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    editor.app.OnIdle();
    EXPECT_FALSE(editor.Frame().close());
    EXPECT_FALSE(editor.Frame().ActiveFrame()->close());
    editor.Action(ID_ZOOM_OUT).trigger();
    EXPECT_EQ(editor.View().CellSize(), 90);
    editor.PressAt(editor.Middle({2, 1}));
    editor.Release(editor.Middle({2, 1}));
    EXPECT_EQ(editor.Pane(ID_INDICATOR_POSITION), "402(2:1)");
  });
  whileFilling.start(1);
  editor.Run(ID_FILE_NEW);
  EXPECT_GT(looks, 3);
  EXPECT_FALSE(QGuiApplication::overrideCursor());
  ASSERT_TRUE(paints);
  EXPECT_GT(paints->count, 0);

  const CVastrelDoc& document = *editor.View().Document();
  EXPECT_EQ(document.m_pGrid->Count(), 400 * 400);
  EXPECT_EQ(IsMarked(document, {2, 1}), 0) << "edits were refused";
  EXPECT_EQ(editor.Pane(ID_SEPARATOR), "");
  EXPECT_FALSE(editor.Frame().findChild<QProgressBar*>()->isVisible());
  EXPECT_TRUE(editor.Action(ID_FILE_SAVE).isEnabled());
}

}  // namespace
}  // namespace quorvel
