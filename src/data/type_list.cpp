#include "data/type_list.h"

#include <utility>

namespace quorvel {

void TypeDef::SetName(std::string_view name) {
  name_ = name;
  if (owner_) owner_->Reindex();
}

ClassDef* TypeList::Add(std::unique_ptr<ClassDef> type) {
  ClassDef* added = type.get();
  Own(std::move(type));
  return added;
}

ListDef* TypeList::Add(std::unique_ptr<ListDef> type) {
  ListDef* added = type.get();
  Own(std::move(type));
  return added;
}

ClassDef* TypeList::FindClass(std::string_view name) const {
  return static_cast<ClassDef*>(Find(TypeKind::Class, name));
}

ListDef* TypeList::FindList(std::string_view name) const {
  return static_cast<ListDef*>(Find(TypeKind::List, name));
}

void TypeList::Own(std::unique_ptr<TypeDef> type) {
  types_.push_back(std::move(type));
  types_.back()->owner_ = this;
  Index(*types_.back());
}

void TypeList::Index(TypeDef& type) {
  byName_[static_cast<std::size_t>(type.GetKind())].emplace(type.GetName(), &type);
}

TypeDef* TypeList::Find(TypeKind kind, std::string_view name) const {
  const auto& types = byName_[static_cast<std::size_t>(kind)];
  const auto found = types.find(name);
  return found == types.end() ? nullptr : found->second;
}

void TypeList::Reindex() {
  for (auto& types : byName_) types.clear();
  for (const auto& type : types_) Index(*type);
}

}  // namespace quorvel
