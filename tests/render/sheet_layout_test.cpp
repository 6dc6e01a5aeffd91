#include "render/sheet_layout.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr double kUsualMmPerPx = 0.02;

TEST(SheetLayout, TakesAsManySheetsAsTheSizeNeeds) {
  struct Row {
    const char* text;
    MapRect extent;  // at 100 px a cell
    SheetSize size;
    double mmPerPx;
    std::int64_t columns, rows;
  };
  const SheetRoom room = {{190, 277}};
  const Row rows[] = {
      {"the usual size", {0, 0, 9500, 13850}, {}, 0.02, 1, 1},
      {"a pixel too wide", {0, 0, 9501, 13850}, {}, 0.02, 2, 1},
      {"8 mm a cell", {0, 0, 2000, 2000}, {8, {}}, 0.08, 1, 1},
      {"30 mm a cell", {0, 0, 2000, 2000}, {30, {}}, 0.3, 4, 3},  // 190 + 180 + 180 < 600, 277 + 267 < 600
      {"one sheet, wide map", {0, 0, 4000, 2000}, {0, {1, 1}}, 190.0 / 4000, 1, 1},
      {"one sheet, high map", {0, 0, 1000, 2000}, {0, {1, 1}}, 277.0 / 2000, 1, 1},
      {"three by two", {0, 0, 5500, 5440}, {0, {3, 2}}, 0.1, 3, 2},  // 550 by 544 mm glued together
      {"a sheet less where that is enough", {0, 0, 4000, 1000}, {0, {2, 2}}, 370.0 / 4000, 2, 1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    const SheetLayout layout(row.extent, 100, room, row.size, kUsualMmPerPx);
    EXPECT_NEAR(layout.MmPerPx(), row.mmPerPx, 1e-9);
    EXPECT_EQ(layout.Columns(), row.columns);
    EXPECT_EQ(layout.Rows(), row.rows);
  }
}

/// Sheets glued together are the whole map, each with 10 mm of the one before.
TEST(SheetLayout, SheetsOverlap) {
  const SheetLayout layout({50, 70, 2050, 2070}, 100, {{190, 277}}, {30, {}}, kUsualMmPerPx);
  const double overlapPx = kSheetOverlapMm / layout.MmPerPx();
  QRectF glued;
  for (std::int64_t sheet = 0; sheet < layout.Count(); ++sheet) {
    const QRectF part = layout.Part(sheet);
    EXPECT_LE(part.width() * layout.MmPerPx(), 190 + 1e-9);
    EXPECT_LE(part.height() * layout.MmPerPx(), 277 + 1e-9);
    const auto overlapAfter = [&](std::int64_t before) {
      return layout.Part(before).bottomRight() - part.topLeft();
    };
    if (sheet % layout.Columns() > 0) {
      EXPECT_NEAR(overlapAfter(sheet - 1).x(), overlapPx, 1e-6);
    }
    if (sheet >= layout.Columns()) {
      EXPECT_NEAR(overlapAfter(sheet - layout.Columns()).y(), overlapPx, 1e-6);
    }
    glued |= part;
  }
  EXPECT_EQ(glued, QRectF(50, 70, 2000, 2000));
}

TEST(SheetLayout, WithoutOverlapSheetsLieSideBySide) {
  const SheetLayout layout({0, 0, 250, 120}, 100, {{2, 1}, 0}, {}, kUsualMmPerPx);
  ASSERT_EQ(layout.Count(), 9);
  EXPECT_EQ(layout.Part(0), QRectF(0, 0, 100, 50));
  EXPECT_EQ(layout.Part(4), QRectF(100, 50, 100, 50));
  EXPECT_EQ(layout.Part(8), QRectF(200, 100, 50, 20));
}

TEST(SheetLayout, NamesSheetsByColumnAndRow) {
  const SheetLayout layout({0, 0, 60'000, 600}, 100, {{190, 277}}, {100, {}}, kUsualMmPerPx);
  ASSERT_EQ(layout.Columns(), 334);
  EXPECT_EQ(layout.Name(0), "A1, column 1 of 334");
  EXPECT_EQ(layout.Name(335), "B2, column 2 of 334");
  EXPECT_EQ(layout.Name(26), "AA1, column 27 of 334");
}

}  // namespace
}  // namespace quorvel
