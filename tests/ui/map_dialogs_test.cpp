#include "ui/dialogs/map_dialogs.h"

#include <sstream>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QSlider>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include "data/text_reader.h"
#include "map/data_type.h"
#include "map/definitions.h"
#include "map/fill_settings.h"
#include "map/map_diff.h"
#include "map/map_fill.h"
#include "map/vastrel_doc.h"
#include "tests/platform/scripted_prompts.h"
#include "tests/platform/temp_folder.h"
#include "tests/ui/modal_script.h"
#include "tests/ui/planet_class.h"
#include "ui/resources/wizard_templates.h"
#include "ui/wizard/cell_properties_page.h"
#include "ui/wizard/map_wizard.h"
#include "ui/wizard/origin_picker.h"
#include "ui/wizard/share_slider.h"
#include "ui/wizard/value_list.h"

namespace quorvel {
namespace {

constexpr char kDefinitions[] = R"([Classes/Terrain]
type="index"
0="Rock"
1="Ice"
2="Gas"
[Classes/Map]
type="class"
[Classes/Map/Width]
type="int"
range="1<5<1000"
[Classes/Map/Height]
type="int"
range="1<6<1000"
[Classes/Cell]
type="class"
[Classes/Cell/Ground]
type="index"
range="Terrain"
[Classes/Cell/Count]
type="int"
range="0<7<99"
)";

/// What the journey below enters, as the batch tool would be told it.
constexpr char kSettings[] = R"([Fill]
Width=12
Height=9
Seed=4711
[Fill/Global/0]
member="Ground"
coverage=80
[Fill/Global/0/Values/0]
value=0
share=60
[Fill/Global/0/Values/1]
value=2
share=40
[Fill/Region/0]
member="Count"
[Fill/Region/0/Values/0]
value=21
x=20
y=60
[Fill/Region/0/Values/1]
value=7
x=50
y=50
)";

/// The text with the line ends of a file.
std::string FileText(std::string_view text) {
  std::string lines;
  for (const char c : text) {
    if (c == '\n') lines += '\r';
    lines += c;
  }
  return lines;
}

class NoToolOptions : public ToolOptions {
 public:
  void ShowTool(CVastrelDoc&) override {}
};

class FixedClock : public Clock {
 public:
  std::int64_t Seconds() const override { return 4711; }
};

/// A document whose dialogs are windows, with a definitions file of its own.
struct DocumentInWindows {
  DocumentInWindows() {
    settings.Set(std::string(kApplicationKey) + "\\Definitions", "DefaultFile",
                 folder.Write("Definitions.txt", FileText(kDefinitions)));
  }

  TempFolder folder;
  ScriptedPrompts prompts;
  NullFeedback feedback;
  WindowMapDialogs dialogs{nullptr};
  NoToolOptions toolOptions;
  SettingsStore settings{SettingsPlaces{}};
  FixedClock clock;
  Services services{prompts, feedback, dialogs, toolOptions, settings, clock, ""};
  CVastrelDoc document{services};
};

void PressKey(QWidget& widget, Qt::Key key, int times = 1, Qt::KeyboardModifiers modifiers = {}) {
  for (int i = 0; i < times; ++i) QTest::keyClick(&widget, key, modifiers);
  QApplication::processEvents();
}

template <class Control>
Control& Named(QWidget& page, const char* name, int which = 0) {
  QList<Control*> found;
  for (Control* control : page.findChildren<Control*>()) {
    if (control->accessibleName() == name && control->isVisible()) found += control;
  }
  EXPECT_GT(found.size(), which) << name;
  return *found[which];
}

CWizCellProperties& ActivePage(QDialog& wizard) {
  for (auto* page : wizard.findChildren<CWizCellProperties*>()) {
    if (page->isVisible()) return *page;
  }
  ADD_FAILURE() << "no cell page";
  return *wizard.findChild<CWizCellProperties*>();
}

void EnterSize(QDialog& wizard) {
  PressKey(Named<QSlider>(wizard, "Width"), Qt::Key_Right, 7);
  PressKey(Named<QSlider>(wizard, "Height"), Qt::Key_Right, 3);
}

void EnterGlobalSettings(QDialog& wizard) {
  CWizCellProperties& page = ActivePage(wizard);
  auto& values = Named<ValueList>(page, "Property Values");
  PressKey(Named<CShareSlider>(page, "Coverage"), Qt::Key_PageDown);
  Press(page, IDC_ADD_VALUE);
  Press(page, IDC_ADD_VALUE);
  PressKey(Named<CShareSlider>(page, "Share", 1), Qt::Key_PageUp, 2);
  PressKey(values, Qt::Key_Down, 2);
  PressKey(values, Qt::Key_F2);
  auto* names = FindControl<QComboBox>(page, IDC_NAME_LIST);
  PressKey(*names->view(), Qt::Key_Down, 2);
  PressKey(*names->view(), Qt::Key_Return);
}

