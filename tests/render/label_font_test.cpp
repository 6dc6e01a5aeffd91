#include "render/label_font.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(LabelFont, IsTheLargestThatFitsALine) {
  struct Row {
    double ratio;
    int lineHeight;
  };
  for (const Row& row : {Row{1, 12}, Row{1.25, 15}, Row{1.5, 18}, Row{2, 24}}) {
    SCOPED_TRACE(row.ratio);
    const LabelFont label = LabelFont::At(row.ratio);
    EXPECT_EQ(label.lineHeight, row.lineHeight);
    const QFontMetrics metrics(label.font);
    EXPECT_LE(metrics.ascent() + metrics.descent(), row.lineHeight);
    QFont larger = label.font;
    larger.setPixelSize(label.font.pixelSize() + 1);
    EXPECT_GT(QFontMetrics(larger).ascent() + QFontMetrics(larger).descent(), row.lineHeight);
  }
}

TEST(LabelFont, IsThere) {
  const QString family = QFontInfo(LabelFont::At(1).font).family();
  EXPECT_TRUE(family == "Arial" || family == "Liberation Sans") << family.toStdString();
}

}  // namespace
}  // namespace quorvel
