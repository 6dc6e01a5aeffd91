#include "render/label_font.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>

namespace quorvel {
namespace {

QFont FontOfSize(int pixelSize) {
  const bool hasArial = QFontDatabase::hasFamily(QStringLiteral("Arial"));
  QFont font(hasArial ? QStringLiteral("Arial") : QStringLiteral("Liberation Sans"));
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(pixelSize);
  // So small a text is clearest with its stems on whole pixels; a line then looks the same wherever it
  // stands.
  font.setHintingPreference(QFont::PreferFullHinting);
  return font;
}

}  // namespace

LabelFont LabelFont::At(double pixelRatio) {
  const int lineHeight = qRound(kLabelLinePx * pixelRatio);
  for (int size = lineHeight;; --size) {
    QFont font = FontOfSize(size);
    const QFontMetrics metrics(font);
    if (size == 1 || metrics.ascent() + metrics.descent() <= lineHeight)
      return {font, lineHeight, metrics.ascent()};
  }
}

QImage LabelFont::Draw(const QString& line, int width) const {
  QImage image(width, lineHeight, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setFont(font);
  painter.setPen(Qt::black);
  painter.drawText(0, ascent, line);
  return image;
}

}  // namespace quorvel
