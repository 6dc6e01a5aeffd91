#include "data/member_def.h"

#include <cstring>
#include <utility>
#include <vector>

#include "data/c_numbers.h"
#include "data/class_def.h"

namespace quorvel {
namespace {

constexpr std::int32_t kSlotBytes = 4;
constexpr std::string_view kUnresolved = "<error>";

template <class Value>
Value Load(const void* slot) {
  static_assert(sizeof(Value) == kSlotBytes);
  Value value;
  std::memcpy(&value, slot, sizeof value);
  return value;
}

template <class Value>
void Store(void* slot, Value value) {
  static_assert(sizeof(Value) == kSlotBytes);
  std::memcpy(slot, &value, sizeof value);
}

template <class Number>
Number InitialOf(const MemberDef& member) {
  return std::get<NumberDefault<Number>>(member.GetDefault()).initial;
}

/// ConstructValue of every kind that has a slot.
std::int32_t ConstructSlot(const MemberDef& member, void* at) {
  if (!at) return 0;
  member.StoreValue(at, nullptr);
  return kSlotBytes;
}

IntDefault PositionDefault(const ListDef* list, std::int32_t initial) {
  return list ? IntDefault{0, list->CountItems() - 1, initial} : IntDefault{0, -1, 0};
}

}  // namespace

// ---- MemberDef

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

// ---- StringMember

StringMember::StringMember(std::string_view name, std::string_view initial)
    : MemberDef(name, std::string(initial)) {}

void StringMember::SetDefault(const MemberDefault& source) {
  if (!std::holds_alternative<std::string>(source)) return;
  defaultHandle_ = TextHandle::Empty;
  ReplaceDefault(source);
}

std::int32_t StringMember::ConstructValue(void* at) const {
  return ConstructSlot(*this, at);
}

void StringMember::StoreValue(void* slot, const void* from) const {
  Store(slot, from ? Load<TextHandle>(from) : DefaultHandle());
}

void StringMember::StoreText(void* slot, std::string_view text) const {
  Store(slot, GetClass() ? GetClass()->Texts().Add(text) : TextHandle::Empty);
}

void StringMember::FormatValue(std::string& out, const void* slot) const {
  if (slot) out = Text(slot);
}

std::string_view StringMember::Text(const void* slot) const {
  return GetClass() ? GetClass()->Texts().Text(Load<TextHandle>(slot)) : std::string_view();
}

TextHandle StringMember::DefaultHandle() const {
  if (defaultHandle_ == TextHandle::Empty && GetClass()) {
    defaultHandle_ = GetClass()->Texts().Add(std::get<std::string>(GetDefault()));
  }
  return defaultHandle_;
}

// ---- IntMember

void IntMember::SetDefault(const MemberDefault& source) {
  if (std::holds_alternative<IntDefault>(source)) ReplaceDefault(source);
}

std::int32_t IntMember::ConstructValue(void* at) const {
  return ConstructSlot(*this, at);
}

void IntMember::StoreValue(void* slot, const void* from) const {
  Store(slot, from ? Load<std::int32_t>(from) : InitialOf<std::int32_t>(*this));
}

void IntMember::StoreText(void* slot, std::string_view text) const {
  Store(slot, ToInt(text));
}

void IntMember::FormatValue(std::string& out, const void* slot) const {
  if (slot) out = FormatInt(Load<std::int32_t>(slot));
}

// ---- FloatMember

void FloatMember::SetDefault(const MemberDefault& source) {
  if (std::holds_alternative<FloatDefault>(source)) ReplaceDefault(source);
}

std::int32_t FloatMember::ConstructValue(void* at) const {
  return ConstructSlot(*this, at);
}

void FloatMember::StoreValue(void* slot, const void* from) const {
  if (from) {
    std::memmove(slot, from, kSlotBytes);  // as bits: a NaN's payload stays
  } else {
    Store(slot, InitialOf<float>(*this));
  }
}

void FloatMember::StoreText(void* slot, std::string_view text) const {
  Store(slot, ToFloat(text));
}

void FloatMember::FormatValue(std::string& out, const void* slot) const {
  if (slot) out = FormatFloat(Load<float>(slot));
}

// ---- IndexMember

IndexMember::IndexMember(std::string_view name, ListDef* list, std::int32_t initial)
    : MemberDef(name, PositionDefault(list, initial)), list_(list) {}

void IndexMember::SetDefault(const MemberDefault& source) {
  const auto* triple = std::get_if<IntDefault>(&source);
  if (!list_ || (!triple && !std::holds_alternative<std::monostate>(source))) return;
  ReplaceDefault(PositionDefault(list_, triple ? triple->initial : 0));
}

std::uint32_t IndexMember::GetMappedValue(ClassInstance instance) const {
  const void* slot = GetValuePtr(instance);
  return list_ && slot ? list_->GetItemValue(Load<std::uint32_t>(slot)) : 0;
}

std::int32_t IndexMember::ConstructValue(void* at) const {
  return ConstructSlot(*this, at);
}

void IndexMember::StoreValue(void* slot, const void* from) const {
  Store(slot, from ? Load<std::int32_t>(from) : InitialOf<std::int32_t>(*this));
}

void IndexMember::StoreText(void* slot, std::string_view text) const {
  Store(slot, ToInt(text));
}

void IndexMember::FormatValue(std::string& out, const void* slot) const {
  const std::int32_t position = slot ? Load<std::int32_t>(slot) : -1;
  const bool known = list_ && position >= 0 && position < list_->CountItems();
  out = known ? std::string_view(list_->ItemNames()[static_cast<std::size_t>(position)]) : kUnresolved;
}

// ---- ObjectMember

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

void ObjectMember::SetRefType(ClassDef* embedded) {
  embedded_ = embedded;
  ClassDef::SchemaChanged();
}

}  // namespace quorvel
