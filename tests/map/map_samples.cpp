#include "tests/map/map_samples.h"

#include <cstring>
#include <sstream>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "map/file/map_reader.h"
#include "map/file/map_writer.h"
#include "map/types/definitions.h"

namespace quorvel {
namespace {

std::string DescribeDefault(const MemberDef& member) {
  const MemberDefault& initial = member.GetDefault();
  if (const auto* text = std::get_if<std::string>(&initial)) return '"' + *text + '"';
  if (const auto* range = std::get_if<IntDefault>(&initial))
    return fmt::format("{},{},{}", range->min, range->max, range->initial);
  if (const auto* range = std::get_if<FloatDefault>(&initial))
    return fmt::format("{},{},{}", range->min, range->max, range->initial);
  return "-";
}

/// A type in one line: "class NAME: MEMBER KIND DEFAULT REF; ..." or "list NAME: ITEM... | VALUE...".
std::string DescribeType(const TypeDef& type) {
  std::string text;
  if (type.GetKind() == TypeKind::Class) {
    text = "class " + type.GetName() + ':';
    for (const auto& member : static_cast<const ClassDef&>(type).Members()) {
      const TypeDef* reference = member->GetRefType();
      text += fmt::format(" {} {} {} {};", member->GetName(), static_cast<int>(member->GetKind()),
                          DescribeDefault(*member), reference ? reference->GetName() : "-");
    }
    return text;
  }
  const auto& list = static_cast<const ListDef&>(type);
  text = "list " + type.GetName() + ':';
  for (const std::string& name : list.ItemNames()) text += ' ' + name;
  text += " |";
  for (const std::uint32_t value : list.ItemValues()) text += fmt::format(" {}", value);
  return text;
}

std::string DescribeRecord(const MapContents& contents, const CellRecord& record) {
  std::string text = fmt::format("record {} ({}:{})", record.index, record.column, record.row);
  for (const auto& member : contents.m_pCellClass->Members()) {
    const void* slot = member->GetValuePtr(record.data);
    std::string value;
    member->FormatValue(value, slot);
    if (member->GetKind() == MemberKind::Float || member->GetKind() == MemberKind::Index) {
      std::uint32_t bits = 0;
      std::memcpy(&bits, slot, sizeof bits);
      value += fmt::format("/{:08x}", bits);
    }
    text += " <" + value + '>';
  }
  return text + '\n';
}

}  // namespace

std::string Lines(std::string_view words) {
  std::string text;
  for (const char byte : words) {
    if (byte == ' ') {
      text += "\r\n";
    } else {
      text += byte == '\'' ? '"' : byte;
    }
  }
  return text.empty() || text.ends_with("\r\n") ? text : text + "\r\n";
}

std::string SampleClasses() {
  return Lines(
      "[Classes/Kind] type='items' 0='dust' 1='star' 2='hole' [Classes/Part] type='class' "
      "[Classes/Part/Size] type='int' range='0<7<9' [Classes/Map] type='class' "
      "[Classes/Map/Width] type='int' range='1<10<1000' [Classes/Map/Height] type='int' "
      "range='1<10<1000' [Classes/Cell] type='class' [Classes/Cell/Name] type='string' "
      "range='none' [Classes/Cell/Count] type='int' range='0<5<9' [Classes/Cell/Part] "
      "type='object' range='Part' [Classes/Cell/Weight] type='float' range='0<1.5<9' "
      "[Classes/Cell/Kind] type='index' range='Kind'");
}

MapContents ContentsOf(const std::string& definitions) {
  MapContents contents;
  std::stringbuf file(definitions);
  DataBranch tree({});
  NullFeedback feedback;
  std::string errorText;
  LoadDefinitions(file, tree, contents, feedback, errorText);
  EXPECT_EQ(errorText, "");
  return contents;
}

MapContents EmptySampleMap(int width, int height) {
  MapContents contents = ContentsOf(SampleClasses());
  MakeGrid(contents, width, height);
  return contents;
}

MapContents SampleMap(int width, int height, std::uint32_t seed) {
  constexpr std::string_view kNames[] = {"", "Vega", "a\"b", " x ", "\xe9t\xe9", "Deneb Algedi", "[z]", "'"};
  constexpr std::string_view kFloats[] = {"0",   "-0.0", "1e-20",      "3.4028235e38", "-1e999",
                                          "nan", "0.5",  "123456.789", "-2.0000005",   "99.9999995"};
  MapContents contents = EmptySampleMap(width, height);
  std::uint64_t state = seed * 2654435761U + 1;
  const auto draw = [&state](std::size_t choices) {
    state = state * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::size_t>(state >> 33) % choices;
  };
  for (int index = 0; index < width * height; ++index) {
    if (draw(3) != 0) continue;
    CreateCell(contents, contents.m_pGrid->CoordOf(index));
    if (draw(2) == 0) SetValue(contents, index, "Name", kNames[draw(std::size(kNames))]);
    if (draw(2) == 0)
      SetValue(contents, index, "Count", std::to_string(static_cast<int>(draw(4000000000U) - 2000000000)));
    if (draw(2) == 0) SetValue(contents, index, "Weight", kFloats[draw(std::size(kFloats))]);
    if (draw(2) == 0) SetValue(contents, index, "Kind", std::to_string(static_cast<int>(draw(5)) - 1));
  }
  return contents;
}

std::string Saved(const MapContents& contents) {
  std::string errorText;
  const auto plan = PlanMapFile(contents, "Title", errorText);
  EXPECT_EQ(errorText, "");
  if (!plan) return {};
  std::stringbuf file;
  NullFeedback feedback;
  SaveMap(*plan, contents, file, feedback);
  EXPECT_EQ(file.str().size(), plan->fileBytes);
  return file.str();
}

std::string SavedAs(MapContents& contents, FileForm form) {
  contents.m_nDataType = DataTypeOf(form);
  return Saved(contents);
}

MapContents Loaded(const std::string& bytes, std::string& errorText) {
  std::stringbuf file(bytes);
  NullFeedback feedback;
  MapContents contents;
  LoadMapFile(file, contents, feedback, errorText);
  return contents;
}

std::string DescribeTypes(const TypeList& types) {
  std::string text;
  for (const auto& type : types.Types()) text += DescribeType(*type) + '\n';
  return text;
}

std::string Describe(const MapContents& contents) {
  std::string text = fmt::format("form {}\n", contents.m_nDataType) + DescribeTypes(*contents.m_pTypes);
  if (!contents.m_pGrid) return text + "no grid\n";
  const CellGrid& grid = *contents.m_pGrid;
  text += fmt::format("{} x {}\n", grid.Width(), grid.Height());
  for (auto record = grid.Following(-1); record; record = grid.Following(record->index))
    text += DescribeRecord(contents, *record);
  return text;
}

void SetValue(MapContents& contents, std::int32_t index, std::string_view member, std::string_view text) {
  auto record = contents.m_pGrid->Find(index);
  if (!record) record = CreateCell(contents, contents.m_pGrid->CoordOf(index));
  const MemberDef* found = contents.m_pCellClass->FindMember(member);
  found->StoreText(found->GetValuePtr(record->data), text);
}

std::string ValueText(const MapContents& map, std::int32_t index, const char* member) {
  const auto record = map.m_pGrid->Find(index);
  if (!record) return "-";
  std::string text;
  Member(map, member)->FormatValue(text, Member(map, member)->GetValuePtr(record->data));
  return text;
}

}  // namespace quorvel
