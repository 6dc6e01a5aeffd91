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

struct Side {
  const char* name;
  int edit, slider, minLabel, maxLabel;
};
constexpr Side kWidth = {"Width", IDC_WIDTH, IDC_WIDTH_SLIDER, IDC_WIDTH_MIN, IDC_WIDTH_MAX};
constexpr Side kHeight = {"Height", IDC_HEIGHT, IDC_HEIGHT_SLIDER, IDC_HEIGHT_MIN, IDC_HEIGHT_MAX};

class MapPropertiesPage : public testing::Test {
 protected:
  /// Runs the wizard with this page alone, ended by Finish after the steps.
  void Run(std::function<void()> steps) {
    CMapWizard wizard;
    wizard.AddPage(page_);
    WhenModal([&steps](QDialog& dialog) {
      steps();
      Press(dialog, ID_WIZFINISH);
    });
    EXPECT_EQ(wizard.DoModal(), ID_WIZFINISH);
  }
  QLineEdit& Edit(const Side& side) const { return *FindControl<QLineEdit>(page_, side.edit); }
  QSlider& Slider(const Side& side) const { return *FindControl<QSlider>(page_, side.slider); }
  QString Label(int id) const { return FindControl<QLabel>(page_, id)->text(); }

  CWizMapProperties page_;
};

TEST_F(MapPropertiesPage, DefaultOutsideTheFirstRangeStandsAtItsEnd) {
  page_.SetSizeLimits(150, 1, 1000, 1000, 400, 300);
  Run([&] {
    EXPECT_EQ(Edit(kWidth).text(), "400");
    EXPECT_EQ(Slider(kWidth).value(), 150) << "from 100 into the range";
    EXPECT_EQ(Slider(kHeight).value(), 100);
  });
  EXPECT_EQ(page_.GetWidth(), 400);
  EXPECT_EQ(page_.GetHeight(), 300);
}

TEST_F(MapPropertiesPage, EachSliderIsNamedAndMovesItsOwnNumberWithinItsLimits) {
  page_.SetSizeLimits(2, 3, 900, 800, 10, 4);
  Run([&] {
    EXPECT_TRUE(Slider(kWidth).hasFocus()) << "the first control that takes the keyboard";
    for (const Side& side : {kWidth, kHeight}) {
      EXPECT_EQ(Edit(side).accessibleName(), side.name);
      EXPECT_EQ(Slider(side).accessibleName(), side.name);
      EXPECT_TRUE(Edit(side).isReadOnly());
    }
    EXPECT_EQ(Label(kWidth.minLabel) + Label(kHeight.minLabel), "23");
    EXPECT_EQ(Label(kWidth.maxLabel) + Label(kHeight.maxLabel), "900800");
    PressKey(Slider(kHeight), Qt::Key_Left, 3);
    EXPECT_EQ(Edit(kWidth).text() + " " + Edit(kHeight).text(), "10 3");
    PressKey(Slider(kWidth), Qt::Key_End);
    EXPECT_EQ(Edit(kWidth).text() + " " + Edit(kHeight).text(), "900 3");
    EXPECT_EQ(page_.GetWidth(), 10) << "the field waits for the button";
  });
  EXPECT_EQ(page_.GetWidth(), 900);
  EXPECT_EQ(page_.GetHeight(), 3);
}

}  // namespace
}  // namespace quorvel
