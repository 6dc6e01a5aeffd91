#include <sstream>
#include <streambuf>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/bare_copy.h"
#include "data/class_def.h"
#include "data/data_tree.h"
#include "data/index_member.h"
#include "data/number_members.h"
#include "data/string_member.h"
#include "data/text_reader.h"

// What trees and instances cost. The argument is the number of nodes or instances; the time of twice as many
// shows whether the work grows with them.

namespace quorvel {
namespace {

/// Reads a text in place.
class TextView : public std::streambuf {
 public:
  explicit TextView(std::string& text) { setg(text.data(), text.data(), text.data() + text.size()); }
};

/// Counts what is written.
class Sink : public std::streambuf {
 public:
  std::streamsize Count() const { return count_; }

 protected:
  std::streamsize xsputn(const char* /*from*/, std::streamsize count) override {
    count_ += count;
    return count;
  }

 private:
  std::streamsize count_ = 0;
};

/// As a map's cells: a branch each, with four leaves.
std::string CellsText(std::int64_t nodes) {
  std::string text;
  for (std::int64_t cell = 0; cell < nodes / 5; ++cell) {
    const std::string number = std::to_string(cell);
    text += "[Objects/Galaxy/Cells/" + number + "]\r\nname=\"star " + number + "\"\r\nage=" + number +
            "\r\nmass=1.250000\r\nkind=3\r\n";
  }
  return text;
}

/// One branch of many children.
std::string WideText(std::int64_t nodes) {
  std::string text;
  for (std::int64_t child = 0; child < nodes; ++child) text += "[c" + std::to_string(child) + "]\r\n";
  return text;
}

/// Paths 300 deep, each with a level of its own at the top.
std::string DeepText(std::int64_t nodes) {
  std::string below;
  for (int level = 1; level < 300; ++level) below += "/d";
  std::string text;
  for (std::int64_t path = 0; path < nodes / 300; ++path)
    text.append("[").append(std::to_string(path)).append(below).append("]\r\n");
  return text;
}

using MakeText = std::string (*)(std::int64_t nodes);

void ReadTree(benchmark::State& state, MakeText make) {
  std::string text = make(state.range(0));
  BesideCopy beside(state, static_cast<std::size_t>(state.range(0)), text.size());
  for (auto unused : state) {
    beside.Time([&text] {
      TextView input(text);
      DataBranch root("");
      root.ReadText(&input);
      benchmark::DoNotOptimize(root.GetFirstChild());
    });
  }
}

/// A text and the tree that was read from it.
struct MadeTree {
  MadeTree(MakeText make, std::int64_t nodes) : text(make(nodes)), root("") {
    TextView input(text);
    root.ReadText(&input);
  }

  std::string text;
  DataBranch root;
};

void WriteTree(benchmark::State& state, MakeText make) {
  const MadeTree tree(make, state.range(0));
  BesideCopy beside(state, static_cast<std::size_t>(state.range(0)), tree.text.size());
  for (auto unused : state) {
    beside.Time([&tree] {
      Sink sink;
      tree.root.WriteText(&sink);
      benchmark::DoNotOptimize(sink.Count());
    });
  }
}

void MeasureTree(benchmark::State& state, MakeText make) {
  const MadeTree tree(make, state.range(0));
  BesideCopy beside(state, static_cast<std::size_t>(state.range(0)), tree.text.size());
  for (auto unused : state) {
    beside.Time([&tree] { benchmark::DoNotOptimize(tree.root.TextSize()); });
  }
}

void CopyTree(benchmark::State& state, MakeText make) {
  const MadeTree tree(make, state.range(0));
  BesideCopy beside(state, static_cast<std::size_t>(state.range(0)), tree.text.size());
  for (auto unused : state) {
    beside.Time([&tree] {
      DataBranch copy("");
      copy.CopyFrom(tree.root);
      benchmark::DoNotOptimize(copy.GetFirstChild());
    });
  }
}

/// The lines alone, without a tree.
void PullLines(benchmark::State& state) {
  std::string text = CellsText(state.range(0));
  BesideCopy beside(state, static_cast<std::size_t>(state.range(0)), text.size());
  for (auto unused : state) {
    beside.Time([&text] {
      TextView input(text);
      TextReader reader(input);
      while (reader.Next() != TextReader::Item::End) benchmark::DoNotOptimize(reader.Value().data());
    });
  }
}

/// Instances of four members (string, int, float, index), each made and all of its values stored.
void MakeInstances(benchmark::State& state) {
  constexpr std::size_t kBlockBytes = 16;
  const auto count = static_cast<std::int32_t>(state.range(0));
  ListDef list("Kinds");
  BesideCopy beside(state, static_cast<std::size_t>(count), static_cast<std::size_t>(count) * kBlockBytes);
  for (auto unused : state) {
    ClassDef type("Cell");
    const MemberDef* name = type.AddMember(std::make_unique<StringMember>("name", "star"));
    const MemberDef* age = type.AddMember(std::make_unique<IntMember>("age"));
    const MemberDef* mass = type.AddMember(std::make_unique<FloatMember>("mass"));
    const MemberDef* kind = type.AddMember(std::make_unique<IndexMember>("kind", &list));
    beside.Time([&] {
      for (std::int32_t number = 0; number < count; ++number) {
        const ClassInstance cell = type.CreateInstance();
        const auto weight = static_cast<float>(number);
        name->SetValue(cell, nullptr);
        age->SetValue(cell, &number);
        mass->SetValue(cell, &weight);
        kind->SetValue(cell, &number);
      }
    });
  }
}

void Nodes(benchmark::internal::Benchmark* run) {
  run->Arg(500000)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(ReadTree, cells, CellsText)->Apply(Nodes);
BENCHMARK_CAPTURE(ReadTree, one_branch, WideText)->Apply(Nodes);
BENCHMARK_CAPTURE(ReadTree, depth_300, DeepText)->Apply(Nodes);
BENCHMARK_CAPTURE(WriteTree, cells, CellsText)->Apply(Nodes);
BENCHMARK_CAPTURE(WriteTree, depth_300, DeepText)->Apply(Nodes);
BENCHMARK_CAPTURE(MeasureTree, cells, CellsText)->Apply(Nodes);
BENCHMARK_CAPTURE(CopyTree, cells, CellsText)->Apply(Nodes);
BENCHMARK_CAPTURE(CopyTree, one_branch, WideText)->Apply(Nodes);
BENCHMARK(PullLines)->Apply(Nodes);
BENCHMARK(MakeInstances)->Apply(Nodes);

}  // namespace
}  // namespace quorvel
