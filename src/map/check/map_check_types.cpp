#include "map/check/map_check_types.h"

#include <unordered_set>

#include <fmt/format.h>

#include "data/class_def.h"
#include "map/types/range_text.h"

namespace quorvel {

namespace {

constexpr int kListWord = 1;  // what ParseDefinitionKind answers for "list"
constexpr int kClassWord = 0;

/// What a string leaf of a type or member says. A leaf of another value type makes both be skipped.
struct Word {
  const DataLeaf* leaf = nullptr;
  bool IsQuoted() const { return leaf != nullptr && leaf->GetValueType() == ValueType::String; }
  std::string_view Text() const { return leaf == nullptr ? std::string_view() : leaf->GetValue(); }
};

int CountFrom(const DataLeaf* leaf) {
  int count = 0;
  for (; leaf != nullptr; leaf = leaf->GetNextLeaf()) ++count;
  return count;
}

class TypeCheck {
 public:
  TypeCheck(const NumberedText& text, const DataBranch& classes, const ProblemSink& report)
      : text_(text), report_(report) {
    for (const DataBranch* type = classes.GetFirstBranch(); type != nullptr; type = type->GetNextBranch())
      Announce(*type);
    for (const DataLeaf* leaf = classes.GetFirstLeaf(); leaf != nullptr; leaf = leaf->GetNextLeaf())
      Report(*leaf, fmt::format("Classes/{} belongs to no type and is ignored", leaf->GetName()));
    for (const DataBranch* type = classes.GetFirstBranch(); type != nullptr; type = type->GetNextBranch())
      CheckType(*type);
  }

 private:
  using Names = std::unordered_set<std::string_view>;

  void Report(const DataNode& node, std::string problem) {
    report_({text_.LineOf(node), std::move(problem)});
  }

  /// Names the type among those that the file declares anywhere.
  void Announce(const DataBranch& type) {
    const Word word{type.FindLeaf("type")};
    if (!word.IsQuoted() || ParseDefinitionKind(word.Text()) == kListWord) return;
    (ParseDefinitionKind(word.Text()) == kClassWord ? allClasses_ : allLists_).insert(type.GetName());
  }

  /// Whether the type and range words let the node count; if not, says why it is skipped.
  bool HasWords(const DataBranch& node, std::string_view name, Word type, Word range) {
    if (type.leaf == nullptr) {
      Report(node, fmt::format("{} is skipped, it has no type", name));
    } else if (!type.IsQuoted()) {
      Report(*type.leaf, fmt::format("{} is skipped, its type is not in quotes", name));
    } else if (range.leaf != nullptr && !range.IsQuoted()) {
      Report(*range.leaf, fmt::format("{} is skipped, its range is not in quotes", name));
    } else {
      return true;
    }
    return false;
  }

  void CheckType(const DataBranch& type) {
    const std::string name = fmt::format("type {}", type.GetName());
    const Word word{type.FindLeaf("type")}, range{type.FindLeaf("range")};
    if (!HasWords(type, name, word, range)) return;
    switch (ParseDefinitionKind(word.Text())) {
      case kListWord:
        Report(*word.leaf,
               fmt::format("{} is skipped, a list's type is any word but \"{}\"", name, word.Text()));
        break;
      case kClassWord:
        classes_.insert(type.GetName());
        for (const DataBranch* member = type.GetFirstBranch(); member != nullptr;
             member = member->GetNextBranch())
          CheckMember(*member, type.GetName());
        break;
      default:
        lists_.insert(type.GetName());
        CheckList(type);
    }
  }

  void CheckList(const DataBranch& list) {
    const DataLeaf* first = list.FindLeaf("0");
    const int items = CountFrom(first), colours = CountFrom(list.FindLeaf("UI/Color/0"));
    if (first == nullptr) Report(list, fmt::format("list {} has no items", list.GetName()));
    if (items != colours)
      Report(list, fmt::format("list {} has {} items but {} colours", list.GetName(), items, colours));
  }

  void CheckMember(const DataBranch& member, std::string_view className) {
    const std::string name = fmt::format("member {}/{}", className, member.GetName());
    const Word word{member.FindLeaf("type")}, range{member.FindLeaf("range")};
    if (!HasWords(member, name, word, range)) return;
    const DataNode& place = range.leaf != nullptr ? static_cast<const DataNode&>(*range.leaf) : member;
    switch (static_cast<MemberKind>(ParseMemberKind(word.Text()))) {
      case MemberKind::String:
        break;
      case MemberKind::Int:
        CheckRange(place, name, ParseIntRange(range.Text()));
        break;
      case MemberKind::Float:
        CheckRange(place, name, ParseFloatRange(range.Text()));
        break;
      case MemberKind::Index:
        CheckReference(place, name, "list", range.Text(), lists_, allLists_);
        break;
      case MemberKind::Object:
        if (range.Text() == className)
          Report(place, fmt::format("{} holds its own class and takes no room", name));
        else
          CheckReference(place, name, "class", range.Text(), classes_, allClasses_);
        break;
      default:
        Report(*word.leaf, fmt::format("{} is skipped, \"{}\" is no kind of member", name, word.Text()));
    }
  }

  template <class Number>
  void CheckRange(const DataNode& place, const std::string& name, const NumberDefault<Number>& range) {
    if (range.max < range.min)
      Report(place,
             fmt::format("{} has a minimum of {} above its maximum of {}", name, range.min, range.max));
    if (!(range.initial >= range.min && range.initial <= range.max))
      Report(place, fmt::format("{} has a default of {}, outside {}..{}", name, range.initial, range.min,
                                range.max));
  }

  void CheckReference(const DataNode& place, const std::string& name, std::string_view sort,
                      std::string_view wanted, const Names& before, const Names& anywhere) {
    if (before.contains(wanted)) return;
    Report(place, anywhere.contains(wanted)
                      ? fmt::format("{} names {} {}, which comes too late", name, sort, wanted)
                      : fmt::format("{} names {} {}, which is missing", name, sort, wanted));
  }

  const NumberedText& text_;
  const ProblemSink& report_;
  Names allClasses_, allLists_;  ///< declared anywhere in the file
  Names classes_, lists_;        ///< declared so far
};

}  // namespace

void CheckTypes(const NumberedText& text, const ProblemSink& report) {
  const DataBranch* classes = text.Tree().FindBranch("Classes");
  if (classes != nullptr) TypeCheck(text, *classes, report);
}

}  // namespace quorvel
