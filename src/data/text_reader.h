#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <streambuf>
#include <string_view>

#include "data/data_tree.h"

namespace quorvel {

/// Longest piece of a line that is read at once; a longer line counts as several.
inline constexpr std::size_t kMaxLineBytes = 8191;

/// A key line taken apart: views into the line.
struct KeyLine {
  std::string_view key;  ///< a path below the current section; leading white space belongs to it
  std::string_view value;
  ValueType type = ValueType::Int;
};

/// None for a line without a key: a blank, a comment, no "=", or nothing before it.
std::optional<KeyLine> SplitKeyLine(std::string_view line);

/// Pulls a data tree's text form out of a stream line by line, without a tree. Takes the input in large
/// pieces, so it reads past what it has answered. The text ends with the input or at a NUL byte where a line
/// would begin.
class TextReader {
 public:
  enum class Item {
    Section,  ///< `Section()` is the path of the current section from here on
    Value,    ///< `Key()`, `Value()` and `Type()` belong to the current section
    Ignored,  ///< a line that is no blank, no comment, no section and no key line
    End
  };

  explicit TextReader(std::streambuf& input, LineEnds lineEnds = LineEnds::CarriageReturn);

  /// The next line that says something. What the accessors answer is good until the next call, and of this
  /// item only.
  Item Next();

  /// The path between the brackets of the section line, as it stands there.
  std::string_view Section() const { return section_; }
  std::string_view Key() const { return keyLine_.key; }
  std::string_view Value() const { return keyLine_.value; }
  ValueType Type() const { return keyLine_.type; }

  /// Number of the current line, from 1, counted by the line ends. At the end: of the last line.
  std::uint64_t LineNumber() const { return lineNumber_; }

  /// Bytes of the input taken so far: the place where the current line ends.
  std::uint64_t Position() const {
    return refillPosition_ + static_cast<std::uint64_t>(next_ - buffer_.get());
  }

 private:
  bool SkipLineEnds();
  std::string_view UpToLineEnd(std::string_view text) const;
  std::string_view TakeLine();
  void Refill();

  std::streambuf& input_;
  const LineEnds lineEnds_;
  std::unique_ptr<char[]> buffer_;
  const char* next_;
  const char* end_;
  bool inputEnded_ = false;
  std::uint64_t refillPosition_ = 0;  ///< of the buffer's first byte in the input
  std::uint64_t lineNumber_ = 1;
  std::string_view section_;
  KeyLine keyLine_;
};

/// What becomes of a section that is read into a tree.
enum class SectionUse {
  Take,
  Skip,
  Stop  ///< the reading ends, and the reader stands behind the section's line
};

/// Reads what is left into the tree of `root`, values before the next section into `section`. `use(path)` is
/// asked about every section.
template <class Use>
void ReadTree(TextReader& reader, DataBranch& root, DataBranch* section, Use use) {
  for (auto item = reader.Next(); item != TextReader::Item::End; item = reader.Next()) {
    if (item == TextReader::Item::Section) {
      const SectionUse next = use(reader.Section());
      if (next == SectionUse::Stop) return;
      section = next == SectionUse::Take ? root.GetBranch(reader.Section()) : nullptr;
    } else if (item == TextReader::Item::Value && section) {
      section->SetLeaf(reader.Key(), reader.Value(), reader.Type());
    }
  }
}

}  // namespace quorvel
