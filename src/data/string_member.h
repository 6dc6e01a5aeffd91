#pragma once

#include <string_view>

#include "data/member_def.h"
#include "data/text_arena.h"

namespace quorvel {

/// A text. Its slot is a handle into the texts of the class that the member was added to.
class StringMember : public MemberDef {
 public:
  explicit StringMember(std::string_view name, std::string_view initial = {});

  MemberKind GetKind() const override { return MemberKind::String; }
  void SetDefault(const MemberDefault& source) override;
  void StoreValue(void* slot, const void* from) const override;
  void StoreText(void* slot, std::string_view text) const override;
  void FormatValue(std::string& out, const void* slot) const override;

  /// The text that a slot stands for. The view is good until the class's texts grow.
  std::string_view Text(const void* slot) const;

 private:
  TextHandle DefaultHandle() const;

  mutable TextHandle defaultHandle_ = TextHandle::Empty;  ///< Empty until the default is first stored
};

}  // namespace quorvel
