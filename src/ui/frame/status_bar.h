#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

namespace quorvel {

/// The main frame's status bar: pane 0 for messages, which stretches, pane 501 for positions, as wide as its
/// template text, and a progress bar that lies exactly over pane 501 while it is shown. A longer position is
/// cut with an ellipsis; its tooltip and its accessible name then have the whole.
class CStatusBar : public QStatusBar {
  Q_OBJECT
 public:
  /// `positionTip` says what a click on the position does.
  CStatusBar(const QString& positionTip, QWidget* parent);

  void SetMessageText(const QString& text);
  /// Covers the message while a menu item is lit; an empty prompt uncovers it.
  void SetPrompt(const QString& prompt);
  void SetStatusText(const QString& text);
  void ShowProgress(bool show);
  void SetProgressPos(int percent);

 signals:
  void PositionClicked();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void SizePositionPane();
  void ShowPosition();
  void PlaceProgress();

  QLabel* messagePane_;
  QLabel* positionPane_;
  QProgressBar* progress_;
  const QString positionTip_;
  QString message_;
  QString position_;
};

}  // namespace quorvel
