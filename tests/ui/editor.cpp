#include "tests/ui/editor.h"

#include <utility>

#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <fmt/format.h>

#include "map/grid/cell_metrics.h"
#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

constexpr char kDefinitions[] =
    "[Version/Data] type='text' [Classes/Map] type='class' [Classes/Map/Width] type='int' range='1<10<1000' "
    "[Classes/Map/Height] type='int' range='1<10<1000' [Classes/Empire] type='items' 0='Free' 1='Aurelia' "
    "[Classes/Empire/UI/Color] 0=0xDDDDDD 1=0x77AADD [Classes/Star] type='items' 0='Void' 1='Red' "
    "[Classes/Star/UI/Color] 0=0x8C8C8C 1=0xE0705A [Classes/Cell] type='class' [Classes/Cell/n] "
    "type='string' "
    "range='Sol' [Classes/Cell/v] type='int' range='0<0<999999' [Classes/Cell/owner] type='index' "
    "range='Empire' [Classes/Cell/star] type='index' range='Star' [Objects/Galaxy] Width={} Height={}";

}  // namespace

void NameFile(QDialog& dialog, const std::string& path) {
  auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
  ASSERT_TRUE(name) << "no file dialog: " << dialog.windowTitle().toStdString();
  name->setText(QString::fromStdString(path));
  QTest::keyClick(name, Qt::Key_Return);
}

std::string Editor::MapText(int width, int height) {
  std::string text = Lines(fmt::format(kDefinitions, width, height));
  for (int index = 0; index < width * height; ++index) {
    text += fmt::format("[Objects/Galaxy/Cells/{}]\r\nv={}\r\nowner={}\r\nstar={}\r\n", index, index,
                        index % 2, index % 3 % 2);
  }
  return text;
}

Services Editor::ServicesFor(Answers answers) {
  const bool inWindows = answers == Answers::InWindows;
  return {inWindows ? static_cast<Prompts&>(windowPrompts) : prompts,
          feedback,
          inWindows ? static_cast<MapDialogs&>(windowDialogs) : dialogs,
          toolOptions,
          settings,
          clock,
          folder / "fills"};
}

void Editor::GiveDefinitions(const std::string& text) {
  settings.Set(std::string(kApplicationKey) + "\\Definitions", "DefaultFile",
               folder.Write("Definitions.txt", text));
}

QString Editor::Pane(int id) {
  return Frame().StatusBar().findChild<QLabel*>(QString::number(id))->text();
}

QPoint Editor::Middle(CellCoord cell) {
  const CellPolygon outline = CellMetrics::At(View().CellSize()).Outline(cell);
  return QPoint(outline[6].x, outline[6].y) - View().ScrollPosition();
}

void Editor::SendMouse(QEvent::Type type, QPoint place, Qt::MouseButton button) {
  QWidget& widget = *View().viewport();
  QMouseEvent event(type, place, widget.mapToGlobal(place), button, heldButton_, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

void Editor::MovePointer(QPoint place) {
  SendMouse(QEvent::MouseMove, place, Qt::NoButton);
}

void Editor::PressAt(QPoint place, Qt::MouseButton button) {
  MovePointer(place);
  heldButton_ = button;
  SendMouse(QEvent::MouseButtonPress, place, button);
}

void Editor::Release(QPoint place) {
  SendMouse(QEvent::MouseButtonRelease, place, std::exchange(heldButton_, Qt::NoButton));
}

}  // namespace quorvel
