#include "ui/wizard/map_wizard.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/dialogs/dialog_builder.h"
#include "ui/wizard/property_page.h"

namespace quorvel {
namespace {

/// Sheet measures in dialog units.
constexpr DialogRect kButtonSize = {0, 0, 50, 14};
constexpr DialogRect kMargin = {0, 0, 7, 7};

QFrame* MakeLine() {
  auto* line = new QFrame;
  line->setFrameStyle(QFrame::HLine | QFrame::Plain);
  line->setForegroundRole(QPalette::Mid);
  return line;
}

QFont HeadingFont(QFont font) {
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.2);
  return font;
}

}  // namespace

CMapWizard::CMapWizard(QWidget* parent) : QDialog(parent) {
  BuildFrame();
}

CMapWizard::~CMapWizard() {
  for (CPropertyPage* page : pages_) page->setParent(nullptr);
}

void CMapWizard::BuildFrame() {
  const QSize margin = PixelsOf(kMargin, *this).size();
  auto* sheet = new QVBoxLayout(this);
  sheet->setContentsMargins(0, 0, 0, 0);
  sheet->setSpacing(0);
  sheet->setSizeConstraint(QLayout::SetFixedSize);

  auto* heading = new QVBoxLayout;
  heading->setContentsMargins(margin.width(), margin.height(), margin.width(), margin.height() / 2);
  heading->setSpacing(2);
  caption_ = new QLabel(this);
  caption_->setFont(HeadingFont(font()));
  purpose_ = new QLabel(this);
  heading->addWidget(caption_);
  heading->addWidget(purpose_);
  sheet->addLayout(heading);

  pageArea_ = new QWidget(this);
  sheet->addWidget(pageArea_);
  sheet->addWidget(MakeLine());

  auto* buttons = new QHBoxLayout;
  buttons->setContentsMargins(margin.width(), margin.height(), margin.width(), margin.height());
  buttons->setSpacing(margin.width() / 2);
  buttons->addStretch();
  buttons->addWidget(back_ = MakeButton(ID_WIZBACK, tr("&Back"), &CMapWizard::Back));
  buttons->addWidget(next_ = MakeButton(ID_WIZNEXT, tr("&Next"), &CMapWizard::Next));
  buttons->addWidget(finish_ = MakeButton(ID_WIZFINISH, tr("&Finish"), &CMapWizard::Finish));
  buttons->addSpacing(margin.width() / 2);
  QPushButton* cancel = MakeButton(IDCANCEL, tr("Cancel"), nullptr);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  buttons->addWidget(cancel);
  sheet->addLayout(buttons);
}

QPushButton* CMapWizard::MakeButton(int id, const QString& text, void (CMapWizard::*pressed)()) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(QString::number(id));
  button->setAutoDefault(false);
  button->setMinimumSize(PixelsOf(kButtonSize, *this).size());
  // A button's key leaves the focus where it is; taking it ends an editor that is still open on the page.
  if (pressed) {
    connect(button, &QPushButton::clicked, this, [this, button, pressed] {
      button->setFocus();
      (this->*pressed)();
    });
  }
  return button;
}

void CMapWizard::AddPage(CPropertyPage& page) {
  pages_.push_back(&page);
  page.setParent(pageArea_);
  page.hide();
  pageArea_->setFixedSize(pageArea_->minimumSize().expandedTo(page.size()));
}

int CMapWizard::DoModal() {
  if (pages_.empty()) return IDCANCEL;
  SetActivePage(0);
  return exec() == ID_WIZFINISH ? ID_WIZFINISH : IDCANCEL;
}

void CMapWizard::SetActivePage(int index) {
  if (active_ >= 0) pages_[static_cast<std::size_t>(active_)]->hide();
  active_ = index;
  CPropertyPage& page = *pages_[static_cast<std::size_t>(index)];
  page.Create();
  setWindowTitle(page.Caption());
  caption_->setText(page.Caption());
  purpose_->setText(page.Purpose());
  page.show();
  page.OnSetActive();
  page.FocusFirstControl();
}

void CMapWizard::UpdateWizardButtons(int mask) {
  const int last = static_cast<int>(pages_.size()) - 1;
  int buttons = active_ == last ? PSWIZB_FINISH : PSWIZB_NEXT;
  if (active_ > 0) buttons |= PSWIZB_BACK;
  QMetaObject::invokeMethod(
      this, [this, buttons, mask] { SetWizardButtons(buttons & mask); }, Qt::QueuedConnection);
}

void CMapWizard::SetWizardButtons(int buttons) {
  back_->setVisible(pages_.size() > 1);
  back_->setEnabled(buttons & PSWIZB_BACK);
  next_->setVisible(!(buttons & PSWIZB_FINISH));
  next_->setEnabled(buttons & PSWIZB_NEXT);
  next_->setDefault(buttons & PSWIZB_NEXT);
  finish_->setVisible(buttons & PSWIZB_FINISH);
  finish_->setDefault(buttons & PSWIZB_FINISH);
}

void CMapWizard::Back() {
  pages_[static_cast<std::size_t>(active_)]->OnWizardBack();
  SetActivePage(active_ - 1);
}

void CMapWizard::Next() {
  pages_[static_cast<std::size_t>(active_)]->OnWizardNext();
  SetActivePage(active_ + 1);
}

void CMapWizard::Finish() {
  pages_[static_cast<std::size_t>(active_)]->OnWizardFinish();
  done(ID_WIZFINISH);
}

}  // namespace quorvel
