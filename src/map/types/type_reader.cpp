#include "map/types/type_reader.h"

#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>

#include <fmt/format.h>

#include "data/c_numbers.h"
#include "data/index_member.h"
#include "data/number_members.h"
#include "data/object_member.h"
#include "data/string_member.h"
#include "map/types/range_text.h"

namespace quorvel {
namespace {

/// What ParseDefinitionKind answers.
constexpr int kClassWord = 0;
constexpr int kListWord = 1;

/// The words that declare a type or a member.
struct Declaration {
  const DataLeaf* type;
  /// Null when missing.
  const DataLeaf* range;

  std::string_view Type() const { return type->GetValue(); }
  std::string_view Range() const { return range ? range->GetValue() : std::string_view(); }
};

bool IsString(const DataLeaf& leaf) {
  return leaf.GetValueType() == ValueType::String;
}

std::string TypeLabel(const DataBranch& entry) {
  return fmt::format("type {}", entry.GetName());
}

std::string MemberLabel(const DataBranch& branch) {
  return fmt::format("member {}/{}", branch.GetParent()->GetName(), branch.GetName());
}

/// A member, and the node that is named for what is wrong with its range.
struct Place {
  const DataBranch& member;
  const DataLeaf* range;

  const DataNode& Node() const { return range ? static_cast<const DataNode&>(*range) : member; }
  std::string Label() const { return MemberLabel(member); }
};

using Names = std::unordered_set<std::string_view>;

class TypeReader {
 public:
  TypeReader(const DataBranch& classes, TypeList& types, std::vector<TypeProblem>* problems)
      : classes_(classes), types_(types), problems_(problems) {}

  void Read() {
    for (const DataLeaf* leaf = classes_.GetFirstLeaf(); leaf; leaf = leaf->GetNextLeaf())
      Report(*leaf, "Classes/{} belongs to no type and is ignored", leaf->GetName());
    for (const DataBranch* entry = classes_.GetFirstBranch(); entry; entry = entry->GetNextBranch())
      ReadType(*entry);
  }

 private:
  template <class... Words>
  void Report(const DataNode& node, fmt::format_string<Words...> text, Words&&... words) {
    if (problems_) problems_->push_back({&node, fmt::format(text, std::forward<Words>(words)...)});
  }

  /// None for a branch that declares nothing: no "type", or a "type" or "range" that is no string.
  std::optional<Declaration> ReadDeclaration(const DataBranch& branch,
                                             std::string (*label)(const DataBranch&)) {
    const DataLeaf* type = branch.FindLeaf("type");
    const DataLeaf* range = branch.FindLeaf("range");
    if (!type) {
      Report(branch, "{} is skipped, it has no type", label(branch));
    } else if (!IsString(*type)) {
      Report(*type, "{} is skipped, its type is not in quotes", label(branch));
    } else if (range && !IsString(*range)) {
      Report(*range, "{} is skipped, its range is not in quotes", label(branch));
    } else {
      return Declaration{type, range};
    }
    return std::nullopt;
  }

  void ReadType(const DataBranch& entry) {
    const std::optional<Declaration> declaration = ReadDeclaration(entry, &TypeLabel);
    if (!declaration) return;
    switch (ParseDefinitionKind(declaration->Type())) {
      case kClassWord:
        ReadClass(entry);
        break;
      case kListWord:
        Report(*declaration->type, "{} is skipped, a list's type is any word but \"{}\"", TypeLabel(entry),
               declaration->Type());
        break;
      default:
        ReadList(entry);
    }
  }

  /// Items are the leaf "0" and every leaf after it, whatever their names; colours likewise.
  void ReadList(const DataBranch& entry) {
    ListDef* list = types_.Add(std::make_unique<ListDef>(entry.GetName()));
    int colours = 0;
    for (const DataLeaf* item = entry.FindLeaf("0"); item; item = item->GetNextLeaf())
      list->AddItemName(item->GetValue());
    for (const DataLeaf* colour = entry.FindLeaf("UI/Color/0"); colour; colour = colour->GetNextLeaf()) {
      list->AddItemValue(ToUnsigned(colour->GetValue()));
      ++colours;
    }
    const int items = list->CountItems();
    if (items == 0) Report(entry, "list {} has no items", entry.GetName());
    if (items != colours)
      Report(entry, "list {} has {} items but {} colours", entry.GetName(), items, colours);
  }

