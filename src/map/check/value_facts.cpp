#include "map/check/value_facts.h"

#include <algorithm>
#include <functional>
#include <string_view>

#include "data/index_member.h"
#include "data/slot.h"
#include "data/string_member.h"

namespace quorvel {
namespace {

using Slots = std::vector<const void*>;

Slots SlotsOf(const MemberDef& member, const CellGrid& grid) {
  Slots slots;
  slots.reserve(static_cast<std::size_t>(grid.Count()));
  for (auto record = grid.Following(-1); record; record = grid.Following(record->index))
    slots.push_back(member.GetValuePtr(record->data));
  return slots;
}

template <class Number>
ValueFacts SpanOf(const Slots& slots) {
  if (slots.empty()) return {};
  const auto first = LoadSlot<Number>(slots.front());
  NumberSpan<Number> span{first, first};
  for (const void* slot : slots) {
    span.least = std::min(span.least, LoadSlot<Number>(slot));
    span.most = std::max(span.most, LoadSlot<Number>(slot));
  }
  return span;
}

ValueFacts CountItems(const IndexMember& member, const Slots& slots) {
  if (!member.List()) return {};
  const std::size_t items = member.List()->ItemNames().size();
  ItemCounts counts(items + 1, {{}, 0});
  for (std::size_t item = 0; item < items; ++item) counts[item].item = item;
  for (const void* slot : slots)
    ++counts[std::min<std::size_t>(LoadSlot<std::uint32_t>(slot), items)].records;
  std::erase_if(counts, [](const ItemCount& count) { return count.records == 0; });
  std::ranges::stable_sort(counts, std::ranges::greater(), &ItemCount::records);
  return counts;
}

ValueFacts CountTexts(const StringMember& member, const Slots& slots) {
  std::vector<std::string_view> texts;
  texts.reserve(slots.size());
  for (const void* slot : slots) texts.push_back(member.Text(slot));
  std::ranges::sort(texts);
  const auto empty = static_cast<std::size_t>(std::ranges::count(texts, std::string_view()));
  texts.erase(std::unique(texts.begin(), texts.end()), texts.end());
  return TextCounts{texts.size(), empty};
}

}  // namespace

ValueFacts FactsOf(const MemberDef& member, const CellGrid& grid) {
  switch (member.GetKind()) {
    case MemberKind::String:
      return CountTexts(static_cast<const StringMember&>(member), SlotsOf(member, grid));
    case MemberKind::Int:
      return SpanOf<std::int32_t>(SlotsOf(member, grid));
    case MemberKind::Float:
      return SpanOf<float>(SlotsOf(member, grid));
    case MemberKind::Index:
      return CountItems(static_cast<const IndexMember&>(member), SlotsOf(member, grid));
    case MemberKind::Object:
      break;
  }
  return {};
}

}  // namespace quorvel
