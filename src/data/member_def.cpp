#include "data/member_def.h"

#include <utility>

#include "data/class_def.h"
#include "data/slot.h"

namespace quorvel {

std::int32_t MemberDef::SetOffset(std::int32_t offset) {
  offset_ = offset;
  const std::int32_t size = GetSize();
  return offset > ClassDef::kMaxSize - size ? ClassDef::kMaxSize : offset + size;
}

std::uint32_t MemberDef::GetMappedValue(ClassInstance /*instance*/) const {
  return 0;
}

std::int32_t MemberDef::SetTag(std::int32_t /*tag*/) {
  return -1;
}

std::unique_ptr<MemberAttachment> MemberDef::SetAttachment(std::unique_ptr<MemberAttachment> attachment) {
  return std::exchange(attachment_, std::move(attachment));
}

std::int32_t MemberDef::ConstructValue(void* at) const {
  if (!at) return 0;
  StoreValue(at, nullptr);
  return kSlotBytes;
}

std::int32_t MemberDef::DestroyValue(void* /*at*/) const {
  return GetSize();
}

void* MemberDef::GetValuePtr(ClassInstance instance) const {
  if (instance == ClassInstance::None || !class_ || GetKind() == MemberKind::Object) return nullptr;
  return class_->Block(instance) + offset_;
}

void MemberDef::SetValue(ClassInstance instance, const void* from) const {
  if (void* slot = GetValuePtr(instance)) StoreValue(slot, from);
}

void MemberDef::ReplaceDefault(MemberDefault value) {
  default_ = std::move(value);
  ClassDef::SchemaChanged();
}

}  // namespace quorvel
