#include "render/label_font.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(LabelFont, IsTheLargestThatFitsALine) {
  for (const auto& [ratio, lineHeight] : {std::pair{1.0, 12}, {1.25, 15}, {1.5, 18}, {2.0, 24}}) {
    SCOPED_TRACE(ratio);
    const LabelFont label = LabelFont::At(ratio);
    EXPECT_EQ(label.lineHeight, lineHeight);
    const QFontMetrics metrics(label.font);
    EXPECT_LE(metrics.ascent() + metrics.descent(), lineHeight);
    QFont larger = label.font;
    larger.setPixelSize(label.font.pixelSize() + 1);
    EXPECT_GT(QFontMetrics(larger).ascent() + QFontMetrics(larger).descent(), lineHeight);
  }
}

TEST(LabelFont, IsThere) {
  const QString family = QFontInfo(LabelFont::At(1).font).family();
  EXPECT_TRUE(family == "Arial" || family == "Liberation Sans") << family.toStdString();
}

}  // namespace
}  // namespace quorvel
