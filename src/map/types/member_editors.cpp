#include "map/types/member_editors.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <variant>

#include "data/list_def.h"
#include "data/object_member.h"

namespace quorvel {
namespace {

std::unique_ptr<MemberEditor> MakeEditor(MemberKind kind) {
  switch (kind) {
    case MemberKind::String:
    case MemberKind::Int:
    case MemberKind::Float:
      return std::make_unique<CMemberEdit>();
    case MemberKind::Index:
    case MemberKind::Object:
      return std::make_unique<CMemberCombo>();
  }
  return nullptr;
}

/// Puts what a member embeds on a worklist, to be taken off in order.
void OpenEmbedded(const MemberDef& member, std::vector<MemberDef*>& open) {
  const ClassDef* embedded = EmbeddedClass(member);
  if (!embedded) return;
  const auto& members = embedded->Members();
  std::transform(members.rbegin(), members.rend(), std::back_inserter(open),
                 [](const auto& inner) { return inner.get(); });
}

std::int32_t DefaultPosition(const MemberDef& member) {
  const auto* initial = std::get_if<IntDefault>(&member.GetDefault());
  return initial ? initial->initial : 0;
}

}  // namespace

void MemberEditor::Create(MemberDef& member, int controlId) {
  controlId_ = controlId;
  TakeDefault(member);
}

void CMemberEdit::TakeDefault(MemberDef& member) {
  std::uint32_t slot = 0;
  member.StoreValue(&slot, nullptr);
  member.FormatValue(text_, &slot);
}

void CMemberEdit::StoreInto(const MemberDef& member, void* slot) const {
  member.StoreText(slot, text_);
}

void CMemberCombo::SetSelection(std::int32_t position) {
  selection_ = position >= 0 && static_cast<std::size_t>(position) < names_.size() ? position : -1;
}

void CMemberCombo::TakeDefault(MemberDef& member) {
  names_.clear();
  if (const ClassDef* embedded = EmbeddedClass(member)) {
    for (const std::unique_ptr<MemberDef>& inner : embedded->Members()) names_.push_back(inner->GetName());
  } else if (member.GetKind() == MemberKind::Index && member.GetRefType()) {
    names_ = static_cast<const ListDef*>(member.GetRefType())->ItemNames();
  }
  SetSelection(member.SetTag(DefaultPosition(member)));
}

void CMemberCombo::StoreInto(const MemberDef& member, void* slot) const {
  if (member.GetKind() == MemberKind::Index) member.StoreValue(slot, &selection_);
}

MemberEditor* EditorOf(const MemberDef& member) {
  return dynamic_cast<MemberEditor*>(member.GetAttachment());
}

void AttachEditor(MemberDef& member) {
  std::vector<MemberDef*> open = {&member};
  while (!open.empty()) {
    MemberDef* next = open.back();
    open.pop_back();
    if (next->GetAttachment()) continue;
    next->SetAttachment(MakeEditor(next->GetKind()));
    OpenEmbedded(*next, open);
  }
}

void CreateEditors(MemberDef& member, int& lastControlId, std::vector<MemberDef*>& created) {
  std::vector<MemberDef*> open = {&member};
  while (!open.empty()) {
    MemberDef* next = open.back();
    open.pop_back();
    MemberEditor* editor = EditorOf(*next);
    if (!editor || editor->GetControlId() != 0) continue;
    editor->Create(*next, ++lastControlId);
    created.push_back(next);
    OpenEmbedded(*next, open);
  }
}

}  // namespace quorvel
