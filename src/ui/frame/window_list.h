#pragma once

#include <QActionGroup>
#include <QList>
#include <QMdiArea>
#include <QMenu>

namespace quorvel {

/// Object name of each item of the list and of its separator.
inline constexpr char kWindowItemName[] = "window";

/// The open map windows as items at the end of the Window menu, the one in front checked; choosing one
/// brings it to the front.
class WindowList : public QObject {
  Q_OBJECT
 public:
  explicit WindowList(QMdiArea& area);

  /// From now on the list stands at the end of this menu, behind a separator.
  void AddTo(QMenu& menu);
  /// Brings the items up to date with the windows and their titles.
  void Update();

 private:
  QAction& Item(qsizetype place);
  void Activate(const QAction* item);

  QMdiArea& area_;
  QActionGroup* group_;
  QMenu* menu_ = nullptr;
  QList<QAction*> items_;  // the separator, then one a window, as many as were ever needed
};

}  // namespace quorvel
