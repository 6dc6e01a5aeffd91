#include "cli/dump_words.h"

#include <limits>

#include <gtest/gtest.h>

#include "cli/progress_bar.h"

namespace quorvel {
namespace {

std::string Written(void (*append)(std::string&, std::string_view), std::string_view text) {
  std::string line;
  append(line, text);
  return line;
}

TEST(DumpWords, NamesEscapeWhatWouldSplitALineOrAPath) {
  EXPECT_EQ(Written(AppendEscapedName, "plain~!\"#'"), "plain~!\"#'");
  EXPECT_EQ(Written(AppendEscapedName, "a b/c\\d%e"), "a%20b%2Fc%5Cd%25e");
  EXPECT_EQ(Written(AppendEscapedName, std::string_view("\0\n\x7f\x80\xff", 5)), "%00%0A%7F%80%FF");
}

TEST(DumpWords, TextsAreHexAndTheEmptyOneADash) {
  EXPECT_EQ(Written(AppendHexText, ""), "-");
  EXPECT_EQ(Written(AppendHexText, "-"), "2d");
  EXPECT_EQ(Written(AppendHexText, std::string_view("\0 \xfe", 3)), "0020fe");
}

TEST(DumpWords, FloatsShowTheirBits) {
  std::string line;
  for (const float value : {0.0F, -0.0F, 1.0F, std::numeric_limits<float>::infinity()}) {
    AppendFloatBits(line, value);
    line += ' ';
  }
  EXPECT_EQ(line, "00000000 80000000 3f800000 7f800000 ");
}

TEST(ProgressLine, FitsTheTerminalWithOneColumnFree) {
  EXPECT_EQ(ProgressLine(50, "Loading map...", 80), "[###############...............]  50 % Loading map...");
  EXPECT_EQ(ProgressLine(101, "", 80), "[##############################] 101 % ");
  EXPECT_EQ(ProgressLine(0, "Loading map...", 43), "[..............................]   0 % Loa");
  EXPECT_EQ(ProgressLine(0, "Loading map...", 1), "");
}

}  // namespace
}  // namespace quorvel
