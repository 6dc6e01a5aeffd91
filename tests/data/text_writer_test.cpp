#include "data/text_writer.h"

#include <random>

#include <gtest/gtest.h>

#include "tests/data/tree_text.h"

namespace quorvel {
namespace {

/// Trees whose every name and value survives the text form.
std::unique_ptr<DataBranch> GeneratedTree(unsigned seed) {
  std::mt19937 random(seed);
  auto root = std::make_unique<DataBranch>("");
  std::vector<DataBranch*> branches{root.get()};
  const auto name = [&random] {
    return "n" + std::to_string(random() % 30) + std::string(random() % 3, '\xe9');
  };
  for (int i = 0; i < 200; ++i) {
    DataBranch* at = branches[random() % branches.size()];
    const auto type = static_cast<ValueType>(random() % 3);
    const std::string number = std::to_string(random());
    const char* strings[] = {"", " padded ", "a\"b\"", "'", "[x]=1", "\xff\n\t", "1.5"};
    if (random() % 2 == 0) {
      branches.push_back(at->GetBranch(name()));
    } else if (type == ValueType::String) {
      at->SetLeaf(name(), strings[random() % std::size(strings)], type);
    } else {
      at->SetLeaf(name(), type == ValueType::Float ? number + ".5" : number, type);
    }
  }
  return root;
}

TEST(TextWriter, TreesComeBackAsTheyWere) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    const auto tree = GeneratedTree(seed);
    const std::string text = TextOf(*tree);
    EXPECT_EQ(tree->TextSize(), text.size());
    EXPECT_EQ(Outline(*TreeOf(text)), Outline(*tree));
    EXPECT_EQ(tree->TextSize("P/Q"), TextOf(*tree, "P/Q").size());
  }
}

TEST(TextWriter, WritesLinesToTheByte) {
  DataBranch root("never written");
  root.SetLeaf("a", "x", ValueType::String);
  root.SetLeaf("b/c", "3", ValueType::Int);
  root.SetLeaf("b/d/e", "1.5", ValueType::Float);
  root.SetLeaf("b/d/f", "y", ValueType::String);
  root.SetLeaf("b/d/g", "3", ValueType::Float);
  root.SetLeaf("b/d/h", "3", static_cast<ValueType>(7));
  root.SetLeaf("b/d/i", "a\"b", ValueType::String);
  root.GetBranch("empty/inner");
  EXPECT_EQ(
      TextOf(root),
      "a=\"x\"\r\n[b]\r\nc=3\r\n[b/d]\r\ne=1.5\r\nf=\"y\"\r\ng=3.\r\nh=3\r\ni=\"a\"b\"\r\n[empty/inner]\r\n");

  const DataBranch empty("");
  EXPECT_EQ(TextOf(empty), "");
  EXPECT_EQ(empty.TextSize(), 0U);
  root.WriteText(nullptr);
}

TEST(TextWriter, PrefixesGrowByTheBranchesName) {
  DataBranch root("R");
  root.SetLeaf("b/x", "1", ValueType::Int);
  const DataBranch* b = root.FindBranch("b");
  const std::tuple<const DataNode*, const char*, const char*, const char*> rows[] = {
      {&root, "", "", ""},      // a root's name is not part of the text
      {&root, "p", "", "p/R"},  // begins with a branch
      {b, "", "[b]\r\n", "b"},
      {b, "p/q", "[p/q/b]\r\n", "p/q/b"},
      {b->GetFirstChild(), "p", "x=1\r\n", "p"}};
  for (const auto& [node, before, line, after] : rows) {
    std::string prefix = before;
    EXPECT_EQ(node->FormatTextLine(prefix), line);
    EXPECT_EQ(prefix, after);
  }
  EXPECT_EQ(TextOf(root, "p"), "[p/R/b]\r\nx=1\r\n");
  EXPECT_EQ(TextOf(*b), "[b]\r\nx=1\r\n");
}

}  // namespace
}  // namespace quorvel
