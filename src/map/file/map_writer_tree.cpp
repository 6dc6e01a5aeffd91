#include "map/file/map_writer_tree.h"

#include <fmt/format.h>

#include "data/member_kinds.h"
#include "map/file/map_file_layout.h"

namespace quorvel {
namespace {

void SetString(DataBranch& tree, std::string_view path, std::string_view text) {
  tree.SetLeaf(path, text, ValueType::String);
}

void SetInt(DataBranch& tree, std::string_view path, std::uint64_t number) {
  tree.SetLeaf(path, fmt::to_string(number), ValueType::Int);
}

void SetOffsets(DataBranch& tree, BlockOffsets offsets) {
  SetInt(tree, kDataOffsetPath, offsets.data);
  SetInt(tree, kTextOffsetPath, offsets.text);
}

void AddBinaryVersion(DataBranch& tree) {
  SetString(tree, "Version/Warning", "Do not manually edit this file.");
  SetOffsets(tree, {});
  for (const std::string_view kind : kMemberKindNames) {
    const bool isObject = kind == KindName(MemberKind::Object);
    SetInt(tree, fmt::format("Version/Data/Sizes/{}", kind), isObject ? 0 : kValueBytes);
  }
}

void AddGalaxy(DataBranch& tree, const CellGrid& grid) {
  SetInt(tree, "Objects/Galaxy/Width", static_cast<std::uint64_t>(grid.Width()));
  SetInt(tree, "Objects/Galaxy/Height", static_cast<std::uint64_t>(grid.Height()));
  if (grid.Count() == 0) tree.GetBranch(kCellsPath);  // an empty branch has a line of its own
}

}  // namespace

std::unique_ptr<DataBranch> BuildFileTree(const MapContents& contents, FileForm form,
                                          std::string_view title) {
  const bool binary = form == FileForm::Binary;
  auto tree = std::make_unique<DataBranch>(title);
  SetString(*tree, "Version/FileType", "Orvantis.Map.Vastrel");
  SetInt(*tree, "Version/FileVersion", 0);
  SetString(*tree, "Version/CellType", "hex");
  SetString(*tree, kDataTypePath, NameOf(form));
  if (binary) AddBinaryVersion(*tree);
  tree->AddCopy(contents.m_pClasses.get());
  SetString(*tree, "Declare/Galaxy/type", "Map");
  tree->GetBranch("Objects");
  if (!binary) AddGalaxy(*tree, *contents.m_pGrid);
  return tree;
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
