#include "ui/drawings/command_icons.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include "ui/resources/command_ids.h"

namespace quorvel {
namespace {

/// Everything is drawn on a field of 16 x 16 units.
constexpr double kFieldUnits = 16;

/// The inks of one drawing: lines in the desktop's text colour, surfaces in three hues that read on both
/// schemes.
struct Inks {
  QColor line, paper, blue, amber, green;

  static Inks For(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    const bool isDisabled = mode == QIcon::Disabled;
    Inks inks;
    inks.line = palette.color(isDisabled ? QPalette::Disabled : QPalette::Active, QPalette::ButtonText);
    inks.paper = palette.color(QPalette::Base);
    inks.blue = QColor(0x3d, 0x7e, 0xdb);
    inks.amber = QColor(0xe0, 0xa0, 0x30);
    inks.green = QColor(0x3a, 0xa0, 0x6a);
    if (isDisabled) inks.blue = inks.amber = inks.green = QColor(0x80, 0x80, 0x80, 0x60);
    return inks;
  }
};

QPen LinePen(const Inks& inks, double width = 1.1) {
  return {inks.line, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QPolygonF Hexagon(QPointF centre, double radius) {
  QPolygonF corners;
  for (int corner = 0; corner < 6; ++corner) {
    const double angle = corner * std::numbers::pi / 3;
    corners << centre + QPointF(radius * std::cos(angle), radius * std::sin(angle));
  }
  return corners;
}

void DrawPage(QPainter& painter, const Inks& inks, QRectF place) {
  const double fold = place.width() * 0.36;
  QPainterPath page(place.topLeft());
  page.lineTo(place.right() - fold, place.top());
  page.lineTo(place.right(), place.top() + fold);
  page.lineTo(place.bottomRight());
  page.lineTo(place.bottomLeft());
  page.closeSubpath();
  painter.setPen(LinePen(inks));
  painter.setBrush(inks.paper);
  painter.drawPath(page);
  painter.drawPolyline(QPolygonF{{place.right() - fold, place.top()},
                                 {place.right() - fold, place.top() + fold},
                                 {place.right(), place.top() + fold}});
}

void DrawNew(QPainter& painter, const Inks& inks) {
  DrawPage(painter, inks, {3, 1.5, 10, 13});
  painter.setPen(Qt::NoPen);
  painter.setBrush(inks.blue);
  painter.drawPolygon(Hexagon({8, 10}, 3));
}

void DrawOpen(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks));
  painter.setBrush(inks.paper);
  painter.drawPolygon(QPolygonF{{1.5, 13}, {1.5, 3}, {6, 3}, {7.5, 4.8}, {13, 4.8}, {13, 13}});
  painter.setBrush(inks.amber);
  painter.drawPolygon(QPolygonF{{1.5, 13.2}, {4, 7}, {15, 7}, {12.6, 13.2}});
}

void DrawSave(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks));
  painter.setBrush(inks.blue);
  painter.drawPolygon(QPolygonF{{2, 2}, {12, 2}, {14, 4}, {14, 14}, {2, 14}});
  painter.setBrush(inks.paper);
  painter.drawRect(QRectF(4.5, 8.5, 7, 5.5));
  painter.drawRect(QRectF(5.2, 2, 5.2, 3.8));
}

void DrawPrint(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks));
  painter.setBrush(inks.paper);
  painter.drawRect(QRectF(4, 1.5, 8, 5));
  painter.setBrush(inks.green);
  painter.drawRoundedRect(QRectF(1.5, 6, 13, 5.5), 1, 1);
  painter.setBrush(inks.paper);
  painter.drawRect(QRectF(4, 9.3, 8, 5.2));
}

void DrawCut(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks, 1.3));
  painter.setBrush(Qt::NoBrush);
  painter.drawLine(QPointF(4, 1.8), QPointF(9.6, 10.2));
  painter.drawLine(QPointF(12, 1.8), QPointF(6.4, 10.2));
  painter.setPen(QPen(inks.blue, 1.5));
  painter.drawEllipse(QPointF(5, 12), 2.2, 2.2);
  painter.drawEllipse(QPointF(11, 12), 2.2, 2.2);
}

void DrawCopy(QPainter& painter, const Inks& inks) {
  DrawPage(painter, inks, {1.8, 1.5, 7.6, 9.6});
  DrawPage(painter, inks, {6.4, 4.9, 7.6, 9.6});
}

void DrawPaste(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks));
  painter.setBrush(inks.amber);
  painter.drawRoundedRect(QRectF(2, 2.8, 10, 11.6), 1, 1);
  painter.setBrush(inks.paper);
  painter.drawRoundedRect(QRectF(4.6, 1.4, 4.8, 2.8), 0.8, 0.8);
  DrawPage(painter, inks, {6.6, 6.4, 7.4, 8.2});
}

QPolygonF Arrow(QPointF tip, double scale) {
  QPolygonF arrow{{0, 0}, {0, 11}, {2.6, 8.6}, {4.4, 12.6}, {6.2, 11.8}, {4.5, 7.9}, {8, 7.9}};
  for (QPointF& point : arrow) point = tip + point * scale;
  return arrow;
}

void DrawPointer(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks));
  painter.setBrush(inks.paper);
  painter.drawPolygon(Arrow({4.6, 1.6}, 1));
}

void DrawCellProperty(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks));
  painter.setBrush(inks.green);
  painter.drawPolygon(Hexagon({6.4, 9.4}, 5.2));
  painter.setPen(LinePen(inks, 3.4));
  painter.drawLine(QPointF(13.6, 2.4), QPointF(9.4, 6.8));
  painter.setPen(QPen(inks.amber, 1.8, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(13.6, 2.4), QPointF(9.4, 6.8));
  painter.setPen(Qt::NoPen);
  painter.setBrush(inks.line);
  painter.drawPolygon(QPolygonF{{9.8, 8.2}, {8, 6.4}, {5.8, 10.4}});
}

