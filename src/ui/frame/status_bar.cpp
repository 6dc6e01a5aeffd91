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

}  // namespace

CStatusBar::CStatusBar(QWidget* parent)
    : QStatusBar(parent),
      messagePane_(MakePane(ID_SEPARATOR, *this)),
      positionPane_(MakePane(ID_INDICATOR_POSITION, *this)),
      progress_(new QProgressBar(this)),
      message_(FromResource(FindString(IDS_IDLE_MESSAGE).text)) {
  setObjectName(QString::number(AFX_IDW_STATUS_BAR));
  // A long message must not widen the window; it is cut at the pane's edge.
  messagePane_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  messagePane_->setText(message_);
  positionPane_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  positionPane_->setWhatsThis(FromResource(FindString(ID_INDICATOR_POSITION).whatsThis));
  positionPane_->setToolTip(FromResource(TooltipOf(ID_GO_TO_CELL)));
  positionPane_->installEventFilter(this);
  addWidget(messagePane_, 1);
  addPermanentWidget(positionPane_);
  SizePositionPane();

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
  positionPane_->setText(text);
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
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) SizePositionPane();
}

void CStatusBar::SizePositionPane() {
  const QString widest = FromResource(FindString(ID_INDICATOR_POSITION).text);
  const int frame = 2 * (positionPane_->frameWidth() + positionPane_->margin() + kPaneMarginPx);
  positionPane_->setFixedWidth(positionPane_->fontMetrics().horizontalAdvance(widest) + frame);
}

void CStatusBar::PlaceProgress() {
  layout()->activate();
  progress_->setGeometry(positionPane_->geometry());
}

}  // namespace quorvel