void EnterRegionSettings(QDialog& wizard) {
  CWizCellProperties& page = ActivePage(wizard);
  auto& values = Named<ValueList>(page, "Property Values");
  PressKey(Named<QTreeWidget>(page, "Available Properties"), Qt::Key_Down);
  Press(page, IDC_ADD_VALUE);
  Press(page, IDC_ADD_VALUE);
  PressKey(Named<COriginPicker>(page, "Origin"), Qt::Key_Left, 3, Qt::ShiftModifier);
  PressKey(Named<COriginPicker>(page, "Origin"), Qt::Key_Down, 10);
  PressKey(values, Qt::Key_F2);
  auto* editor = values.viewport()->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  QTest::keyClicks(editor, "21");
  PressKey(*editor, Qt::Key_Return);
}

MapContents ExpectedMap(const std::string& text) {
  MapContents map;
  std::stringbuf file(FileText(kDefinitions + text));
  DataBranch tree({});
  std::string errorText;
  NullFeedback feedback;
  LoadDefinitions(file, tree, map, feedback, errorText);
  const auto settings = ReadFillSettings(tree, map.m_pCellClass, errorText);
  EXPECT_EQ(errorText, "");
  MakeGrid(map, *settings->width, *settings->height);
  struct : CellListener {
    void OnCellChanged(const CellRecord&) override {}
  } nobody;
  FillMap(map, settings->global, settings->region, *settings->seed, feedback, nobody);
  return map;
}

TEST(MapDialogs, WizardMakesTheMapThatASettingsFileMakes) {
  DocumentInWindows made;
  WhenModal([](QDialog& wizard) {
    EnterSize(wizard);
    Press(wizard, ID_WIZNEXT);
    EnterGlobalSettings(wizard);
    Press(wizard, ID_WIZNEXT);
    EnterRegionSettings(wizard);
    Press(wizard, ID_WIZFINISH);
  });
  made.document.OnIdle();
  ASSERT_TRUE(made.document.m_pGrid) << testing::PrintToString(made.prompts.messages);
  EXPECT_TRUE(made.document.IsModified());
  std::string differences;
  DiffMaps(ExpectedMap(kSettings), made.document,
           [&](const std::string& line) { differences += line + "\n"; });
  EXPECT_EQ(differences, "");
  EXPECT_TRUE(made.prompts.messages.empty());
}

TEST(MapDialogs, CancelledWizardLeavesAnEmptyMapOfTheDefaultSize) {
  DocumentInWindows made;
  WhenModal([](QDialog& wizard) {
    EnterSize(wizard);
    Press(wizard, IDCANCEL);
  });
  made.document.OnIdle();
  ASSERT_TRUE(made.document.m_pGrid) << testing::PrintToString(made.prompts.messages);
  EXPECT_EQ(made.document.m_pGrid->Width(), 5);
  EXPECT_EQ(made.document.m_pGrid->Height(), 6);
  EXPECT_EQ(made.document.m_pGrid->Count(), 0);
  EXPECT_FALSE(made.document.IsModified());
}

TEST(MapDialogs, FilterIsEditedOnACopy) {
  const PlanetClass planets;
  CPropertySettingList filter;
  CPropertySetting& name = filter.Add(planets.cell.FindMember("Name"), CoverageControl::Button);
  name.AddValue();
  WindowMapDialogs dialogs(nullptr);
  const auto addAnother = [](int end) {
    WhenModal([end](QDialog& wizard) {
      Press(ActivePage(wizard), IDC_ADD_VALUE);
      Press(wizard, end);
    });
  };
  addAnother(IDCANCEL);
  EXPECT_FALSE(dialogs.ChooseFilter(&filter, &planets.cell));
  addAnother(ID_WIZFINISH);
  const auto chosen = dialogs.ChooseFilter(&filter, &planets.cell);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->GetSettings()[0]->GetValues().size(), 2u);
  EXPECT_EQ(name.GetValues().size(), 1u);

  addAnother(ID_WIZFINISH);
  EXPECT_EQ(dialogs.ChooseFilter(nullptr, &planets.cell)->GetSettings().size(),
            planets.cell.Members().size());
}

TEST(MapDialogs, AsksForTheFileForm) {
  WindowMapDialogs dialogs(nullptr);
  for (const int form : {kTextForm, kBinaryForm}) {
    WhenModal([](QDialog& dialog) { Press(dialog, IDOK); });
    EXPECT_EQ(dialogs.ChooseDataType(kDataTypeNames, form), form);
  }
  WhenModal([](QDialog& dialog) { Press(dialog, IDCANCEL); });
  EXPECT_EQ(dialogs.ChooseDataType(kDataTypeNames, kTextForm), std::nullopt);
}

}  // namespace
}  // namespace quorvel
