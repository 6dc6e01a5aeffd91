#include "map/check/map_check_header.h"

#include <fmt/format.h>

#include "map/check/map_check_values.h"
#include "map/file/map_file_layout.h"
#include "map/file/map_writer_tree.h"

namespace quorvel {

namespace {

/// The branches of a map's text that hold nothing but what every map of its form holds.
constexpr const char* kFixedBranches[] = {"Version", "Declare"};
constexpr std::string_view kOffsets = "Offsets";

std::string Quoted(const DataLeaf& leaf) {
  const char* quote = leaf.GetValueType() == ValueType::String ? "\"" : "";
  return fmt::format("{}{}{}", quote, leaf.GetValue(), quote);
}

/// Calls visit(path, leaf) for every leaf of a fixed branch but the offsets, which differ from file to file.
template <class Visit>
void ForEachFixedLeaf(const DataBranch& tree, Visit visit) {
  for (const char* name : kFixedBranches) {
    const DataBranch* top = tree.FindBranch(name);
    if (!top) continue;
    for (DataWalk walk(*top); walk.Node(); walk.Next()) {
      if (walk.Node()->GetKind() != NodeKind::Leaf || walk.Node()->GetParent()->GetName() == kOffsets)
        continue;
      std::string path(walk.Node()->GetName());
      for (const DataBranch* branch = walk.Node()->GetParent(); branch != &tree; branch = branch->GetParent())
        path = fmt::format("{}/{}", branch->GetName(), path);
      visit(path, static_cast<const DataLeaf&>(*walk.Node()));
    }
  }
}

}  // namespace

bool IsMapText(const DataBranch& tree) {
  return tree.FindBranch("Version") || tree.FindBranch("Declare") || tree.FindBranch("Objects");
}

void CheckHeader(const NumberedText& text, FileForm form, const ProblemSink& report) {
  MapContents smallest;
  MakeGrid(smallest, 1, 1);
  const auto written = BuildFileTree(smallest, form, {});
  ForEachFixedLeaf(*written, [&](const std::string& path, const DataLeaf& expected) {
    const DataLeaf* leaf = text.Tree().FindLeaf(path);
    if (!leaf) {
      report({0, path + " is missing"});
    } else if (leaf->GetValue() != expected.GetValue() || leaf->GetValueType() != expected.GetValueType()) {
      report(
          {text.LineOf(*leaf), fmt::format("{} is {} instead of {}", path, Quoted(*leaf), Quoted(expected))});
    }
  });
  ForEachFixedLeaf(text.Tree(), [&](const std::string& path, const DataLeaf& leaf) {
    if (!written->FindLeaf(path)) report({text.LineOf(leaf), path + " is not part of such a map"});
  });
}

void CheckGalaxy(const NumberedText& text, const ClassDef* mapClass, const ProblemSink& report) {
  const DataBranch* galaxy = text.Tree().FindBranch(kGalaxyPath);
  if (!galaxy) {
    report({0, "Objects/Galaxy is missing"});
    return;
  }
  for (const DataLeaf* leaf = galaxy->GetFirstLeaf(); leaf; leaf = leaf->GetNextLeaf()) {
    const MemberDef* member = mapClass ? mapClass->FindMember(leaf->GetName()) : nullptr;
    if (!member) {
      report({text.LineOf(*leaf), fmt::format("no member of class Map is named {}", leaf->GetName())});
    } else if (const auto problem = ValueTextProblem(*member, leaf->GetValue())) {
      report({text.LineOf(*leaf), *problem});
    }
  }
}

}  // namespace quorvel
