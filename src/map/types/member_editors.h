#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/class_def.h"
#include "data/member_def.h"

namespace quorvel {

/// What the tool options bar offers for the value of one member: the contents of an edit box or of a
/// drop-down list, whether or not a bar shows them. Attached to its member, which owns it.
class MemberEditor : public MemberAttachment {
 public:
  /// The number of the editor's control in the bar; 0 until the bar first needed the editors.
  int GetControlId() const { return controlId_; }

  /// Gives the editor its control's number and the member's default.
  void Create(MemberDef& member, int controlId);
  /// Stores the edited value in a slot of the member; an object's is left as it is.
  virtual void StoreInto(const MemberDef& member, void* slot) const = 0;

 private:
  virtual void TakeDefault(MemberDef& member) = 0;

  int controlId_ = 0;
};

/// An edit box, for string, int and float members.
class CMemberEdit : public MemberEditor {
 public:
  /// The text's bytes, as they will be stored.
  const std::string& GetText() const { return text_; }
  void SetText(std::string_view text) { text_ = text; }

  void StoreInto(const MemberDef& member, void* slot) const override;

 private:
  void TakeDefault(MemberDef& member) override;

  std::string text_;
};

/// A drop-down list: the items of an index member's list, or the members that an object member embeds.
class CMemberCombo : public MemberEditor {
 public:
  const std::vector<std::string>& GetNames() const { return names_; }
  /// Position of the selected name, -1 when there is none.
  std::int32_t GetSelection() const { return selection_; }
  /// A position that no name has selects none.
  void SetSelection(std::int32_t position);

  void StoreInto(const MemberDef& member, void* slot) const override;

 private:
  void TakeDefault(MemberDef& member) override;

  std::vector<std::string> names_;
  std::int32_t selection_ = -1;
};

/// The member's editor; null when none was attached.
MemberEditor* EditorOf(const MemberDef& member);

/// Attaches its editor to a member and to all that it embeds, where there is none yet. Classes may hold one
/// another, to any depth.
void AttachEditor(MemberDef& member);

/// Creates the editor of a member and of all that it embeds, where none has been created, in order: a member
/// before what it embeds, that before what follows. Each gets the next control number, counted up in
/// `lastControlId`, and is appended to `created`.
void CreateEditors(MemberDef& member, int& lastControlId, std::vector<MemberDef*>& created);

}  // namespace quorvel
