#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "data/instance_store.h"
#include "data/type_def.h"

namespace quorvel {

class ClassDef;

enum class MemberKind : std::int32_t { String = 0, Int = 1, Float = 2, Index = 3, Object = 4 };

/// Range and initial value of a number.
template <class Number>
struct NumberDefault {
  Number min{}, max{}, initial{};
  bool operator==(const NumberDefault&) const = default;
};
using IntDefault = NumberDefault<std::int32_t>;
using FloatDefault = NumberDefault<float>;

/// What new instances hold in a member: a text for string, an IntDefault for int and index, a FloatDefault
/// for float, nothing for object members.
using MemberDefault = std::variant<std::monostate, std::string, IntDefault, FloatDefault>;

/// What a member carries for its editor; the member destroys it.
class MemberAttachment {
 public:
  virtual ~MemberAttachment() = default;
};

/// A member of a class. Its value is a slot: 4 bytes in a block or in any other buffer (an object member's is
/// as long as the class it embeds). Slots may be copied as plain bytes, need no destruction, and are read and
/// written through their member only; a string's slot is a handle into the texts of the class that the member
/// was added to.
class MemberDef {
 public:
  virtual ~MemberDef() = default;
  MemberDef(const MemberDef&) = delete;
  MemberDef& operator=(const MemberDef&) = delete;

  virtual MemberKind GetKind() const = 0;
  const std::string& GetName() const { return name_; }
  void SetName(std::string_view name) { name_ = name; }

  /// A source of another kind than the member's, and none for the kinds that need one, changes nothing.
  virtual void SetDefault(const MemberDefault& source) = 0;
  const MemberDefault& GetDefault() const { return default_; }

  virtual std::int32_t GetSize() const { return 4; }
  /// The offset after this member, at most ClassDef::kMaxSize.
  std::int32_t SetOffset(std::int32_t offset);
  std::int32_t GetOffset() const { return offset_; }

  /// The list's value of the stored item; 0 for all kinds but index.
  virtual std::uint32_t GetMappedValue(ClassInstance instance) const;

  /// Index and object members keep a number; the others answer -1.
  virtual std::int32_t SetTag(std::int32_t tag);
  virtual std::int32_t GetTag() const { return -1; }

  /// Takes the attachment and hands the previous one back.
  std::unique_ptr<MemberAttachment> SetAttachment(std::unique_ptr<MemberAttachment> attachment);
  MemberAttachment* GetAttachment() const { return attachment_.get(); }

  /// Stores the default where a value shall lie and answers the bytes it takes; a null address answers 0.
  virtual std::int32_t ConstructValue(void* at) const;
  /// The bytes that the value took; for a null address too, except that an object's are then 0.
  virtual std::int32_t DestroyValue(void* at) const;

  /// The slot in a live block; null for None and for an object member.
  void* GetValuePtr(ClassInstance instance) const;

  /// Copies a slot (a null source: the default) into the block. Does nothing for None or an object member.
  void SetValue(ClassInstance instance, const void* from) const;
  /// The same for any slot.
  virtual void StoreValue(void* slot, const void* from) const = 0;
  /// Stores what a text says: itself in a string, ToInt or ToFloat of it in a number, nothing in an object.
  virtual void StoreText(void* slot, std::string_view text) const = 0;

  /// The value as text: "%d", "%f", a list item's or the embedded class's name, else "<error>". A null slot
  /// of a string, int or float leaves `out` as it is.
  virtual void FormatValue(std::string& out, const void* slot) const = 0;

  /// The list of an index member, the class of an object member; else, or when it has none, null.
  virtual TypeDef* GetRefType() const { return nullptr; }

  /// The class that the member was added to, or null.
  ClassDef* GetClass() const { return class_; }

 protected:
  /// FormatValue of a position outside its list, and of what refers to nothing.
  static constexpr std::string_view kUnresolved = "<error>";

  MemberDef(std::string_view name, MemberDefault initial) : name_(name), default_(std::move(initial)) {}

  void ReplaceDefault(MemberDefault value);

 private:
  friend class ClassDef;

  std::string name_;
  MemberDefault default_;
  std::int32_t offset_ = 0;
  ClassDef* class_ = nullptr;
  std::unique_ptr<MemberAttachment> attachment_;
};

}  // namespace quorvel
