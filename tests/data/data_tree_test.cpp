#include "data/data_tree.h"

#include <random>

#include <gtest/gtest.h>

#include "tests/data/tree_text.h"

namespace quorvel {
namespace {

constexpr auto kInt = ValueType::Int;
constexpr auto kString = ValueType::String;

/// The first child of that kind and name, looked for in the chain: the judge of every lookup.
const DataNode* FirstOfName(const DataBranch& branch, NodeKind kind, std::string_view name) {
  for (const DataNode* child = branch.GetFirstChild(); child; child = child->GetNext()) {
    if (child->GetKind() == kind && child->GetName() == name) return child;
  }
  return nullptr;
}

/// Every way through the children agrees, leaves first, and every name finds its first child.
void ExpectSoundChildren(const DataBranch& branch) {
  std::int32_t count[2] = {0, 0};
  const DataNode* previous = nullptr;
  for (const DataNode* child = branch.GetFirstChild(); child; child = child->GetNext()) {
    const auto kind = child->GetKind();
    ASSERT_EQ(child->GetParent(), &branch);
    ASSERT_TRUE(!previous || previous->GetKind() <= kind) << "leaves come first";
    ++count[static_cast<int>(kind)];
    if (!branch.GetName().empty() || !child->GetName().empty()) {
      ASSERT_EQ(branch.FindNode(child->GetName(), kind), FirstOfName(branch, kind, child->GetName()));
    }
    previous = child;
  }
  EXPECT_EQ(branch.CountLeaves(), count[0]);
  EXPECT_EQ(branch.CountBranches(), count[1]);
  for (const auto kind : {NodeKind::Leaf, NodeKind::Branch}) {
    std::int32_t walked = 0;
    for (const DataNode* n = branch.GetFirstChildOfKind(kind); n; n = n->GetNextOfKind(kind)) ++walked;
    EXPECT_EQ(walked, count[static_cast<int>(kind)]);
  }
}

TEST(DataTree, SetLeafMakesWhatIsMissingAndOverwritesWhatIsThere) {
  // Paths that are set one after the other to 1, 2, ..., and what then stands there.
  constexpr std::pair<const char*, const char*> rows[] = {
      {"A/B/x A/B/x", "0 []\n1 [A]\n2 [B]\n3 x:0=2\n"},
      {"A\\B/x A/B\\x", "0 []\n1 [A]\n2 [B]\n3 x:0=2\n"},
      {"A/B/x A/B/x/", "0 []\n1 [A]\n2 [B]\n3 x:0=2\n"},  // a trailing separator counts for nothing
      {"A/", "0 []\n1 A:0=1\n"},
      {"A//", "0 []\n1 [A]\n"},                          // no leaf without a name, but the way stays
      {"x /x /x", "0 []\n1 x:0=1\n1 x:0=2\n1 x:0=3\n"},  // a leading separator never finds
      {"A//B/x /A/y", "0 []\n1 [A]\n2 y:0=2\n2 [B]\n3 x:0=1\n"},
      {"B/x a b", "0 []\n1 a:0=2\n1 b:0=3\n1 [B]\n2 x:0=1\n"},  // leaves go ahead of branches
      {"x x/y", "0 []\n1 x:0=1\n1 [x]\n2 y:0=2\n"},             // a leaf and a branch may share a name
  };
  for (const auto& [words, outline] : rows) {
    DataBranch root("");
    std::istringstream paths(words);
    int value = 0;
    for (std::string path; paths >> path;) root.SetLeaf(path, std::to_string(++value), kInt);
    EXPECT_EQ(Outline(root), outline) << words;
  }
  DataBranch root("");
  EXPECT_FALSE(root.SetLeaf("", "1", kInt));
  EXPECT_FALSE(root.SetLeaf("A//", "1", kInt));
  EXPECT_FALSE(root.AddLeaf("", "1", kInt));
  EXPECT_FALSE(root.AddBranch(""));
}

TEST(DataTree, LookupsFindTheFirstOfNameAndKind) {
  DataBranch root("R");
  root.SetLeaf("x", "leaf", kString);
  root.SetLeaf("x/x", "below", kString);
  root.SetLeaf("R/R/y", "deep", kInt);

  EXPECT_EQ(root.FindBranch("R"), &root) << "a last component matches the branch itself first";
  EXPECT_EQ(root.FindBranch("R/R"), root.GetBranch("R"));
  EXPECT_EQ(root.FindBranch(""), &root);
  EXPECT_EQ(root.GetBranch("/x"), root.GetBranch("x"));
  EXPECT_EQ(root.FindLeaf("x")->GetValue(), "leaf");
  EXPECT_EQ(root.FindLeaf("x/x")->GetValue(), "below");
  for (const char* path : {"", "/x", "x//x", "y", "x/y/z", "R/y"}) EXPECT_FALSE(root.FindLeaf(path)) << path;

  std::string value = "untouched";
  auto type = ValueType::Float;
  EXPECT_FALSE(root.GetLeafValue("none", &value, &type));
  EXPECT_TRUE(root.GetLeafValue("x", nullptr, &type));
  EXPECT_EQ(type, ValueType::Float) << "without a place for the value nothing is written";
  EXPECT_EQ(value, "untouched");
  EXPECT_TRUE(root.GetLeafValue("x", &value, &type));
  EXPECT_EQ(value, "leaf");
  EXPECT_EQ(type, kString);
}

TEST(DataTree, ValuesAndNamesAreReplacedInAnySize) {
  DataBranch root("");
  DataLeaf alone("n", "v", kString);
  for (DataLeaf* leaf : {root.SetLeaf("n", "v", kString), &alone}) {
    for (const char* text : {"longer than before", "short", "", "x", "longer than any before"}) {
      EXPECT_EQ(leaf->SetValue(text, static_cast<ValueType>(9)), text);
      leaf->SetName(text);
      EXPECT_EQ(leaf->GetName(), text);
    }
    leaf->SetValue(leaf->GetValue().substr(7), kInt);
    EXPECT_EQ(leaf->GetValue(), "than any before") << "a value may be made of its own part";
  }
  EXPECT_EQ(alone.FindNode("any/path", NodeKind::Branch), &alone);
}

TEST(DataTree, CopiesMergeIntoWhatIsThere) {
  const auto source = TreeOf("[A]\rx=1\r[A/C]\r");
  const auto target = TreeOf("[A]\rx='9'\ry=2\r");
  EXPECT_EQ(target->AddCopy(source->FindBranch("A")), target->FindBranch("A"));
  EXPECT_EQ(Outline(*target), "0 []\n1 [A]\n2 x:0=1\n2 y:0=2\n2 [C]\n");
  EXPECT_FALSE(target->AddCopy(nullptr));

  const DataLeaf leaf("z", "3", kInt);
  const DataNode* copied = target->AddCopy(&leaf);
  EXPECT_EQ(copied, target->FindLeaf("z"));
  target->CopyFrom(*target);
  target->CopyFrom(*source->FindBranch("A"));
  EXPECT_EQ(Outline(*target), "0 [A]\n1 x:0=1\n1 [C]\n");

  source->SetLeaf("new", "1", kInt);  // a sibling leaf of the name that the copy would take
  DataBranch named("new");
  source->GetBranch("A")->CopyFrom(named);
  EXPECT_EQ(Outline(*source), "0 []\n1 new:0=1\n1 [A]\n");

  const auto root = TreeOf("[A/B]\rx=1\r");  // copies within one tree end
  root->FindBranch("A")->AddCopy(root->FindBranch("A"));
  EXPECT_EQ(Outline(*root), "0 []\n1 [A]\n2 [B]\n3 x:0=1\n2 [A]\n3 [B]\n4 x:0=1\n");
  root->CopyFrom(*root->FindBranch("A/B"));
  EXPECT_EQ(Outline(*root), "0 [B]\n1 x:0=1\n");
}

TEST(DataTree, ChildrenStayFoundWhileManyComeGoAndChangeNames) {
  for (const unsigned seed : {1U, 2U, 3U}) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    DataBranch root("R");
    const auto name = [&random] { return "n" + std::to_string(random() % 40); };  // names repeat
    for (int step = 0; step < 600; ++step) {
      const auto kind = static_cast<NodeKind>(random() % 2);
      const auto edit = random() % 6;
      if (edit == 0) root.AddLeaf(name(), "", kInt);
      if (edit == 1) root.AddBranch(name());
      if (edit == 2) root.SetLeaf(name(), "1", kInt);
      if (edit == 3) root.GetBranch(name());
      if (edit == 4) {
        const std::string gone = name();
        const bool there = root.FindNode(gone, kind);
        const auto before = root.CountLeaves() + root.CountBranches();
        EXPECT_EQ(root.RemoveNode(gone, kind), there);
        EXPECT_EQ(root.CountLeaves() + root.CountBranches(), before - (there ? 1 : 0));
      }
      DataNode* renamed = edit == 5 ? root.FindNode(name(), kind) : nullptr;
      if (renamed) renamed->SetName(name());
      ExpectSoundChildren(root);
      if (HasFatalFailure()) return;
      if (step == 300) root.Clear();
    }
    EXPECT_GT(root.CountLeaves() + root.CountBranches(), 17) << "the index was never tried";
  }
}

TEST(DataTree, RootsAreNeverRemoved) {
  DataBranch root("R");
  root.SetLeaf("a/b/c", "1", kInt);
  EXPECT_FALSE(root.RemoveBranch("R"));
  EXPECT_FALSE(root.RemoveLeaf("a/b"));
  EXPECT_TRUE(root.RemoveBranch("a/b"));
  EXPECT_EQ(Outline(root), "0 [R]\n1 [a]\n");
  root.GetBranch("a")->SetLeaf("x", "1", kInt);
  root.GetBranch("a")->Clear();
  EXPECT_EQ(root.GetBranch("a")->CountLeaves(), 0);
  root.Clear();
  EXPECT_EQ(Outline(root), "0 [R]\n") << "the name outlives the pool";
}

TEST(DataTree, DepthHasNoLimit) {
  std::string path;
  for (int level = 0; level < 100000; ++level) path += "d/";
  DataBranch root("");
  DataLeaf* leaf = root.SetLeaf(path + "x", "1", kInt);
  ASSERT_EQ(root.FindLeaf(path + "x"), leaf);
  DataBranch copy("");
  copy.CopyFrom(root);
  EXPECT_EQ(copy.FindLeaf(path + "x")->GetValue(), "1");
  EXPECT_EQ(copy.TextSize(), path.size() + 8) << "one header of the whole path, one key line";
  EXPECT_EQ(TextOf(copy), "[" + path.substr(0, path.size() - 1) + "]\r\nx=1\r\n");
}

}  // namespace
}  // namespace quorvel
