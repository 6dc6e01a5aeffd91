// The law of the cached picture: however changes, moves of the current cell and scrolls are mixed, it has the
// pixels of one that was painted afresh.

#include "ui/view/map_picture.h"

#include <random>

#include "map/document/editing.h"
#include "tests/map/map_samples.h"
#include "tests/ui/editor.h"

namespace quorvel {
namespace {

QImage Afresh(const CVastrelDoc& map, const MapLook& look, QSize size, QPoint origin) {
  MapPicture picture;
  picture.Reset(look);
  picture.Resize(size);
  picture.ScrollTo(origin.x(), origin.y());
  picture.Refresh(map);
  return picture.Image().copy();
}

TEST(MapPicture, AnyOrderOfChangesGivesTheFreshPicture) {
  constexpr QSize kSize(230, 170);
  Editor editor;
  CVastrelDoc& map = *editor.OpenMap(40, 30);
  for (int removed = 0; removed < 480; removed += 5) map.m_pGrid->Remove(*map.m_pGrid->Find(removed));
  MapLook look = editor.View().Look();
  std::mt19937 random(7);
  const auto upTo = [&random](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  for (float cellSize = 10; cellSize <= 100; cellSize += 10) {
    for (const double ratio : {1.0, 1.5}) {
      SCOPED_TRACE(testing::Message() << cellSize << " px at ratio " << ratio);
      look.cellSizePx = cellSize;
      look.pixelRatio = ratio;
      look.currentCell = {};
      MapPicture picture;
      picture.Reset(look);
      picture.Resize(kSize);
      QPoint origin;
      for (int step = 0; step < 60; ++step) {
        const CellCoord cell{upTo(12), upTo(12)};
        switch (upTo(4)) {
          case 0:
            SetMark(map, cell, static_cast<std::uint8_t>(upTo(2)));
            CreateCell(map, cell);
            SetValue(map, map.m_pGrid->IndexOf(cell), "star", std::to_string(upTo(2)));
            picture.Touch(cell);
            break;
          case 1:
            picture.MoveCurrentCell(cell);
            break;
          case 2:
            origin = {upTo(120), upTo(90)};
            picture.ScrollTo(origin.x(), origin.y());
            break;
          default:
            picture.Refresh(map);
        }
      }
      picture.Refresh(map);
      EXPECT_EQ(picture.Image(), Afresh(map, picture.Look(), kSize, origin));
    }
  }
}

TEST(MapPicture, OnlyCellsInSightAreNoted) {
  Editor editor;
  const CVastrelDoc& map = *editor.OpenMap(40, 30);
  MapLook look = editor.View().Look();
  look.cellSizePx = 20;
  MapPicture picture;
  picture.Reset(look);
  picture.Resize({100, 100});
  picture.Refresh(map);
  EXPECT_TRUE(picture.Touch({2, 2}));
  EXPECT_FALSE(picture.Touch({2, 2})) << "noted already";
  EXPECT_FALSE(picture.Touch({30, 2})) << "out of sight";
  EXPECT_FALSE(picture.Touch({-1, -1}));
  const std::vector<QRect> drawn = picture.Refresh(map);
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_LE(drawn[0].width(), 26);
  EXPECT_LE(drawn[0].height(), 26);
  EXPECT_TRUE(picture.Refresh(map).empty());
}

}  // namespace
}  // namespace quorvel