void DrawSign(QPainter& painter, const QString& sign, const QRectF& place, const QColor& color) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(static_cast<int>(place.height() * 10));
  font.setBold(true);
  QPainterPath path;
  path.addText(0, 0, font, sign);
  const QRectF bounds = path.boundingRect();
  const double scale = place.height() / bounds.height();
  painter.save();
  painter.translate(place.center());
  painter.scale(scale, scale);
  painter.translate(-bounds.center());
  painter.fillPath(path, color);
  painter.restore();
}

void DrawAbout(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks));
  painter.setBrush(inks.blue);
  painter.drawEllipse(QPointF(8, 8), 6.4, 6.4);
  DrawSign(painter, QStringLiteral("i"), {5, 4.2, 6, 7.6}, Qt::white);
}

void DrawContextHelp(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks));
  painter.setBrush(inks.paper);
  painter.drawPolygon(Arrow({1.6, 2.4}, 0.95));
  DrawSign(painter, QStringLiteral("?"), {9.4, 1.6, 6, 9.4}, inks.blue);
}

/// A ring of six coloured cells around a pale one.
void DrawGalaxy(QPainter& painter, const Inks& inks, QPointF centre, double radius) {
  const QColor ring[] = {inks.blue,
                         inks.green,
                         inks.amber,
                         inks.blue.darker(140),
                         inks.green.darker(140),
                         QColor(0xc0, 0x50, 0x4d)};
  const double step = radius * std::numbers::sqrt3;
  painter.setPen(QPen(QColor(0x10, 0x14, 0x20), 0.5));
  for (int place = 0; place < 6; ++place) {
    const double angle = (place + 0.5) * std::numbers::pi / 3;
    painter.setBrush(ring[place]);
    painter.drawPolygon(Hexagon(centre + QPointF(step * std::cos(angle), step * std::sin(angle)), radius));
  }
  painter.setBrush(QColor(0xf4, 0xe9, 0xc8));
  painter.drawPolygon(Hexagon(centre, radius));
}

void DrawApplication(QPainter& painter, const Inks& inks) {
  DrawGalaxy(painter, inks, {8, 8}, 2.9);
}

void DrawMapPage(QPainter& painter, const Inks& inks) {
  DrawPage(painter, inks, {2.5, 1, 11, 14});
  DrawGalaxy(painter, inks, {8, 9.4}, 1.7);
}

void DrawMinimize(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks, 1.4));
  painter.drawLine(QPointF(4, 11), QPointF(12, 11));
}

void DrawRestore(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks, 1.2));
  painter.drawPolyline(QPolygonF{{6, 6}, {6, 4}, {12, 4}, {12, 10}, {10, 10}});
  painter.drawRect(QRectF(4, 6, 6, 6));
}

void DrawClose(QPainter& painter, const Inks& inks) {
  painter.setPen(LinePen(inks, 1.4));
  painter.drawLine(QPointF(4.5, 4.5), QPointF(11.5, 11.5));
  painter.drawLine(QPointF(11.5, 4.5), QPointF(4.5, 11.5));
}

using Drawing = void (*)(QPainter&, const Inks&);

struct IconRow {
  int command;
  Drawing draw;
};

constexpr IconRow kIcons[] = {
    {ID_FILE_NEW, DrawNew},
    {ID_FILE_OPEN, DrawOpen},
    {ID_FILE_SAVE, DrawSave},
    {ID_FILE_PRINT, DrawPrint},
    {ID_EDIT_CUT, DrawCut},
    {ID_EDIT_COPY, DrawCopy},
    {ID_EDIT_PASTE, DrawPaste},
    {ID_TOOL_POINTER, DrawPointer},
    {ID_APP_ABOUT, DrawAbout},
    {ID_TOOL_CELL_PROPERTY, DrawCellProperty},
    {ID_CONTEXT_HELP, DrawContextHelp},
};

/// Draws anew for every size, mode and scheme, so nothing is ever scaled.
class DrawnIcon final : public QIconEngine {
 public:
  explicit DrawnIcon(Drawing draw) : draw_(draw) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const double side = std::min(rect.width(), rect.height());
    painter->translate(QRectF(rect).center() - QPointF(side, side) / 2);
    painter->scale(side / kFieldUnits, side / kFieldUnits);
    draw_(*painter, Inks::For(mode));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new DrawnIcon(draw_); }

 private:
  Drawing draw_;
};

}  // namespace

QIcon CommandIcon(int command) {
  const auto* row = std::ranges::find(kIcons, command, &IconRow::command);
  return row == std::end(kIcons) ? QIcon() : QIcon(new DrawnIcon(row->draw));
}

QIcon WindowButtonIcon(WindowButton button) {
  constexpr Drawing kDrawings[] = {DrawMinimize, DrawRestore, DrawClose};
  return QIcon(new DrawnIcon(kDrawings[static_cast<int>(button)]));
}

QIcon DocumentIcon(int resourceId) {
  switch (resourceId) {
    case IDR_GENERIC_DATA:
      return QIcon(new DrawnIcon(DrawNew));
    case IDR_VASTREL_MAP:
      return QIcon(new DrawnIcon(DrawMapPage));
    default:
      return ApplicationIcon();
  }
}

QIcon ApplicationIcon() {
  return QIcon(new DrawnIcon(DrawApplication));
}

}  // namespace quorvel
