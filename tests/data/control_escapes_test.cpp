#include "data/control_escapes.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(ControlEscapes, KeepATerminalFromTakingBytesForCommands) {
  const struct {
    std::string_view text, shown;
  } rows[] = {
      {"", ""},
      {"a b%\"~", "a b%\"~"},
      {std::string_view("\0\t\n\r\x1b[2J\x7f", 9), "%00%09%0A%0D%1B[2J%7F"},
      {"\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80", "\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80"},
      {"\xc5\x9b", "\xc5\x9b"},  // the second byte alone would be a command
      {"\x9b"
       "2J\x85",
       "%9B2J%85"},  // the same commands in one byte
      {"\xc2\x9b"
       "2J\xc2\xa0",
       "%C2%9B2J\xc2\xa0"},                  // and as characters
      {"\xe9t\xe9 \xff", "\xe9t\xe9 \xff"},  // Latin letters
      {"\xe2\x82", "\xe2%82"},               // cut off
      {"\xe2\x9b"
       "2J",
       "\xe2%9B2J"},
      {"\xc0\x9b \xc1\x9b", "\xc0%9B \xc1%9B"},  // longer than need be
      {"\xe0\x82\x9b \xf0\x82\x82\x9b", "\xe0%82%9B \xf0%82%82%9B"},
      {"\xed\xa0\x9b \xf4\x90\x80\x80 \xf5\x80",
       "\xed\xa0%9B \xf4%90%80%80 \xf5%80"},  // no characters at all
  };
  for (const auto& row : rows) EXPECT_EQ(WithEscapes(row.text), row.shown);
}

}  // namespace
}  // namespace quorvel
