#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/type_def.h"

namespace quorvel {

/// Item names, and a 32-bit value for each. The two are filled apart and may differ in number.
class ListDef : public TypeDef {
 public:
  using TypeDef::TypeDef;

  TypeKind GetKind() const override { return TypeKind::List; }

  void AddItemName(std::string_view name) { itemNames_.emplace_back(name); }
  void AddItemValue(std::uint32_t value) { itemValues_.push_back(value); }

  const std::vector<std::string>& ItemNames() const { return itemNames_; }
  const std::vector<std::uint32_t>& ItemValues() const { return itemValues_; }
  std::int32_t CountItems() const { return static_cast<std::int32_t>(itemNames_.size()); }

  /// The value at the position; positions past the end begin again at the first. 0 when there are no values.
  std::uint32_t GetItemValue(std::uint32_t position) const {
    return itemValues_.empty() ? 0 : itemValues_[position % itemValues_.size()];
  }

 private:
  std::vector<std::string> itemNames_;
  std::vector<std::uint32_t> itemValues_;
};

}  // namespace quorvel
