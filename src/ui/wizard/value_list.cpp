#include "ui/wizard/value_list.h"

#include <algorithm>

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>

#include "ui/wizard/label_editor.h"

namespace quorvel {

ValueList::ValueList(ValueListModel& model, QWidget* parent) : QTreeView(parent), model_(model) {
  setModel(&model);
  setItemDelegate(new LabelEditor(*this));
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setItemsExpandable(false);
  setAllColumnsShowFocus(true);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(SelectedClicked);
  setVerticalScrollMode(ScrollPerItem);
  header()->setSectionsMovable(false);
  header()->setSectionsClickable(false);
  header()->setStretchLastSection(false);
  connect(header(), &QHeaderView::sectionResized, this, &ValueList::PlacesChanged);

  slowClick_.setSingleShot(true);
  connect(&slowClick_, &QTimer::timeout, this, [this] { emit LabelEditAsked(slowlyClickedRow_); });
  connect(this, &QTreeView::clicked, this, &ValueList::Chosen);
  connect(this, &QTreeView::doubleClicked, this, [this] {
    slowClick_.stop();
    emit DoubleClicked();
  });
}

void ValueList::ArrangeColumns(int outerWidth, int headingHeight) {
  const int clientWidth = width() - 2 * frameWidth();
  header()->setMinimumHeight(headingHeight);
  header()->setSectionResizeMode(ValueListModel::kShare, QHeaderView::Stretch);
  setColumnWidth(ValueListModel::kValue, outerWidth);
  setColumnWidth(ValueListModel::kSlider, clientWidth - 2 * outerWidth);
}

QRect ValueList::InParent(QRect inViewport) const {
  return inViewport.translated(viewport()->mapTo(parentWidget(), QPoint(0, 0)));
}

QRect ValueList::HeadingPlace(int column) const {
  const QRect inHeader(header()->sectionViewportPosition(column), 0, header()->sectionSize(column),
                       header()->height());
  return inHeader.translated(header()->mapTo(parentWidget(), QPoint(0, 0)));
}

QRect ValueList::ColumnPlace(int column) const {
  return InParent(
      {header()->sectionViewportPosition(column), 0, header()->sectionSize(column), viewport()->height()});
}

QRect ValueList::CellPlace(int row, int column) const {
  return InParent(visualRect(model_.index(row, column)));
}

int ValueList::FirstSeenRow() const {
  return indexAt(QPoint(0, 0)).row();
}

int ValueList::FirstSelectedRow() const {
  int first = -1;
  for (const QModelIndex& index : selectionModel()->selectedRows()) {
    if (first < 0 || index.row() < first) first = index.row();
  }
  return first;
}

void ValueList::EditLabel(int row) {
  const QModelIndex index = model_.index(row, ValueListModel::kValue);
  if (index.isValid()) QTreeView::edit(index, AllEditTriggers, nullptr);
}

/// The list opens no editor by itself: what a label edit is depends on the property's kind.
bool ValueList::edit(const QModelIndex& index, EditTrigger trigger, QEvent*) {
  if (trigger != SelectedClicked || index.column() != ValueListModel::kValue || index != currentIndex())
    return false;
  slowlyClickedRow_ = index.row();
  slowClick_.start(QApplication::doubleClickInterval());
  return false;
}

void ValueList::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Delete:
      emit DeletePressed();
      return;
    case Qt::Key_F2:
      emit F2Pressed();
      return;
    default:
      break;
  }
  const QModelIndex before = currentIndex();
  const int selectedBefore = FirstSelectedRow();
  QTreeView::keyPressEvent(event);
  if (currentIndex() != before || FirstSelectedRow() != selectedBefore) emit Chosen();
}

void ValueList::updateGeometries() {
  QTreeView::updateGeometries();
  emit PlacesChanged();
}

void ValueList::scrollContentsBy(int dx, int dy) {
  QTreeView::scrollContentsBy(dx, dy);
  emit PlacesChanged();
}

}  // namespace quorvel
