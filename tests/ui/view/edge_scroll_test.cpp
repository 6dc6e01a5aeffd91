#include "ui/view/edge_scroll.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(EdgeScroll, FollowsThePointerWhereThereIsMoreOfTheMap) {
  struct Row {
    const char* what;
    QPoint pointer, position, beyond, step;
  };
  // A viewport of 400 x 300 on cells of 100 pixels, 86 from column to column, scrolled to at most 1000 x 500.
  constexpr Row rows[] = {{"inside", {399, 299}, {500, 250}, {0, 0}, {0, 0}},
                          {"just beyond", {400, -1}, {500, 250}, {1, -1}, {1, -1}},
                          {"further is faster", {439, 200}, {500, 250}, {40, 0}, {11, 0}},
                          {"never by a whole cell", {-9000, 9000}, {500, 250}, {-9000, 8701}, {-43, 50}},
                          {"at the map's start", {-50, -50}, {0, 0}, {0, 0}, {0, 0}},
                          {"at its end below", {450, 350}, {500, 500}, {51, 0}, {13, 0}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(BeyondEdgeOf({400, 300}, row.pointer, row.position, {1000, 500}), row.beyond);
    EXPECT_EQ(EdgeScrollStep(row.beyond, 100), row.step);
  }
}

}  // namespace
}  // namespace quorvel
