// Loading and saving of maps with four members, in both forms, in memory. Growth shows between the rows of a
// form: each has four times the cells of the one before it.

#include <sstream>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "bench/bare_copy.h"
#include "map/file/map_reader.h"
#include "map/file/map_writer.h"
#include "map/types/definitions.h"

namespace quorvel {
namespace {

constexpr std::string_view kDefinitions =
    "[Classes/Kind]\r\ntype=\"items\"\r\n0=\"dust\"\r\n1=\"star\"\r\n2=\"hole\"\r\n"
    "[Classes/Map]\r\ntype=\"class\"\r\n"
    "[Classes/Cell]\r\ntype=\"class\"\r\n"
    "[Classes/Cell/Name]\r\ntype=\"string\"\r\n[Classes/Cell/Count]\r\ntype=\"int\"\r\n"
    "[Classes/Cell/Weight]\r\ntype=\"float\"\r\n[Classes/Cell/Kind]\r\ntype=\"index\"\r\nrange=\"Kind\"\r\n";

/// Every cell has values of its own.
MapContents MakeMap(int side, FileForm form) {
  MapContents contents;
  NullFeedback feedback;
  std::stringbuf file{std::string(kDefinitions)};
  DataBranch tree({});
  std::string errorText;
  LoadDefinitions(file, tree, contents, feedback, errorText);
  contents.m_nDataType = DataTypeOf(form);
  MakeGrid(contents, side, side);
  const auto& members = contents.m_pCellClass->Members();
  for (int index = 0; index < side * side; ++index) {
    const auto record = CreateCell(contents, contents.m_pGrid->CoordOf(index));
    const std::string texts[] = {fmt::format("star {}", index), std::to_string(index * 7 % 100000),
                                 fmt::format("{}.{}", index % 1000, index % 997), std::to_string(index % 3)};
    for (std::size_t i = 0; i < members.size(); ++i) {
      members[i]->StoreText(members[i]->GetValuePtr(record->data), texts[i]);
    }
  }
  return contents;
}

/// Takes what is written into memory that is there already.
class MemorySink : public std::streambuf {
 public:
  explicit MemorySink(std::vector<char>& bytes) { setp(bytes.data(), bytes.data() + bytes.size()); }
};

void Save(benchmark::State& state) {
  const int side = static_cast<int>(state.range(1));
  const MapContents contents = MakeMap(side, FileFormOf(static_cast<int>(state.range(0))));
  NullFeedback feedback;
  std::string errorText;
  std::vector<char> file(PlanMapFile(contents, "", errorText)->fileBytes);
  BesideCopy beside(state, static_cast<std::size_t>(side * side), file.size());
  for (auto iteration : state) {
    MemorySink sink(file);
    beside.Time([&] { SaveMap(*PlanMapFile(contents, "", errorText), contents, sink, feedback); });
  }
}

void Load(benchmark::State& state) {
  const int side = static_cast<int>(state.range(1));
  NullFeedback feedback;
  std::string errorText;
  std::stringbuf file;
  {
    const MapContents contents = MakeMap(side, FileFormOf(static_cast<int>(state.range(0))));
    SaveMap(*PlanMapFile(contents, "", errorText), contents, file, feedback);
  }
  BesideCopy beside(state, static_cast<std::size_t>(side * side), file.view().size());
  for (auto iteration : state) {
    MapContents contents;
    beside.Time([&] { LoadMapFile(file, contents, feedback, errorText); });
    if (contents.m_pGrid->Count() != side * side) state.SkipWithError("cells are missing");
  }
}

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"binary", "side"})
      ->ArgsProduct({{DataTypeOf(FileForm::Text), DataTypeOf(FileForm::Binary)}, {500, 1000}});
  bench->UseManualTime()->Unit(benchmark::kMillisecond);
}
BENCHMARK(Save)->Apply(Sizes);
BENCHMARK(Load)->Apply(Sizes);

}  // namespace
}  // namespace quorvel
