#include "data/object_member.h"

#include <vector>

#include "data/class_def.h"

namespace quorvel {
void ObjectMember::SetDefault(const MemberDefault& /*source*/) {}

std::int32_t ObjectMember::GetSize() const {
  if (GetClass()) GetClass()->Size();  // finds out whether this member holds nothing
  return embedded_ && !holdsNothing_ ? embedded_->Size() : 0;
}

/// A loop over the embedded members at every depth. What takes no bytes is passed by: there may be any number
/// of it.
std::int32_t ObjectMember::ConstructValue(void* at) const {
  const std::int32_t size = GetSize();
  if (!at || size == 0) return 0;

  struct Frame {
    const ClassDef* type;
    std::size_t next = 0;
  };
  auto* place = static_cast<std::byte*>(at);
  for (std::vector<Frame> open{{embedded_}}; !open.empty();) {
    Frame& top = open.back();
    if (top.next == top.type->Members().size()) {
      open.pop_back();
      continue;
    }
    const MemberDef& member = *top.type->Members()[top.next++];
    if (member.GetKind() != MemberKind::Object) {
      place += member.ConstructValue(place);
    } else if (member.GetSize() > 0) {
      open.push_back({static_cast<const ObjectMember&>(member).embedded_});
    }
  }
  return size;
}

std::int32_t ObjectMember::DestroyValue(void* at) const {
  return at ? GetSize() : 0;
}

void ObjectMember::StoreValue(void* /*slot*/, const void* /*from*/) const {}

void ObjectMember::StoreText(void* /*slot*/, std::string_view /*text*/) const {}

void ObjectMember::FormatValue(std::string& out, const void* slot) const {
  out = embedded_ && slot ? std::string_view(embedded_->GetName()) : kUnresolved;
}

TypeDef* ObjectMember::GetRefType() const {
  return embedded_;
}

const ClassDef* EmbeddedClass(const MemberDef& member) {
  if (member.GetKind() != MemberKind::Object) return nullptr;
  return static_cast<const ObjectMember&>(member).Embedded();
}

void ObjectMember::SetRefType(ClassDef* embedded) {
  embedded_ = embedded;
  ClassDef::SchemaChanged();
}

}  // namespace quorvel