  /// The class stands in the list before its members are read, so one of them may name it.
  void ReadClass(const DataBranch& entry) {
    ClassDef* added = types_.Add(std::make_unique<ClassDef>(entry.GetName()));
    for (const DataBranch* branch = entry.GetFirstBranch(); branch; branch = branch->GetNextBranch()) {
      if (std::unique_ptr<MemberDef> member = ReadMember(*branch, *added))
        added->AddMember(std::move(member));
    }
  }

  /// Null for a branch that declares no member.
  std::unique_ptr<MemberDef> ReadMember(const DataBranch& branch, const ClassDef& ownClass) {
    const std::optional<Declaration> declaration = ReadDeclaration(branch, &MemberLabel);
    if (!declaration) return nullptr;
    const std::string_view name = branch.GetName(), range = declaration->Range();
    const Place place{branch, declaration->range};
    switch (static_cast<MemberKind>(ParseMemberKind(declaration->Type()))) {
      case MemberKind::String:
        return std::make_unique<StringMember>(name, range);
      case MemberKind::Int:
        return std::make_unique<IntMember>(name, Judged(ParseIntRange(range), place));
      case MemberKind::Float:
        return std::make_unique<FloatMember>(name, Judged(ParseFloatRange(range), place));
      case MemberKind::Index:
        return std::make_unique<IndexMember>(name, FindList(range, place), ParseIntRange(range).initial);
      case MemberKind::Object:
        return std::make_unique<ObjectMember>(name, FindClass(range, ownClass, place));
    }
    Report(*declaration->type, "{} is skipped, \"{}\" is no kind of member", MemberLabel(branch),
           declaration->Type());
    return nullptr;
  }

  /// The range as it is, after what is wrong with it was reported.
  template <class Number>
  NumberDefault<Number> Judged(const NumberDefault<Number>& range, const Place& place) {
    if (range.max < range.min)
      Report(place.Node(), "{} has a minimum of {} above its maximum of {}", place.Label(), range.min,
             range.max);
    if (!(range.initial >= range.min && range.initial <= range.max))
      Report(place.Node(), "{} has a default of {}, outside {}..{}", place.Label(), range.initial, range.min,
             range.max);
    return range;
  }

  ListDef* FindList(std::string_view name, const Place& place) {
    ListDef* list = types_.FindList(name);
    if (!list) ReportMissing(TypeKind::List, name, place);
    return list;
  }

  ClassDef* FindClass(std::string_view name, const ClassDef& ownClass, const Place& place) {
    ClassDef* found = types_.FindClass(name);
    if (name == ownClass.GetName())
      Report(place.Node(), "{} holds its own class and takes no room", place.Label());
    else if (!found)
      ReportMissing(TypeKind::Class, name, place);
    return found;
  }

  void ReportMissing(TypeKind kind, std::string_view name, const Place& place) {
    if (!problems_) return;
    Report(place.Node(), "{} names {} {}, which {}", place.Label(),
           kind == TypeKind::Class ? "class" : "list", name,
           Declared(kind).contains(name) ? "comes too late" : "is missing");
  }

  /// Names of the types that the branch declares anywhere.
  const Names& Declared(TypeKind kind) {
    if (!declared_) {
      declared_.emplace();
      for (const DataBranch* entry = classes_.GetFirstBranch(); entry; entry = entry->GetNextBranch()) {
        const DataLeaf* type = entry->FindLeaf("type");
        const int word = type && IsString(*type) ? ParseDefinitionKind(type->GetValue()) : kListWord;
        if (word != kListWord) (*declared_)[word == kClassWord ? 0 : 1].insert(entry->GetName());
      }
    }
    return (*declared_)[static_cast<std::size_t>(kind)];
  }

  const DataBranch& classes_;
  TypeList& types_;
  std::vector<TypeProblem>* problems_;
  /// By kind; none until they are asked for.
  std::optional<std::array<Names, 2>> declared_;
};

}  // namespace

void ReadTypes(const DataBranch& classes, TypeList& types, std::vector<TypeProblem>* problems) {
  TypeReader(classes, types, problems).Read();
}

}  // namespace quorvel
