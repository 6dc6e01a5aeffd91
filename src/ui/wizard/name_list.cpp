#include "ui/wizard/name_list.h"

#include <QAbstractItemView>
#include <QEvent>

namespace quorvel {

NameList::NameList(QWidget* parent) : QComboBox(parent) {
  hide();
  view()->parentWidget()->installEventFilter(this);
}

void NameList::Open(const QStringList& names, const QRect& place) {
  clear();
  addItems(names);
  setCurrentIndex(names.isEmpty() ? -1 : 0);
  setGeometry(place);
  show();
  raise();
  if (names.isEmpty()) {
    emit ClosedUp();  // there is no list that could be opened
  } else {
    showPopup();
  }
}

/// The list is hidden before its choice is taken over, so the report waits until that is done.
bool NameList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Hide && watched == view()->parentWidget()) {
    QMetaObject::invokeMethod(this, &NameList::ClosedUp, Qt::QueuedConnection);
  }
  return QComboBox::eventFilter(watched, event);
}

}  // namespace quorvel
