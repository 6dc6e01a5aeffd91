#include "render/display_text.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(DisplayText, ShowsUtf8OrElseWindows1252) {
  constexpr std::tuple<const char*, std::string_view, const char16_t*> rows[] = {
      {"plain", "Vega 3", u"Vega 3"},
      {"UTF-8", "Caf\xc3\xa9 \xe2\x82\xac", u"Caf\u00e9 \u20ac"},
      {"Latin letter of Windows-1252", "Caf\xe9", u"Caf\u00e9"},
      {"Windows-1252's own range", "\x80\x93\x9f", u"\u20ac\u201c\u0178"},
      {"one wrong byte makes the whole text Windows-1252", "\xc3\xa9\xe9", u"\u00c3\u00a9\u00e9"},
      {"a cut UTF-8 character", "a\xe2\x82", u"a\u00e2\u201a"},
      {"an overlong form is no UTF-8", "\xc0\xaf", u"\u00c0\u00af"},
      {"control bytes",
       "a\tb\x01"
       "c\r",
       u"a b c "},
      {"line feeds stay", "a\nb", u"a\nb"},
      {"a NUL does not end it", std::string_view("a\0b", 3), u"a b"},
      {"the mark of byte order is a character", "\xef\xbb\xbfx", u"\ufeffx"},
  };
  for (const auto& [what, bytes, shown] : rows)
    EXPECT_EQ(DisplayText(bytes), QString::fromUtf16(shown)) << what;
}

}  // namespace
}  // namespace quorvel
