#include "ui/frame/tool_options_bar.h"

#include <algorithm>

#include "map/document/paint_tool.h"
#include "ui/dialogs/dialog_builder.h"
#include "ui/frame/bar_combo.h"
#include "ui/resources/shown_text.h"
#include "ui/resources/string_table.h"

namespace quorvel {

CToolOptionsBar::CToolOptionsBar(QWidget* parent) : QToolBar(parent), controls_(new QWidget(this)) {
  setObjectName(QString::number(AFX_IDW_DIALOGBAR));
  setWindowTitle(tr("Tool Options"));
  BuildControls(kToolOptionsTemplate, *controls_, [this](const ControlRow& row) {
    return row.kind == ControlKind::ComboBox ? new BarCombo(controls_) : nullptr;
  });
  memberCombo_ = FindControl<QComboBox>(*controls_, IDC_TOOL_MEMBER);
  memberCombo_->setEnabled(false);
  const StringRow& row = FindString(IDC_TOOL_MEMBER);
  memberCombo_->setAccessibleDescription(FromResource(TooltipOf(row.text)));
  memberCombo_->setToolTip(FromResource(TooltipOf(row.text)));
  memberCombo_->setStatusTip(FromResource(PromptOf(row.text)));
  memberCombo_->setWhatsThis(FromResource(row.whatsThis));

  connect(memberCombo_, &QComboBox::currentIndexChanged, this,
          [this](int position) { emit Command(IDC_TOOL_MEMBER, kSelectionChanged, position); });

  QSize size = PixelsOf({0, 0, kToolOptionsTemplate.width, kToolOptionsTemplate.height}, *controls_).size();
  size.setHeight(std::max(size.height(), memberCombo_->geometry().bottom() + 1 + memberCombo_->y()));
  controls_->setFixedSize(size);
  addWidget(controls_);
}

}  // namespace quorvel
