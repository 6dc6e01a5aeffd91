#include "data/text_arena.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(TextArena, TextsStayWhatTheyWere) {
  TextArena arena;
  EXPECT_EQ(arena.Text(TextHandle::Empty), "");
  std::vector<std::pair<TextHandle, std::string>> added;
  for (std::size_t i = 0; i < 300; ++i) {
    const std::string text(i * i % 9001, static_cast<char>('a' + i % 26));  // within a page and across pages
    added.emplace_back(arena.Add(text), text);
  }
  for (const auto& [handle, text] : added) ASSERT_EQ(arena.Text(handle), text);
  EXPECT_EQ(arena.Text(static_cast<TextHandle>(0xffffffff)), "") << "a handle from elsewhere";
}

TEST(TextArena, TheTextAddedLastIsNotAddedAgain) {
  TextArena arena;
  const TextHandle first = arena.Add("abc");
  const auto size = arena.Size();
  EXPECT_EQ(arena.Add("abc"), first);
  EXPECT_EQ(arena.Add(std::string_view("abc\0def", 7)), first) << "a NUL ends the text";
  EXPECT_EQ(arena.Add(""), TextHandle::Empty);
  EXPECT_EQ(arena.Size(), size);
  EXPECT_NE(arena.Add("ab"), first);
}

TEST(TextArena, ATextMayBeMadeOfAnotherOfTheSameArena) {
  TextArena arena;
  TextHandle longest = arena.Add("seed of a text");
  for (int i = 0; i < 200; ++i) {
    const std::string expected(arena.Text(longest).substr(5));
    const TextHandle copy = arena.Add(arena.Text(longest).substr(5));
    ASSERT_EQ(arena.Text(copy), expected);
    longest = arena.Add(std::string(static_cast<std::size_t>(20 + i), static_cast<char>('a' + i % 26)));
  }
}

TEST(TextArena, BlocksOfFilesAreAdoptedWhole) {
  struct Row {
    const char* what;
    std::string block;
    std::uint32_t offset;
    std::string text;
  };
  const std::string longText(3 * 4096 + 5, 'x');
  const Row rows[] = {{"the first text", std::string("abc\0de\0", 7), 0, "abc"},
                      {"the second", std::string("abc\0de\0", 7), 4, "de"},
                      {"the middle of a text", std::string("abc\0de\0", 7), 1, "bc"},
                      {"an end", std::string("abc\0de\0", 7), 3, ""},
                      {"the last may end with the file", std::string("abc\0de", 6), 4, "de"},
                      {"the block's own end", std::string("abc", 3), 3, ""},
                      {"no block", "", 0, ""},
                      {"across pages", longText, 4096, longText.substr(4096)},
                      {"text by text across pages", longText + std::string("\0end", 4), 3 * 4096 + 6, "end"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    TextArena arena;
    arena.Add("before");
    EXPECT_EQ(arena.Text(TextArena::At(arena.Adopt(row.block), row.offset)), row.text);
    std::stringbuf input(row.block + "beyond");
    const auto bytes = static_cast<std::uint32_t>(row.block.size());
    EXPECT_EQ(arena.Text(TextArena::At(arena.Adopt(input, bytes), row.offset)), row.text);
    EXPECT_EQ(arena.Text(arena.Add("after")), "after");
    EXPECT_EQ(arena.Text(static_cast<TextHandle>(1)), "before");
  }
}

TEST(TextArena, ABlockMayBeAnnouncedLargerThanItIs) {
  TextArena arena;
  std::stringbuf input("abc");
  const TextHandle base = arena.Adopt(input, 0xfffffff0);
  EXPECT_EQ(arena.Text(base), "abc");
  EXPECT_LT(arena.Size(), 10U) << "no memory for what did not come";
}

}  // namespace
}  // namespace quorvel
