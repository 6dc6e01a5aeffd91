#pragma once

#include <QComboBox>

namespace quorvel {

/// Combo box 1016: the names of a list, popped up over a value. However its list closes, the caller hears of
/// it.
class NameList : public QComboBox {
  Q_OBJECT

 public:
  explicit NameList(QWidget* parent);

  /// Fills the box with `names`, selects the first, shows it at `place` and opens its list.
  void Open(const QStringList& names, const QRect& place);

 signals:
  /// The list has closed, with the selection made.
  void ClosedUp();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quorvel
