#include "ui/frame/property_boxes.h"

#include "map/document/paint_tool.h"
#include "map/document/vastrel_doc.h"
#include "map/types/member_editors.h"
#include "render/display_text.h"
#include "ui/dialogs/value_edit.h"
#include "ui/frame/bar_combo.h"
#include "ui/frame/tool_options_bar.h"

namespace quorvel {
namespace {

/// Between the combo box of members and the editor.
constexpr int kGapPx = 2;

}  // namespace

void PropertyBoxes::Show(CVastrelDoc& document) {
  if (document_ != &document) Clear();
  document_ = &document;
  QWidget* shown = document.m_pPaintMember ? BoxOf(document, *document.m_pPaintMember) : nullptr;
  for (const auto& [id, box] : boxes_) box->setVisible(box == shown);
}

void PropertyBoxes::Clear() {
  for (const auto& [id, box] : boxes_) delete box;
  boxes_.clear();
  document_ = nullptr;
}

QWidget* PropertyBoxes::BoxOf(CVastrelDoc& document, const MemberDef& member) {
  const MemberEditor* editor = EditorOf(member);
  if (!editor) return nullptr;
  QPointer<QWidget>& box = boxes_[editor->GetControlId()];
  if (!box) box = MakeBox(document, member);
  return box;
}

QWidget* PropertyBoxes::MakeBox(CVastrelDoc& document, const MemberDef& member) {
  const MemberEditor& editor = *EditorOf(member);
  const auto* edit = dynamic_cast<const CMemberEdit*>(&editor);
  QWidget* box = edit ? MakeEdit(document, member, *edit)
                      : MakeCombo(document, member, static_cast<const CMemberCombo&>(editor));
  QComboBox& combo = bar_.MemberCombo();
  box->setObjectName(QString::number(editor.GetControlId()));
  box->setGeometry(combo.geometry().translated(combo.width() + kGapPx, 0));
  QWidget::setTabOrder(&combo, box);
  return box;
}

/// A text that the user leaves alone keeps its bytes.
QWidget* PropertyBoxes::MakeEdit(CVastrelDoc& document, const MemberDef& member, const CMemberEdit& editor) {
  auto* box = new ValueEdit(member.GetKind(), DisplayText(member.GetName()), &bar_.Controls());
  box->setText(DisplayText(editor.GetText()));
  QObject::connect(box, &QLineEdit::textEdited, box,
                   [&document, id = editor.GetControlId()](const QString& text) {
                     auto* edited = dynamic_cast<CMemberEdit*>(FindEditor(document, id));
                     if (edited) edited->SetText(text.toStdString());
                   });
  return box;
}

QWidget* PropertyBoxes::MakeCombo(CVastrelDoc& document, const MemberDef& member,
                                  const CMemberCombo& editor) {
  auto* box = new BarCombo(&bar_.Controls());
  box->setAccessibleDescription(DisplayText(member.GetName()));
  QStringList names;
  for (const std::string& name : editor.GetNames()) names << DisplayText(name);
  box->addItems(names);
  box->setCurrentIndex(editor.GetSelection());
  QObject::connect(box, &QComboBox::currentIndexChanged, box,
                   [&document, id = editor.GetControlId()](int chosen) {
                     auto* edited = dynamic_cast<CMemberCombo*>(FindEditor(document, id));
                     if (edited) edited->SetSelection(chosen);
                   });
  return box;
}

}  // namespace quorvel
