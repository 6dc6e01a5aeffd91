#pragma once

#include <QTimer>
#include <QTreeView>

#include "ui/wizard/value_list_model.h"

namespace quorvel {

/// List 1012: the values of one property with real columns and in-place editing of column 0. Controls that
/// lie over the list are its siblings, so that assistive technology finds them; places are in the coordinates
/// of the common parent.
class ValueList : public QTreeView {
  Q_OBJECT

 public:
  ValueList(ValueListModel& model, QWidget* parent);

  ValueListModel& Model() const { return model_; }

  /// Gives the outer columns `outerWidth` pixels and the middle one the rest, and the heading at least
  /// `headingHeight`.
  void ArrangeColumns(int outerWidth, int headingHeight);

  QRect HeadingPlace(int column) const;
  /// From the bottom of the headings to that of the list.
  QRect ColumnPlace(int column) const;
  QRect CellPlace(int row, int column) const;
  /// The first row that is seen, -1 for an empty list.
  int FirstSeenRow() const;

  /// The first selected row, -1 for none.
  int FirstSelectedRow() const;

  /// Opens the text editor over column 0 of the row. However it ends, the typed text is stored.
  void EditLabel(int row);

 signals:
  /// A row was clicked, or selected by a key.
  void Chosen();
  void DoubleClicked();
  void DeletePressed();
  void F2Pressed();
  /// A second, slow click on the value of the row that is selected and current.
  void LabelEditAsked(int row);
  /// Columns, rows or the scrolled part changed: what lies over the list moves along.
  void PlacesChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void updateGeometries() override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  QRect InParent(QRect inViewport) const;

  ValueListModel& model_;
  QTimer slowClick_;
  int slowlyClickedRow_ = -1;
};

}  // namespace quorvel
