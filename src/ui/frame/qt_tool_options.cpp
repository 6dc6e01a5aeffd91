#include "ui/frame/qt_tool_options.h"

#include <QSignalBlocker>

#include "map/document/editing.h"
#include "map/document/vastrel_doc.h"
#include "render/display_text.h"
#include "ui/frame/tool_options_bar.h"

namespace quorvel {
namespace {

QStringList MemberNames(const ClassDef* cellClass) {
  QStringList names;
  if (!cellClass) return names;
  for (const auto& member : cellClass->Members()) names << DisplayText(member->GetName());
  return names;
}

/// Leaves a list that is right already alone: it may be the one that the user has just chosen from.
void FillToolCombo(QComboBox& combo, const QStringList& names) {
  QStringList shown;
  for (int place = 0; place < combo.count(); ++place) shown << combo.itemText(place);
  if (shown == names) return;
  combo.clear();
  combo.addItems(names);
}

}  // namespace

void QtToolOptions::Attach(CToolOptionsBar* bar) {
  boxes_.reset();
  bar_ = bar;
  if (bar) boxes_ = std::make_unique<PropertyBoxes>(*bar);
}

void QtToolOptions::ShowTool(CVastrelDoc& document) {
  if (!bar_) return;
  QComboBox& combo = bar_->MemberCombo();
  const QSignalBlocker quiet(combo);
  FillToolCombo(combo, MemberNames(document.m_pCellClass));
  combo.setCurrentIndex(document.m_nPaintIndex);
  combo.setEnabled(document.m_nTool == kCellPropertyTool && document.m_pCellClass);
  boxes_->Show(document);
}

void QtToolOptions::ShowNothing() {
  if (!bar_) return;
  const QSignalBlocker quiet(bar_->MemberCombo());
  boxes_->Clear();
  bar_->MemberCombo().clear();
  bar_->MemberCombo().setEnabled(false);
}

}  // namespace quorvel
