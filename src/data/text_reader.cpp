#include "data/text_reader.h"

#include <algorithm>
#include <cstring>

#include "data/trim.h"

namespace quorvel {
namespace {

constexpr std::size_t kBufferBytes = 256 * 1024;
constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

std::string_view BeforeComment(std::string_view line) {
  return line.substr(0, line.find("//"));
}

bool IsQuote(char byte) {
  return byte == '"' || byte == '\'';
}

/// The path of a header line, which begins with "[".
std::string_view SectionPath(std::string_view line) {
  line.remove_prefix(1);
  if (line.ends_with(']')) line.remove_suffix(1);
  return line;
}

void DecodeValue(std::string_view text, KeyLine& line) {
  if (!text.empty() && IsQuote(text.front())) {
    text.remove_prefix(1);
    if (!text.empty() && IsQuote(text.back())) text.remove_suffix(1);
    line.type = ValueType::String;
  } else {
    line.type = text.find('.') == std::string_view::npos ? ValueType::Int : ValueType::Float;
  }
  line.value = text;
}

}  // namespace

std::optional<KeyLine> SplitKeyLine(std::string_view line) {
  line = BeforeComment(line);
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;

  KeyLine result;
  result.key = TrimRight(line.substr(0, equals));
  if (result.key.empty()) return std::nullopt;
  DecodeValue(Trim(line.substr(equals + 1)), result);
  return result;
}

TextReader::TextReader(std::streambuf& input, LineEnds lineEnds)
    : input_(input),
      lineEnds_(lineEnds),
      buffer_(std::make_unique_for_overwrite<char[]>(kBufferBytes)),
      next_(buffer_.get()),
      end_(buffer_.get()) {
  if (lineEnds_ == LineEnds::CarriageReturn) return;
  Refill();
  if (std::string_view(next_, static_cast<std::size_t>(end_ - next_)).starts_with(kByteOrderMark))
    next_ += kByteOrderMark.size();
}

TextReader::Item TextReader::Next() {
  while (SkipLineEnds()) {
    const std::string_view line = TakeLine();
    if (line.front() == '[') {
      section_ = SectionPath(line);
      return Item::Section;
    }
    if (const auto keyLine = SplitKeyLine(line)) {
      keyLine_ = *keyLine;
      return Item::Value;
    }
    if (!Trim(BeforeComment(line)).empty()) return Item::Ignored;
  }
  return Item::End;
}

/// True when a line begins here.
bool TextReader::SkipLineEnds() {
  char before = '\0';
  for (;;) {
    for (; next_ != end_ && (*next_ == '\r' || *next_ == '\n'); before = *next_++) {
      const bool endsLine = *next_ == '\r' || (lineEnds_ == LineEnds::Any && before != '\r');
      lineNumber_ += endsLine ? 1 : 0;
    }
    if (next_ != end_) return *next_ != '\0';
    if (inputEnded_) return false;
    Refill();
  }
}

std::string_view TextReader::UpToLineEnd(std::string_view text) const {
  return text.substr(0, lineEnds_ == LineEnds::Any ? text.find_first_of("\r\n") : text.find('\r'));
}

/// The bytes up to the line's end or a NUL, at most kMaxLineBytes; what follows a NUL up to the line's end is
/// dropped.
std::string_view TextReader::TakeLine() {
  if (static_cast<std::size_t>(end_ - next_) < kMaxLineBytes && !inputEnded_) Refill();
  const std::string_view line =
      UpToLineEnd({next_, std::min(static_cast<std::size_t>(end_ - next_), kMaxLineBytes)});
  next_ += line.size();
  return line.substr(0, line.find('\0'));
}

/// Moves what is left to the front of the buffer and fills it up, or finds the input's end.
void TextReader::Refill() {
  refillPosition_ += static_cast<std::uint64_t>(next_ - buffer_.get());
  auto held = static_cast<std::size_t>(end_ - next_);
  std::memmove(buffer_.get(), next_, held);
  while (held < kBufferBytes && !inputEnded_) {
    const std::streamsize count =
        input_.sgetn(buffer_.get() + held, static_cast<std::streamsize>(kBufferBytes - held));
    inputEnded_ = count <= 0;
    if (!inputEnded_) held += static_cast<std::size_t>(count);
  }
  next_ = buffer_.get();
  end_ = next_ + held;
}

void DataBranch::ReadText(std::streambuf* input, LineEnds lineEnds) {
  if (!input) return;
  TextReader reader(*input, lineEnds);
  ReadTree(reader, *this, this, [](std::string_view) { return SectionUse::Take; });
}

DataLeaf* DataBranch::ParseLine(std::string_view line) {
  const auto keyLine = SplitKeyLine(line);
  return keyLine ? SetLeaf(keyLine->key, keyLine->value, keyLine->type) : nullptr;
}

}  // namespace quorvel
