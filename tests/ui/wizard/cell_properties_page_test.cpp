#include "ui/wizard/cell_properties_page.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <gtest/gtest.h>

#include "map/fill/property_settings.h"
#include "tests/ui/wizard/cell_page_run.h"

namespace quorvel {
namespace {

using enum SettingsMode;
using enum CellPageRun::Row;

/// The accessible names below an object; what a screen reader cannot walk to is not there.
void CollectNames(QAccessibleInterface* object, QAccessible::Role role, std::string& names) {
  if (!object) return;
  if (object->role() == role && !object->state().invisible)
    names += object->text(QAccessible::Name).toStdString() + ";";
  for (int i = 0; i < object->childCount(); ++i) CollectNames(object->child(i), role, names);
}

TEST(CellPropertiesPage, AScreenReaderFindsWhatTheModeHas) {
  struct Row {
    SettingsMode mode;
    const char *sliders, *canvases, *heading;
  };
  constexpr Row rows[] = {{Value, "", "", ""},
                          {Global, "Coverage;Share;Share;", "", "100.00%"},
                          {Region, "Coverage;", "Origin;", "100.00%"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(static_cast<int>(row.mode));
    CellPageRun run(row.mode);
    run.Run([&] {
      run.Add(2);
      QApplication::processEvents();
      const auto named = [&](QAccessible::Role role) {
        std::string names;
        CollectNames(QAccessible::queryAccessibleInterface(run.page.window()), role, names);
        return names;
      };
      EXPECT_EQ(run.Heading(ValueListModel::kShare), row.heading);
      EXPECT_EQ(named(QAccessible::Tree), "Available Properties;Property Values;");
      EXPECT_EQ(named(QAccessible::Slider), row.sliders);
      EXPECT_EQ(named(QAccessible::Canvas), row.canvases);
      EXPECT_EQ(run.SelectButton().isVisible(), row.mode == Value);
      QTest::keyClick(&run.Values(), Qt::Key_F2);
      EXPECT_EQ(named(QAccessible::EditableText), "Name;");
      if (row.mode != Region) return;
      EXPECT_EQ(run.Picker().accessibleDescription(), "50 % from the left, 50 % from the top");
      EXPECT_TRUE(run.SetOrigin().isChecked());
      Press(run.page, IDC_SET_ORIGIN);
      EXPECT_EQ(named(QAccessible::Canvas) + named(QAccessible::Slider), "Coverage;Share;Share;");
      Press(run.page, IDC_SET_ORIGIN);
      EXPECT_EQ(named(QAccessible::Canvas) + named(QAccessible::Slider), "Origin;Coverage;");
    });
  }
}

TEST(CellPropertiesPage, WithoutAClassNothingIsBuilt) {
  CellPageRun run(Global);
  run.page.SetCellClass(nullptr);
  run.Run([&] {
    EXPECT_EQ(run.Properties().topLevelItemCount(), 0);
    EXPECT_TRUE(run.Properties().isHeaderHidden());
    EXPECT_TRUE(run.Values().isHeaderHidden());
    run.Add();
    EXPECT_EQ(run.Values().Model().rowCount(), 0);
  });
  EXPECT_FALSE(run.page.SetSettingList(nullptr));
}

TEST(CellPropertiesPage, ADoubleClickOnAPropertyAddsAValueWhoseShareMovesTheOthers) {
  CellPageRun run(Global);
  run.Run([&] {
    const QRect row = run.Properties().visualItemRect(run.Properties().topLevelItem(0));
    for (int click = 0; click < 3; ++click) {
      QTest::mouseClick(run.Properties().viewport(), Qt::LeftButton, {}, row.center());
      QTest::mouseDClick(run.Properties().viewport(), Qt::LeftButton, {}, row.center());
    }
    PressKey(*run.ShownShares()[0], Qt::Key_Left, 50);
    EXPECT_EQ(run.Shares(), "50.00% 25.00% 25.00%");
    EXPECT_EQ(run.ShownShares()[2]->value(), 25);
  });
}

TEST(CellPropertiesPage, SlidersFollowTheRowsThatAreSeen) {
  CellPageRun run(Global);
  run.Run([&] {
    run.Add(1);
    run.Values().Model().Setting()->AppendValue(7.0F);
    for (int i = 0; i < 500; ++i) run.Values().Model().Setting()->AppendValue(1.0F);
    run.Choose(1);
    run.Choose(0);
    EXPECT_LT(run.ShownShares().size(), 20u);
    run.Values().scrollTo(run.Values().Model().index(501, 0));
    EXPECT_EQ(run.ShownShares()[0]->value(), 1);
    run.Values().scrollToTop();
    EXPECT_EQ(run.ShownShares()[1]->value(), 7);
    for (const CShareSlider* slider : run.ShownShares()) {
      const QRect seen =
          slider->visibleRegion().boundingRect().translated(slider->mapTo(&run.page, QPoint(0, 0)));
      EXPECT_TRUE(run.Values().geometry().contains(seen));
    }
  });
}

TEST(CellPropertiesPage, RemovesTheSelectedValuesByButtonOrKey) {
  for (const bool byKey : {false, true}) {
    SCOPED_TRACE(byKey);
    CellPageRun run(Region);
    run.Run([&] {
      const auto remove = [&] {
        byKey ? QTest::keyClick(&run.Values(), Qt::Key_Delete) : Press(run.page, IDC_REMOVE_VALUES);
      };
      run.Add(5);
      run.ClickValue(0);
      run.ClickValue(2, Qt::ControlModifier);
      remove();
      EXPECT_EQ(run.Shares(), "33.33% 33.33% 33.33%");
      EXPECT_FALSE(run.Picker().CurrentValue()) << "the current value is gone";
      remove();
      EXPECT_EQ(run.Values().Model().rowCount(), 3) << "nothing is selected";
      QTest::keyClick(&run.Values(), Qt::Key_A, Qt::ControlModifier);
      remove();
      EXPECT_EQ(run.Values().Model().rowCount(), 0);
      QTest::keyClick(&run.Values(), Qt::Key_F2);
      EXPECT_FALSE(run.Editor()) << "the current row is past the end";
    });
  }
}

TEST(CellPropertiesPage, EditsTextsInPlace) {
  struct Row {
    const char* what;
    int property;
    const char* typed;
    Qt::Key end;
    const char* stored;
  };
  const Row rows[] = {{"beyond ASCII", kName, "\xc3\x89toile", Qt::Key_Return, "\xc3\x89toile"},
                      {"no int", kCount, "abc", Qt::Key_Tab, "0"},
                      {"float", kWeight, "0.25", Qt::Key_Return, "0.250000"},
                      {"Esc stores too", kCount, "9", Qt::Key_Escape, "9"}};
  const auto slowClicks = [](CellPageRun& run) {
    QApplication::setDoubleClickInterval(1);
    for (int click = 0; click < 2; ++click) run.ClickValue(0);
    EXPECT_TRUE(QTest::qWaitFor([&run] { return bool(run.Editor()); }));
  };
  const std::function<void(CellPageRun&)> ways[] = {
      [](CellPageRun& run) { QTest::keyClick(&run.Values(), Qt::Key_F2); },
      [](CellPageRun& run) { run.DoubleClickValue(0); }, slowClicks};
  const int usualInterval = QApplication::doubleClickInterval();
  for (const Row& row : rows) {
    for (const auto& open : ways) {
      SCOPED_TRACE(testing::Message() << row.what << " by way " << &open - ways);
      CellPageRun run(Global);
      run.Run([&] {
        run.Choose(row.property);
        run.Add();
        open(run);
        ASSERT_TRUE(run.Editor());
        EXPECT_EQ(run.Editor()->text().toStdString(), run.Text(0, 0));
        run.Editor()->selectAll();
        QTest::keyClicks(run.Editor(), QString::fromUtf8(row.typed));
        QTest::keyClick(run.Editor(), row.end);
        EXPECT_EQ(run.Text(0, 0), row.stored);
        EXPECT_TRUE(run.page.window()->isVisible()) << "the key ends the editing only";
      });
      QApplication::setDoubleClickInterval(usualInterval);
    }
  }
}

TEST(CellPropertiesPage, TextLeftAsShownKeepsItsBytes) {
  CellPageRun run(Global);
  run.Run([&] {
    run.Add();
    CValueSetting& value = *run.Values().Model().ValueAt(0);
    value.StoreText("\xc9toile");  // not UTF-8
    run.DoubleClickValue(0);
    ASSERT_TRUE(run.Editor());
    QTest::keyClick(run.Editor(), Qt::Key_Return);
    EXPECT_EQ(value.FormatValue(), "\xc9toile");
  });
}

TEST(CellPropertiesPage, NameListStoresThePosition) {
  const std::tuple<int, std::vector<Qt::Key>, const char*> rows[] = {
      {kKind, {Qt::Key_Down, Qt::Key_Return}, "star"},
      {kKind, {Qt::Key_Escape}, "dust"},  // the list stood on its first name
      {kMoon, {}, "<error>"},             // no names to choose from
      {kPart, {}, "Part"}};
  for (const auto& [property, keys, shown] : rows) {
    SCOPED_TRACE(shown);
    CellPageRun run(Global);
    run.Run([&run, property = property, &keys = keys, shown = shown] {
      run.Choose(property);
      run.Add();
      const std::int32_t last = 2;
      if (property == kKind) run.Values().Model().ValueAt(0)->StoreValue(&last);
      run.DoubleClickValue(0);
      EXPECT_FALSE(run.Editor());
      auto* names = FindControl<QComboBox>(run.page, IDC_NAME_LIST);
      EXPECT_EQ(names->isVisible(), !keys.empty());
      for (const Qt::Key key : keys) QTest::keyClick(names->view(), key);
      QApplication::processEvents();
      EXPECT_FALSE(names->isVisible());
      EXPECT_EQ(run.Text(0, 0), shown);
    });
  }
}

TEST(CellPropertiesPage, PickerMovesTheCurrentValue) {
  CellPageRun run(Region);
  run.Run([&] {
    run.Add(3);
    const CValueSetting* first = run.Values().Model().ValueAt(0);
    EXPECT_EQ(run.Picker().CurrentValue(), first) << "the first value added is current";
    const QSize size = run.Picker().size();
    QTest::mouseClick(&run.Picker(), Qt::LeftButton, {}, QPoint(size.width() / 4, size.height() / 2));
    EXPECT_NEAR(first->GetOriginX(), 25, 0.5);
    EXPECT_NEAR(first->GetOriginY(), 50, 0.5);

    run.ClickValue(2);
    const CValueSetting* third = run.Values().Model().ValueAt(2);
    QTest::mousePress(&run.Picker(), Qt::LeftButton, {}, QPoint(1, 1));
    QTest::mouseMove(&run.Picker(), QPoint(-20, size.height() + 30));
    QTest::mouseRelease(&run.Picker(), Qt::LeftButton, {}, QPoint(size.width() + 9, -9));
    EXPECT_EQ(third->GetOriginX(), 100.0F);
    EXPECT_EQ(third->GetOriginY(), 0.0F);

    QTest::keyClick(&run.Values(), Qt::Key_Up);
    const CValueSetting* second = run.Values().Model().ValueAt(1);
    QTest::keyClick(&run.Picker(), Qt::Key_Right);
    QTest::keyClick(&run.Picker(), Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(second->GetOriginX(), 51.0F) << "a row selected by key is current as a clicked one is";
    EXPECT_EQ(second->GetOriginY(), 40.0F);

    run.ClickValue(0);
    run.ClickValue(1, Qt::ControlModifier);
    QTest::keyClick(&run.Values(), Qt::Key_Delete);
    QTest::keyClick(&run.Values(), Qt::Key_Space);
    EXPECT_EQ(run.Picker().CurrentValue(), third) << "the only row left can be chosen by key";
  });
}

TEST(CellPropertiesPage, TheCurrentValuesRowOutlivesAChangeOfProperty) {
  CellPageRun run(Region);
  run.Run([&] {
    run.Add(3);
    run.ClickValue(2);
    run.Choose(kCount);
    EXPECT_FALSE(run.Picker().CurrentValue()) << "the value that the picker moved is not in sight";
    run.Add(3);
    EXPECT_FALSE(run.Picker().CurrentValue()) << "only the first value of all becomes current by itself";
    PressKey(run.Values(), Qt::Key_F2);
    ASSERT_TRUE(run.Editor());
    QTest::keyClicks(run.Editor(), "55");
    PressKey(*run.Editor(), Qt::Key_Return);
    EXPECT_EQ(run.Text(2, ValueListModel::kValue), "55");
  });
}

TEST(CellPropertiesPage, PickerDrawsACircleAmongCrosses) {
  CellPageRun run(Region);
  run.Run([&] {
    run.Add(2);
    run.Values().Model().ValueAt(0)->SetOrigin(25, 50);
    run.Values().Model().ValueAt(1)->SetOrigin(75, 50);
    const QImage picture = run.Picker().grab().toImage();
    // One hundredth in single precision lies just below 0.01, and pixels are truncated.
    const auto pixelAt = [](int extent, double percent) {
      return static_cast<int>(extent * percent * 0.01F);
    };
    const int y = pixelAt(picture.height(), 50);
    const int circle = pixelAt(picture.width(), 25), cross = pixelAt(picture.width(), 75);
    const auto isInk = [&](int x, int dy) { return picture.pixelColor(x, y + dy).lightness() < 128; };
    EXPECT_FALSE(isInk(circle, 0)) << "a circle is hollow";
    EXPECT_TRUE(isInk(circle - 3, 0));
    for (int d = -3; d <= 3; ++d) EXPECT_TRUE(isInk(cross + d, 0) && isInk(cross, d)) << d;
    EXPECT_FALSE(isInk(cross + 4, 0));
  });
}

TEST(CellPropertiesPage, EditsAListThatWasHandedIn) {
  CellPageRun run(Value);
  auto given = std::make_unique<CPropertySettingList>();
  given->Add(nullptr, CoverageControl::Button);
  CPropertySetting& kind = given->Add(run.contents.m_pCellClass->FindMember("Kind"), CoverageControl::Button);
  kind.AddValue();
  kind.SetCoverage(0);
  const CPropertySettingList* const same = given.get();
  EXPECT_FALSE(run.page.SetSettingList(std::move(given)));
  run.Run([&] {
    EXPECT_EQ(run.Properties().topLevelItemCount(), 1) << "a setting without a member has no row";
    EXPECT_EQ(run.Column(0), "dust");
    EXPECT_FALSE(run.SelectButton().isChecked());
    run.Finish();
  });
  EXPECT_EQ(run.page.SetSettingList(nullptr).get(), same);
}

}  // namespace
}  // namespace quorvel
