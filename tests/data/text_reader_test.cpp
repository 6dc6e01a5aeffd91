#include "data/text_reader.h"

#include <algorithm>
#include <cstring>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/data/tree_text.h"

namespace quorvel {
namespace {

using Item = TextReader::Item;

/// Gives its bytes one at a time, as a slow pipe may.
class DrippingBuf : public std::streambuf {
 public:
  explicit DrippingBuf(std::string bytes) : bytes_(std::move(bytes)) {}

 protected:
  std::streamsize xsgetn(char* to, std::streamsize count) override {
    if (count == 0 || taken_ == bytes_.size()) return 0;
    *to = bytes_[taken_++];
    return 1;
  }

 private:
  std::string bytes_;
  std::size_t taken_ = 0;
};

/// Everything that the reader answers, one item a line: line number, kind, what it says.
std::string Items(std::streambuf& input, LineEnds lineEnds = LineEnds::CarriageReturn) {
  TextReader reader(input, lineEnds);
  std::string items;
  for (Item item = reader.Next(); item != Item::End; item = reader.Next()) {
    items += std::to_string(reader.LineNumber());
    if (item == Item::Section) items += " [" + std::string(reader.Section()) + "]\n";
    if (item == Item::Ignored) items += " ignored\n";
    if (item == Item::Value) {
      items += " " + std::string(reader.Key()) + ":" + std::to_string(static_cast<int>(reader.Type())) + "=" +
               std::string(reader.Value()) + "\n";
    }
  }
  return items;
}

std::string Items(const std::string& text) {
  std::stringbuf input(text);
  return Items(input);
}

TEST(TextReader, KeyLinesAreTakenApart) {
  constexpr std::pair<const char*, const char*> rows[] = {
      {"x=42", "x:0=42"},
      {"x=4.2", "x:1=4.2"},
      {"x=word", "x:0=word"},
      {"x=", "x:0="},
      {"x= \t\v\f\n", "x:0="},     // white space only
      {"x=\"a\"b\"", "x:2=a\"b"},  // an inner quote stays
      {"x='a\"", "x:2=a"},         // quotes need not match
      {"x='a", "x:2=a"},           // nor close
      {"x=\"", "x:2="},            // one quote opens and ends
      {"x=\"\"", "x:2="},
      {"x=\" a \"", "x:2= a "},  // white space inside quotes stays
      {"x='a//b'", "x:2=a"},     // a comment cuts inside quotes
      {"x=1 // two", "x:0=1"},
      {"x=1/2", "x:0=1/2"},
      {" x \t=1", " x:0=1"},  // leading white space belongs to the key
      {"x=1=2", "x:0=1=2"},
      {"x=1\ny=2", "x:0=1\ny=2"},  // LF ends no line
      {"[x]=1", "[x]:0=1"},        // only a whole line can be a header
      {"x=\xff\x80", "x:0=\xff\x80"}};
  for (const auto& [line, outline] : rows) {
    SCOPED_TRACE(line);
    DataBranch root("");
    const DataLeaf* leaf = root.ParseLine(line);
    ASSERT_TRUE(leaf);
    EXPECT_EQ(Outline(*leaf), "0 " + std::string(outline) + "\n");
  }
  for (const char* ignored : {"=1", " =1", "x", "//x=1", "x//=1", "", "/=1", "a//=1"})
    EXPECT_FALSE(DataBranch("").ParseLine(ignored)) << ignored;
}

TEST(TextReader, SectionsAreTakenAsTheyStand) {
  constexpr std::pair<const char*, const char*> rows[] = {
      {"[A/B]\rx=1\r[A]\ry=2", "[A]\r\ny=2\r\n[A/B]\r\nx=1\r\n"},
      {"[/A]\rx=1\r[A//B]\rx=2\r[A\\B]\ry=3", "[A]\r\nx=1\r\n[A/B]\r\nx=2\r\ny=3\r\n"},
      {"[A] // c\rx=1", "[A] / c]\r\nx=1\r\n"},  // no comment, no trimming, a path like any other
      {" [A]\rx=1", "x=1\r\n"},                  // not a header
      {"[A]\rx=1\r[]\ry=2\r[\rz=3", "y=2\r\nz=3\r\n[A]\r\nx=1\r\n"},
      {"[A", "[A]\r\n"},
      {"[A]]\rx/y=1", "[A]/x]\r\ny=1\r\n"},
      {"\r\n\r\n\n\r[A]\r\n\r\n\nx=1\n", "[A]\r\nx=1\r\n"},  // blank lines
      {"x=1\rx='2'\rX=3", "x=\"2\"\r\nX=3\r\n"},             // the later value of a key wins, case counts
  };
  for (const auto& [text, written] : rows) EXPECT_EQ(TextOf(*TreeOf(text)), written) << text;
  const auto root = TreeOf("[A]\rx=1");
  std::stringbuf more("x=2\r[B]\r");
  root->FindBranch("A")->ReadText(&more);
  root->ReadText(nullptr);
  EXPECT_EQ(Outline(*root), "0 []\n1 [A]\n2 x:0=2\n2 [B]\n") << "reading adds below the branch";
}

TEST(TextReader, NulsAndLongLinesCutText) {
  const auto text = [](const char* bytes, std::size_t size) { return std::string(bytes, size); };
  const std::string pad(kMaxLineBytes - 2, 'a');  // with x= one whole piece
  const std::tuple<const char*, std::string, std::string> rows[] = {
      {"a NUL where a line begins ends the text", text("x=1\r\n\0y=2\r", 10), "1 x:0=1\n"},
      {"a NUL inside drops the rest of the line", text("x=1\0z\ry=2\r", 10), "1 x:0=1\n2 y:0=2\n"},
      {"a NUL inside a header", text("[A\0]\r", 5), "1 [A]\n"},
      {"a line that fits", "x=" + pad + "\ry=2", "1 x:0=" + pad + "\n2 y:0=2\n"},
      {"one byte more is a line of its own", "x=" + pad + "by=2\ry=3",
       "1 x:0=" + pad + "\n1 by:0=2\n2 y:0=3\n"},
      {"a piece may begin a section", "x=" + pad + "[b]\ry=3", "1 x:0=" + pad + "\n1 [b]\n2 y:0=3\n"},
      {"a NUL ends its piece only", "x=" + text("\0", 1) + pad + "=2\ry=3", "1 x:0=\n1 a:0=2\n2 y:0=3\n"},
      {"a NUL where a piece begins ends the text", "x=" + pad + text("\0z\ry=3", 7), "1 x:0=" + pad + "\n"},
      {"an LF where a piece begins is skipped", "x=" + pad + "\nz=1", "1 x:0=" + pad + "\n1 z:0=1\n"},
      {"nothing at all", "", ""},
      {"8191, 8191 and 3618 bytes", std::string(20000, '='), "1 ignored\n1 ignored\n1 ignored\n"},
      {"lines that are ignored, and those without content",
       "\r\n// comment\r\n[A]\r\n \t\r\nno equals\r\nx=1\r\n=2\r\n  // c\r\n\r\ny//=\r\nz=1",
       "3 [A]\n5 ignored\n6 x:0=1\n7 ignored\n10 ignored\n11 z:0=1\n"}};
  for (const auto& [what, bytes, items] : rows) {
    SCOPED_TRACE(what);
    EXPECT_EQ(Items(bytes), items);
    DrippingBuf dripping(bytes);
    EXPECT_EQ(Items(dripping), items) << "however the bytes arrive";
  }
}

TEST(TextReader, ReadsTheLineEndsOfOtherPrograms) {
  const char* const items = "1 [A]\n2 x:0=1\n4 y:0=2\n6 ignored\n";
  for (const char* text : {"[A]\nx=1\n\ny=2\n\nword\n", "[A]\r\nx=1\r\n\r\ny=2\r\n\r\nword",
                           "[A]\rx=1\r\ry=2\r\rword", "\xef\xbb\xbf[A]\nx=1\r\n\ny=2\r\r\nword"}) {
    std::stringbuf input(text);
    EXPECT_EQ(Items(input, LineEnds::Any), items) << text;
    DrippingBuf dripping(text);
    EXPECT_EQ(Items(dripping, LineEnds::Any), items) << text;
  }
}

TEST(TextReader, PiecesOfTheInputDoNotShow) {
  std::string text, items;
  for (int i = 1; text.size() < 1000000; ++i) {  // lines of many lengths across several refills
    const std::string value(static_cast<std::size_t>(i) * 37 % 3000, 'v');
    text += "key=" + value + "\r\n";
    items += std::to_string(i) + " key:0=" + value + "\n";
  }
  EXPECT_EQ(Items(text), items);

  std::stringbuf input(text);
  TextReader reader(input);
  std::uint64_t lines = 0;
  while (reader.Next() != Item::End) {
    ++lines;
    ASSERT_EQ(text.substr(reader.Position(), 2), "\r\n") << "the place where line " << lines << " ends";
  }
  EXPECT_EQ(reader.Position(), text.size());
}

}  // namespace
}  // namespace quorvel
