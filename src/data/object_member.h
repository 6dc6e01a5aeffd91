#pragma once

#include "data/member_def.h"

namespace quorvel {

/// The members of another class, embedded. The class must live as long as this member's values.
class ObjectMember : public MemberDef {
 public:
  ObjectMember(std::string_view name, ClassDef* embedded) : MemberDef(name, {}), embedded_(embedded) {}

  MemberKind GetKind() const override { return MemberKind::Object; }
  void SetDefault(const MemberDefault& source) override;
  std::int32_t GetSize() const override;
  std::int32_t SetTag(std::int32_t tag) override { return tag_ = tag; }
  std::int32_t GetTag() const override { return tag_; }
  std::int32_t ConstructValue(void* at) const override;
  std::int32_t DestroyValue(void* at) const override;
  void StoreValue(void* slot, const void* from) const override;
  void StoreText(void* slot, std::string_view text) const override;
  void FormatValue(std::string& out, const void* slot) const override;
  TypeDef* GetRefType() const override;
  ClassDef* Embedded() const { return embedded_; }
  void SetRefType(ClassDef* embedded);

 private:
  friend class ClassDef;

  ClassDef* embedded_;
  std::int32_t tag_ = 0;
  mutable bool holdsNothing_ = false;  ///< embeds a class that it is part of, and so holds nothing
};

/// The class that a member embeds; null for a member that is no object, or has no class.
const ClassDef* EmbeddedClass(const MemberDef& member);

}  // namespace quorvel
