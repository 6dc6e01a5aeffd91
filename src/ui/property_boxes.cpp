#include "ui/property_boxes.h"

#include <cassert>

#include <QComboBox>
#include <QLineEdit>

#include "map/member_editors.h"
#include "map/paint_tool.h"
#include "map/vastrel_doc.h"
#include "render/display_text.h"
#include "ui/tool_options_bar.h"

namespace quorvel {
namespace {

/// Between the combo box of members and the editor.
constexpr int kGapPx = 2;

}  // namespace

void PropertyBoxes::Show(CVastrelDoc& document) {
  if (document_ != &document || boxes_.size() != document.m_editors.size()) Build(document);
  for (std::size_t place = 0; place < boxes_.size(); ++place) {
    const MemberEditor* editor = EditorOf(*document.m_editors[place]);
    boxes_[place]->setVisible(editor && editor->IsVisible());
    boxes_[place]->setEnabled(bar_.MemberCombo().isEnabled());
  }
}

void PropertyBoxes::Clear() {
  for (const QPointer<QWidget>& box : boxes_) delete box;
  boxes_.clear();
  document_ = nullptr;
}

void PropertyBoxes::Build(CVastrelDoc& document) {
  Clear();
  document_ = &document;
  const QRect place = bar_.MemberCombo().geometry().translated(bar_.MemberCombo().width() + kGapPx, 0);
  for (const MemberDef* member : document.m_editors) {
    const MemberEditor* editor = EditorOf(*member);
    assert(editor);
    const auto* edit = dynamic_cast<const CMemberEdit*>(editor);
    QWidget* box =
        edit ? MakeEdit(document, *edit) : MakeCombo(document, static_cast<const CMemberCombo&>(*editor));
    box->setObjectName(QString::number(editor->GetControlId()));
    box->setAccessibleDescription(DisplayText(member->GetName()));
    box->setGeometry(place);
    box->hide();
    boxes_.emplace_back(box);
  }
}

/// A text that the user leaves alone keeps its bytes.
QWidget* PropertyBoxes::MakeEdit(CVastrelDoc& document, const CMemberEdit& editor) {
  auto* box = new QLineEdit(DisplayText(editor.GetText()), &bar_.Controls());
  QObject::connect(box, &QLineEdit::textEdited, box,
                   [&document, id = editor.GetControlId()](const QString& text) {
                     auto* edited = dynamic_cast<CMemberEdit*>(FindEditor(document, id));
                     if (edited) edited->SetText(text.toStdString());
                   });
  return box;
}

QWidget* PropertyBoxes::MakeCombo(CVastrelDoc& document, const CMemberCombo& editor) {
  auto* box = new QComboBox(&bar_.Controls());
  for (const std::string& name : editor.GetNames()) box->addItem(DisplayText(name));
  box->setCurrentIndex(editor.GetSelection());
  QObject::connect(box, &QComboBox::currentIndexChanged, box,
                   [&document, id = editor.GetControlId()](int chosen) {
                     auto* edited = dynamic_cast<CMemberCombo*>(FindEditor(document, id));
                     if (edited) edited->SetSelection(chosen);
                   });
  return box;
}

}  // namespace quorvel
