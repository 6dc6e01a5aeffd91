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
  const std::string two("abc\0de\0", 7), longText(3 * 4096 + 5, 'x');
  const std::tuple<std::string, std::uint32_t, std::string> rows[] = {
      {two, 0, "abc"},
      {two, 4, "de"},
      {two, 1, "bc"},  // the middle of a text
      {two, 3, ""},
      {two.substr(0, 6), 4, "de"},  // the last may end with the file
      {"abc", 3, ""},
      {"", 0, ""},
      {longText, 4096, longText.substr(4096)},  // across pages
      {longText + std::string("\0end", 4), 3 * 4096 + 6, "end"}};
  for (const auto& [block, offset, text] : rows) {
    SCOPED_TRACE(offset);
    TextArena arena;
    arena.Add("before");
    EXPECT_EQ(arena.Text(TextArena::At(arena.Adopt(block), offset)), text);
    std::stringbuf input(block + "beyond");
    const auto bytes = static_cast<std::uint32_t>(block.size());
    EXPECT_EQ(arena.Text(TextArena::At(arena.Adopt(input, bytes), offset)), text);
    EXPECT_EQ(arena.Text(arena.Add("after")), "after");
    EXPECT_EQ(arena.Text(static_cast<TextHandle>(1)), "before");
  }

  TextArena arena;
  std::stringbuf input("abc");
  EXPECT_EQ(arena.Text(arena.Adopt(input, 0xfffffff0)), "abc") << "announced larger than it is";
  EXPECT_LT(arena.Size(), 10U) << "no memory for what did not come";
}

}  // namespace
}  // namespace quorvel
