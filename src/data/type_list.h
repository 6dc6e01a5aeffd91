#pragma once

#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/class_def.h"
#include "data/list_def.h"

namespace quorvel {

/// Owns types in the order in which they were added. A class and a list may share a name.
class TypeList {
 public:
  TypeList() = default;
  TypeList(const TypeList&) = delete;
  TypeList& operator=(const TypeList&) = delete;

  /// The type added, for chaining.
  ClassDef* Add(std::unique_ptr<ClassDef> type);
  ListDef* Add(std::unique_ptr<ListDef> type);

  /// The first of that name and sort, or null. Constant time on average.
  ClassDef* FindClass(std::string_view name) const;
  ListDef* FindList(std::string_view name) const;

  const std::vector<std::unique_ptr<TypeDef>>& Types() const { return types_; }

 private:
  friend class TypeDef;

  void Own(std::unique_ptr<TypeDef> type);
  TypeDef* Find(TypeKind kind, std::string_view name) const;
  void Index(TypeDef& type);
  void Reindex();

  std::vector<std::unique_ptr<TypeDef>> types_;
  std::unordered_map<std::string_view, TypeDef*> byName_[2];  ///< by kind; keys are the types' own names
};

}  // namespace quorvel
