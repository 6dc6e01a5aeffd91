#include "ui/wizard/map_properties_page.h"

#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <gtest/gtest.h>

#include "tests/ui/modal_script.h"
#include "ui/resources/wizard_templates.h"
#include "ui/wizard/map_wizard.h"

namespace quorvel {
namespace {

class MapPropertiesPage : public testing::Test {
 protected:
  /// Runs the wizard with this page alone until the steps end it.
  int Run(std::function<void(QDialog&)> steps) {
    CMapWizard wizard;
    wizard.AddPage(page_);
    WhenModal(std::move(steps));
    return wizard.DoModal();
  }
  std::string EditText(int id) const { return FindControl<QLineEdit>(page_, id)->text().toStdString(); }
  std::string LabelText(int id) const { return FindControl<QLabel>(page_, id)->text().toStdString(); }
  QSlider& Slider(int id) const { return *FindControl<QSlider>(page_, id); }

  CWizMapProperties page_;
};

TEST_F(MapPropertiesPage, DefaultOutsideTheFirstRangeStandsAtItsEnd) {
  page_.SetSizeLimits(150, 1, 1000, 1000, 400, 300);
  const int result = Run([&](QDialog& dialog) {
    EXPECT_EQ(EditText(IDC_WIDTH), "400");
    EXPECT_EQ(EditText(IDC_HEIGHT), "300");
    EXPECT_EQ(Slider(IDC_WIDTH_SLIDER).value(), 150) << "from 100 into the range";
    EXPECT_EQ(Slider(IDC_HEIGHT_SLIDER).value(), 100);
    Press(dialog, ID_WIZFINISH);
  });
  EXPECT_EQ(result, ID_WIZFINISH);
  EXPECT_EQ(page_.GetWidth(), 400);
  EXPECT_EQ(page_.GetHeight(), 300);
}

TEST_F(MapPropertiesPage, EachSliderMovesItsOwnNumberWithinItsLimits) {
  page_.SetSizeLimits(2, 3, 900, 800, 10, 4);
  Run([&](QDialog& dialog) {
    EXPECT_EQ(LabelText(IDC_WIDTH_MIN) + LabelText(IDC_HEIGHT_MIN), "23");
    EXPECT_EQ(LabelText(IDC_WIDTH_MAX) + LabelText(IDC_HEIGHT_MAX), "900800");
    PressKey(Slider(IDC_HEIGHT_SLIDER), Qt::Key_Left, 3);
    EXPECT_EQ(EditText(IDC_HEIGHT), "3");
    EXPECT_EQ(EditText(IDC_WIDTH), "10");
    QTest::keyClick(&Slider(IDC_WIDTH_SLIDER), Qt::Key_End);
    EXPECT_EQ(EditText(IDC_WIDTH), "900");
    EXPECT_EQ(EditText(IDC_HEIGHT), "3");
    EXPECT_EQ(page_.GetWidth(), 10) << "the field waits for the button";
    Press(dialog, ID_WIZFINISH);
  });
  EXPECT_EQ(page_.GetWidth(), 900);
  EXPECT_EQ(page_.GetHeight(), 3);
}

TEST_F(MapPropertiesPage, NamesItsControlsForAScreenReader) {
  Run([&](QDialog&) {
    EXPECT_EQ(FindControl<QLineEdit>(page_, IDC_WIDTH)->accessibleName(), "Width");
    EXPECT_EQ(Slider(IDC_WIDTH_SLIDER).accessibleName(), "Width");
    EXPECT_EQ(FindControl<QLineEdit>(page_, IDC_HEIGHT)->accessibleName(), "Height");
    EXPECT_EQ(Slider(IDC_HEIGHT_SLIDER).accessibleName(), "Height");
    EXPECT_TRUE(FindControl<QLineEdit>(page_, IDC_WIDTH)->isReadOnly());
    EXPECT_TRUE(Slider(IDC_WIDTH_SLIDER).hasFocus()) << "the first control that takes the keyboard";
  });
}

}  // namespace
}  // namespace quorvel
