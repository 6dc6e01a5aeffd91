#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include "tests/map/map_samples.h"
#include "tests/ui/modal_script.h"
#include "ui/dialogs/value_edit.h"
#include "ui/resources/wizard_templates.h"
#include "ui/wizard/cell_properties_page.h"
#include "ui/wizard/map_wizard.h"
#include "ui/wizard/origin_picker.h"
#include "ui/wizard/share_slider.h"
#include "ui/wizard/value_list.h"

namespace quorvel {

/// Drives a cell page by keys and mouse.
class CellPageDriver {
 public:
  explicit CellPageDriver(CWizCellProperties& driven) : page(driven) {}
  /// The page that a wizard shows.
  explicit CellPageDriver(QDialog& wizard) : page(ShownPage(wizard)) {}

  QTreeWidget& Properties() { return *FindControl<QTreeWidget>(page, IDC_PROPERTIES); }
  ValueList& Values() { return *FindControl<ValueList>(page, IDC_VALUES); }
  COriginPicker& Picker() { return *FindControl<COriginPicker>(page, IDC_ORIGIN_PICKER); }
  QAbstractButton& SetOrigin() { return *FindControl<QAbstractButton>(page, IDC_SET_ORIGIN); }
  CShareButton& SelectButton() { return *page.findChild<CShareButton*>(); }
  CShareSlider& Coverage() { return *Sliders("Coverage").front(); }
  std::vector<CShareSlider*> ShownShares() {
    QApplication::processEvents();
    return Sliders("Share", true);
  }

  /// Chooses a property with the arrow keys.
  void Choose(int row) {
    QTest::keyClick(&Properties(), Qt::Key_Home);
    for (int i = 0; i < row; ++i) QTest::keyClick(&Properties(), Qt::Key_Down);
  }
  void Add(int count = 1) {
    for (int i = 0; i < count; ++i) Press(page, IDC_ADD_VALUE);
  }
  void ClickValue(int row, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(Values().viewport(), Qt::LeftButton, modifiers, ValuePoint(row));
  }
  void DoubleClickValue(int row) {
    ClickValue(row);
    QTest::mouseDClick(Values().viewport(), Qt::LeftButton, {}, ValuePoint(row));
    QApplication::processEvents();
  }
  /// Chooses a name in the list that is open over a value.
  void ChooseName(int position) {
    auto* names = FindControl<QComboBox>(page, IDC_NAME_LIST);
    PressKey(*names->view(), Qt::Key_Down, position);
    PressKey(*names->view(), Qt::Key_Return);
  }
  QLineEdit* Editor() { return page.findChild<ValueEdit*>(); }

  std::string Text(int row, int column) {
    return Values().Model().index(row, column).data().toString().toStdString();
  }
  /// The texts of a column, joined by blanks.
  std::string Column(int column) {
    std::string texts;
    for (int row = 0; row < Values().Model().rowCount(); ++row) texts += (row ? " " : "") + Text(row, column);
    return texts;
  }
  std::string Shares() { return Column(ValueListModel::kShare); }
  std::string Heading(int column) {
    return Values().Model().headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().toStdString();
  }

  CWizCellProperties& page;

 private:
  static CWizCellProperties& ShownPage(QDialog& wizard) {
    const auto pages = wizard.findChildren<CWizCellProperties*>();
    return **std::ranges::find_if(pages, &QWidget::isVisible);
  }
  QPoint ValuePoint(int row) {
    const QRect cell = Values().visualRect(Values().Model().index(row, ValueListModel::kValue));
    return {cell.left() + 5, cell.center().y()};
  }
  std::vector<CShareSlider*> Sliders(const char* name, bool shownOnly = false) {
    std::vector<CShareSlider*> sliders;
    for (CShareSlider* slider : page.findChildren<CShareSlider*>()) {
      if (slider->accessibleName() == name && (slider->isVisible() || !shownOnly)) sliders.push_back(slider);
    }
    return sliders;
  }
};

/// A cell page in a wizard of its own, for the sample class and one more member, whose list is empty.
class CellPageRun : public CellPageDriver {
 public:
  enum Row { kName, kCount, kPart, kWeight, kKind, kMoon };

  explicit CellPageRun(SettingsMode mode) : CellPageDriver(own_), own_(mode) {
    own_.SetCellClass(contents.m_pCellClass);
  }

  int Run(std::function<void()> steps) {
    CMapWizard wizard;
    wizard.AddPage(page);
    WhenModal([steps = std::move(steps)](QDialog&) { steps(); });
    return wizard.DoModal();
  }
  void Finish() { Press(*page.window(), ID_WIZFINISH); }

  const MapContents contents = ContentsOf(Lines("[Classes/Nothing] type='items'") + SampleClasses() +
                                          Lines("[Classes/Cell/Moon] type='index' range='Nothing'"));

 private:
  CWizCellProperties own_;
};

}  // namespace quorvel
