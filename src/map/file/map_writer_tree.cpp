#include "map/file/map_writer_tree.h"

#include <fmt/format.h>

namespace quorvel {
namespace {

void SetString(DataBranch& tree, std::string_view path, std::string_view text) {
  tree.SetLeaf(path, text, ValueType::String);
}

void SetInt(DataBranch& tree, std::string_view path, std::uint64_t number) {
  tree.SetLeaf(path, fmt::to_string(number), ValueType::Int);
}

void SetOffsets(DataBranch& tree, BlockOffsets offsets) {
  SetInt(tree, "Version/Data/Offsets/Data", offsets.data);
  SetInt(tree, "Version/Data/Offsets/Text", offsets.text);
}

void AddBinaryVersion(DataBranch& tree) {
  SetString(tree, "Version/Warning", "Do not manually edit this file.");
  SetOffsets(tree, {});
  for (const char* kind : {"string", "int", "float", "index"}) {
    SetInt(tree, fmt::format("Version/Data/Sizes/{}", kind), 4);
  }
  SetInt(tree, "Version/Data/Sizes/object", 0);
}

void AddGalaxy(DataBranch& tree, const CellGrid& grid) {
  SetInt(tree, "Objects/Galaxy/Width", static_cast<std::uint64_t>(grid.Width()));
  SetInt(tree, "Objects/Galaxy/Height", static_cast<std::uint64_t>(grid.Height()));
  if (grid.Count() == 0) tree.GetBranch("Objects/Galaxy/Cells");  // an empty branch has a line of its own
}

}  // namespace

std::unique_ptr<DataBranch> BuildFileTree(const MapContents& contents, int form, std::string_view title) {
  const bool binary = form == kBinaryForm;
  auto tree = std::make_unique<DataBranch>(title);
  SetString(*tree, "Version/FileType", "Orvantis.Map.Vastrel");
  SetInt(*tree, "Version/FileVersion", 0);
  SetString(*tree, "Version/CellType", "hex");
  SetString(*tree, "Version/Data/type", kDataTypeNames[binary ? kBinaryForm : kTextForm]);
  if (binary) AddBinaryVersion(*tree);
  tree->AddCopy(contents.m_pClasses.get());
  SetString(*tree, "Declare/Galaxy/type", "Map");
  tree->GetBranch("Objects");
  if (!binary) AddGalaxy(*tree, *contents.m_pGrid);
  return tree;
}

std::uint64_t PaddedTextBytes(std::uint64_t textBytes) {
  return textBytes + (4 - textBytes % 4);
}

BlockOffsets SettleOffsets(DataBranch& tree, std::uint64_t dataBytes) {
  for (BlockOffsets offsets;;) {
    // Longer numbers only move the blocks further back, so this comes to rest.
    const std::uint64_t data = PaddedTextBytes(tree.TextSize());
    if (offsets.data == data && offsets.text == data + dataBytes) return offsets;
    offsets = {data, data + dataBytes};
    SetOffsets(tree, offsets);
  }
}

}  // namespace quorvel
