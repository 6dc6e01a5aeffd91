#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/tool_run.h"

namespace quorvel {
namespace {

using testing::HasSubstr;

struct TreeRow {
  const char* what;
  std::string_view input;  ///< lines ended by LF here, by CR LF in the file
  const char* dump;
  const char* rewritten;  ///< with LF too
};

constexpr TreeRow kTrees[] = {
    {"an empty file", "", "", ""},
    {"all value types", "a=42\nb=1.5\nc=\"x\"\nd=word\n",
     "L a 0 3432\nL b 1 312e35\nL c 2 78\nL d 0 776f7264\n", "a=42\nb=1.5\nc=\"x\"\nd=word\n"},
    {"empty values", "a=\nb=\"\"\nc=''\n", "L a 0 -\nL b 2 -\nL c 2 -\n", "a=\nb=\"\"\nc=\"\"\n"},
    {"leaves before branches, and back from deeper paths", "[A/B]\nx=1\n[A]\ny=2\n[D]\nz=3\n",
     "B A\nL A/y 0 32\nB A/B\nL A/B/x 0 31\nB D\nL D/z 0 33\n", "[A]\ny=2\n[A/B]\nx=1\n[D]\nz=3\n"},
    {"names are escaped", " a b=1\n[50%\x80]\n\x7f=2\n", "L %20a%20b 0 31\nB 50%25%80\nL 50%25%80/%7F 0 32\n",
     " a b=1\n[50%\x80]\n\x7f=2\n"},
    {"texts are hex", "a=\"\xc3\xa9 \t\"\n", "L a 2 c3a92009\n", "a=\"\xc3\xa9 \t\"\n"},
    {"what is no value goes", std::string_view("// note\na=1 // one\nword\n\nb=3\n\0c=4\n", 33),
     "L a 0 31\nL b 0 33\n", "a=1\nb=3\n"},
};

TEST(Rewrite, WritesThePlainFormAndKeepsIt) {
  for (const TreeRow& row : kTrees) {
    SCOPED_TRACE(row.what);
    const TempFolder folder;
    const std::string in = folder.Write("in.gdf", WithCrLf(row.input)), out = folder / "out.gdf";
    const ToolRun run = RunMapTool({"dump", "tree", in});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, row.dump);
    EXPECT_EQ(RunMapTool({"rewrite", in, out}).code, 0);
    EXPECT_EQ(ReadBytes(out), WithCrLf(row.rewritten));
    EXPECT_EQ(RunMapTool({"rewrite", out, "-"}).out, WithCrLf(row.rewritten));
    EXPECT_EQ(RunMapTool({"rewrite", out, out}).code, 0);  // onto itself
    EXPECT_EQ(ReadBytes(out), WithCrLf(row.rewritten));
  }
}

// A picture once became 974 bytes, definitions with LF none.
TEST(Rewrite, RefusesToReplaceItsInputByLess) {
  const struct {
    const char* what;
    std::string_view bytes;
    bool hintsAtLf;
    const char* withLf;  ///< what --lf leaves in place of the file, null: it refuses too
  } rows[] = {
      {"a picture", std::string_view("\x89PNG\r\n\x1a\n\0\0\0\rIHDRx=1", 19), false, nullptr},
      {"zeros", std::string_view("\0\0\0", 3), false, nullptr},
      {"LF alone", "// note\n[A]\nx=1\ny=2\n", true, "[A]\r\nx=1\r\ny=2\r\n"},
      {"one LF alone among good lines", "x=1\r\ny=2\nz=3\r\n", true, "x=1\r\ny=2\r\nz=3\r\n"},
      {"words, then a line", "\r\nword\r\nx=1\r\n", false, nullptr},
      {"a byte order mark", "\xef\xbb\xbf[A]\r\nx=1\r\n", false, "[A]\r\nx=1\r\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const TempFolder folder;
    const std::string file = folder.Write("file.txt", std::string(row.bytes));
    const std::string link = folder / "link.txt";
    ASSERT_EQ(::symlink(file.c_str(), link.c_str()), 0);
    for (const auto& [in, out] : {std::pair(file, file), {link, file}, {file, link}}) {
      const ToolRun run = RunMapTool({"rewrite", in, out});
      EXPECT_EQ(run.code, 1);
      EXPECT_THAT(run.err, testing::StartsWith("quorvel-map: " + in + ": "));
      EXPECT_EQ(run.err.find("--lf") != std::string::npos, row.hintsAtLf) << run.err;
      EXPECT_EQ(ReadBytes(file), row.bytes);
    }
    EXPECT_EQ(RunMapTool({"rewrite", file, folder / "other.txt"}).code, 0) << "another file loses nothing";
    EXPECT_EQ(RunMapTool({"rewrite", "--lf", file, link}).code, row.withLf ? 0 : 1);
    EXPECT_EQ(ReadBytes(file), row.withLf ? row.withLf : row.bytes);
  }
}

TEST(Rewrite, RefusesABinaryMapAndLeavesTheOutputAlone) {
  const TempFolder folder;
  const std::string in = folder.Write("in.vrl", WithCrLf("[Version/Data]\ntype=\"binary\"\n"));
  const std::string out = folder.Write("out.gdf", "old");
  const ToolRun run = RunMapTool({"rewrite", in, out});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("quorvel-map: " + in + ": "));
  EXPECT_EQ(ReadBytes(out), "old");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"in.vrl", "out.gdf"}));
}

// A path of thousands of levels in a small file must be neither recursion nor a giant of an output.
TEST(Rewrite, RefusesAnOutputThatWouldPassTheLimit) {
  const TempFolder folder;
  std::string deep = "[";
  for (int level = 0; level < 4090; ++level) deep += "a/";
  deep += "a]\r\n";
  for (int branch = 0; branch < 540'000; ++branch) deep += "b" + std::to_string(branch) + "/x=1\r\n";
  const std::string in = folder.Write("deep.gdf", deep), out = folder / "out.gdf";
  const ToolRun run = RunMapTool({"rewrite", in, out});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("limit"));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"deep.gdf"});
}

}  // namespace
}  // namespace quorvel
