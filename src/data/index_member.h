#pragma once

#include "data/list_def.h"
#include "data/member_def.h"

namespace quorvel {

/// A position in a list. The default is always (0, item count - 1, initial position); without a list (0, -1,
/// 0).
class IndexMember : public MemberDef {
 public:
  IndexMember(std::string_view name, ListDef* list, std::int32_t initial = 0);

  MemberKind GetKind() const override { return MemberKind::Index; }
  void SetDefault(const MemberDefault& source) override;
  std::uint32_t GetMappedValue(ClassInstance instance) const override;
  std::int32_t SetTag(std::int32_t tag) override { return tag_ = tag; }
  std::int32_t GetTag() const override { return tag_; }
  void StoreValue(void* slot, const void* from) const override;
  void StoreText(void* slot, std::string_view text) const override;
  void FormatValue(std::string& out, const void* slot) const override;
  TypeDef* GetRefType() const override { return list_; }
  ListDef* List() const { return list_; }
  void SetRefType(ListDef* list) { list_ = list; }

 private:
  ListDef* list_;
  std::int32_t tag_ = 0;
};

}  // namespace quorvel
