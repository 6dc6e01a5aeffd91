#pragma once

#include "data/member_def.h"

namespace quorvel {

class IntMember : public MemberDef {
 public:
  explicit IntMember(std::string_view name, IntDefault initial = {}) : MemberDef(name, initial) {}

  MemberKind GetKind() const override { return MemberKind::Int; }
  void SetDefault(const MemberDefault& source) override;
  void StoreValue(void* slot, const void* from) const override;
  void StoreText(void* slot, std::string_view text) const override;
  void FormatValue(std::string& out, const void* slot) const override;
};

class FloatMember : public MemberDef {
 public:
  explicit FloatMember(std::string_view name, FloatDefault initial = {}) : MemberDef(name, initial) {}

  MemberKind GetKind() const override { return MemberKind::Float; }
  void SetDefault(const MemberDefault& source) override;
  void StoreValue(void* slot, const void* from) const override;
  void StoreText(void* slot, std::string_view text) const override;
  void FormatValue(std::string& out, const void* slot) const override;
};

}  // namespace quorvel
