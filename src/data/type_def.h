#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

class TypeList;

enum class TypeKind : std::int32_t { Class = 0, List = 1 };

/// A named type: a class of members or a list of items.
class TypeDef {
 public:
  explicit TypeDef(std::string_view name) : name_(name) {}
  virtual ~TypeDef() = default;
  TypeDef(const TypeDef&) = delete;
  TypeDef& operator=(const TypeDef&) = delete;

  virtual TypeKind GetKind() const = 0;
  const std::string& GetName() const { return name_; }
  void SetName(std::string_view name);

 private:
  friend class TypeList;

  std::string name_;
  TypeList* owner_ = nullptr;
};

}  // namespace quorvel
