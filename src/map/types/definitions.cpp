#include "map/types/definitions.h"

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "data/c_numbers.h"
#include "data/index_member.h"
#include "data/number_members.h"
#include "data/object_member.h"
#include "data/string_member.h"
#include "map/types/member_editors.h"
#include "map/types/range_text.h"

namespace quorvel {
namespace {

/// The words that declare a type or a member; views into the tree.
struct Declaration {
  std::string_view type;
  std::string_view range;  ///< empty when missing
};

/// None for a branch that declares nothing: no "type", or a "type" or "range" that is no string.
std::optional<Declaration> ReadDeclaration(const DataBranch& branch) {
  const DataLeaf* type = branch.FindLeaf("type");
  if (type == nullptr || type->GetValueType() != ValueType::String) return std::nullopt;
  const DataLeaf* range = branch.FindLeaf("range");
  if (range == nullptr) return Declaration{type->GetValue(), {}};
  if (range->GetValueType() != ValueType::String) return std::nullopt;
  return Declaration{type->GetValue(), range->GetValue()};
}

/// Null for a branch that declares no member. References are looked for among the types declared so far.
std::unique_ptr<MemberDef> MakeMember(const DataBranch& branch, const TypeList& types) {
  const std::optional<Declaration> declaration = ReadDeclaration(branch);
  if (!declaration) return nullptr;
  const std::string_view name = branch.GetName();
  const std::string_view range = declaration->range;
  switch (static_cast<MemberKind>(ParseMemberKind(declaration->type))) {
    case MemberKind::String:
      return std::make_unique<StringMember>(name, range);
    case MemberKind::Int:
      return std::make_unique<IntMember>(name, ParseIntRange(range));
    case MemberKind::Float:
      return std::make_unique<FloatMember>(name, ParseFloatRange(range));
    case MemberKind::Index:
      return std::make_unique<IndexMember>(name, types.FindList(range), ParseIntRange(range).initial);
    case MemberKind::Object:
      return std::make_unique<ObjectMember>(name, types.FindClass(range));
  }
  return nullptr;
}

/// The class stands in the list before its members are read, so one of them may name it.
void AddClass(const DataBranch& entry, TypeList& types) {
  ClassDef* added = types.Add(std::make_unique<ClassDef>(entry.GetName()));
  for (const DataBranch* branch = entry.GetFirstBranch(); branch != nullptr;
       branch = branch->GetNextBranch()) {
    if (std::unique_ptr<MemberDef> member = MakeMember(*branch, types)) added->AddMember(std::move(member));
  }
}

/// Items are the leaf "0" and every leaf after it, whatever their names; colours likewise.
void AddList(const DataBranch& entry, TypeList& types) {
  ListDef* added = types.Add(std::make_unique<ListDef>(entry.GetName()));
  for (const DataLeaf* item = entry.FindLeaf("0"); item != nullptr; item = item->GetNextLeaf()) {
    added->AddItemName(item->GetValue());
  }
  for (const DataLeaf* color = entry.FindLeaf("UI/Color/0"); color != nullptr; color = color->GetNextLeaf()) {
    added->AddItemValue(ToUnsigned(color->GetValue()));
  }
}

void AddTypeDefinition(const DataBranch& entry, TypeList& types) {
  const std::optional<Declaration> declaration = ReadDeclaration(entry);
  if (!declaration) return;
  const int kind = ParseDefinitionKind(declaration->type);
  if (kind == static_cast<int>(TypeKind::Class)) AddClass(entry, types);
  if (kind == -1) AddList(entry, types);  // the word "list" itself declares nothing
}

}  // namespace

void BuildTypes(const DataBranch& file, MapContents& contents, std::string& errorText) {
  if (const DataBranch* classes = file.FindBranch("Classes")) {
    contents.m_pClasses = std::make_unique<DataBranch>("Classes");
    contents.m_pClasses->CopyFrom(*classes);
    const DataBranch* entry = contents.m_pClasses->GetFirstBranch();
    for (; entry != nullptr; entry = entry->GetNextBranch()) AddTypeDefinition(*entry, *contents.m_pTypes);
  } else {
    errorText += "Classes not found.\n";
  }
  contents.m_pMapClass = contents.m_pTypes->FindClass("Map");
  if (contents.m_pMapClass == nullptr) errorText += "Map definition not found.\n";
  contents.m_pCellClass = contents.m_pTypes->FindClass("Cell");
  if (contents.m_pCellClass == nullptr) {
    errorText += "Cell definition not found.\n";
    return;
  }
  for (const std::unique_ptr<MemberDef>& member : contents.m_pCellClass->Members()) AttachEditor(*member);
}

bool LoadDefinitions(std::streambuf& file, DataBranch& tree, MapContents& contents, Feedback& feedback,
                     std::string& errorText) {
  const WaitCursor wait(feedback);
  {
    const StatusMessage message(feedback, "Loading file definitions...");
    tree.ReadText(&file);
  }
  BuildTypes(tree, contents, errorText);
  return errorText.empty();
}

}  // namespace quorvel
