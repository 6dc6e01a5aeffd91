#include "ui/frame/status_bar.h"

#include <QEvent>
#include <QLayout>
#include <QMouseEvent>

#include "ui/resources/command_ids.h"
#include "ui/resources/shown_text.h"
#include "ui/resources/string_table.h"

namespace quorvel {
namespace {

constexpr int kPaneMarginPx = 6;

QLabel* MakePane(int id, QWidget& parent) {
  auto* pane = new QLabel(&parent);
  pane->setObjectName(QString::number(id));
  pane->setTextFormat(Qt::PlainText);
  pane->setMargin(1);
  pane->setIndent(kPaneMarginPx);
  return pane;
}

/// What a pane has to both sides of its text, in all.
int RoomBeside(const QLabel& pane) {
  return 2 * (pane.frameWidth() + pane.margin() + kPaneMarginPx);
}

}  // namespace

CStatusBar::CStatusBar(const QString& positionTip, QWidget* parent)
    : QStatusBar(parent),
      messagePane_(MakePane(ID_SEPARATOR, *this)),
      positionPane_(MakePane(ID_INDICATOR_POSITION, *this)),
      progress_(new QProgressBar(this)),
      positionTip_(positionTip),
      message_(FromResource(FindString(IDS_IDLE_MESSAGE).text)) {
  setObjectName(QString::number(AFX_IDW_STATUS_BAR));
  // A long message must not widen the window; it is cut at the pane's edge.
  messagePane_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  messagePane_->setText(message_);
  positionPane_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  positionPane_->setWhatsThis(FromResource(FindString(ID_INDICATOR_POSITION).whatsThis));
  positionPane_->installEventFilter(this);
  addWidget(messagePane_, 1);
  addPermanentWidget(positionPane_);
  SizePositionPane();
  ShowPosition();

  progress_->setObjectName(QString::number(IDC_PROGRESS));
  progress_->setAccessibleName(tr("Progress"));
  progress_->setRange(0, 100);
  progress_->setValue(0);
  progress_->setTextVisible(false);
  progress_->hide();
}

void CStatusBar::SetMessageText(const QString& text) {
  message_ = text;
  messagePane_->setText(text);
}

void CStatusBar::SetPrompt(const QString& prompt) {
  messagePane_->setText(prompt.isEmpty() ? message_ : prompt);
}

void CStatusBar::SetStatusText(const QString& text) {
  position_ = text;
  ShowPosition();
}

void CStatusBar::ShowProgress(bool show) {
  if (show) {
    PlaceProgress();
    progress_->raise();
  }
  progress_->setVisible(show);
}

void CStatusBar::SetProgressPos(int percent) {
  progress_->setValue(percent);
}

bool CStatusBar::eventFilter(QObject* watched, QEvent* event) {
  const bool isClick = event->type() == QEvent::MouseButtonPress &&
                       static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
  if (!isClick) return QStatusBar::eventFilter(watched, event);
  emit PositionClicked();
  return true;
}

void CStatusBar::resizeEvent(QResizeEvent* event) {
  QStatusBar::resizeEvent(event);
  PlaceProgress();
}

void CStatusBar::changeEvent(QEvent* event) {
  QStatusBar::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
  SizePositionPane();
  ShowPosition();
}

void CStatusBar::SizePositionPane() {
  const QString widest = FromResource(FindString(ID_INDICATOR_POSITION).text);
  positionPane_->setFixedWidth(positionPane_->fontMetrics().horizontalAdvance(widest) +
                               RoomBeside(*positionPane_));
}

/// The accessible name is the shown text itself while that is the whole.
void CStatusBar::ShowPosition() {
  const int room = positionPane_->maximumWidth() - RoomBeside(*positionPane_);
  const QString shown = positionPane_->fontMetrics().elidedText(position_, Qt::ElideRight, room);
  const bool isCut = shown != position_;
  positionPane_->setText(shown);
  positionPane_->setAccessibleName(isCut ? position_ : QString());
  positionPane_->setToolTip(isCut ? position_ : positionTip_);
}

void CStatusBar::PlaceProgress() {
  layout()->activate();
  progress_->setGeometry(positionPane_->geometry());
}

}  // namespace quorvel
