#include "data/text_signs.h"

#include <cstddef>
#include <string_view>
#include <vector>

#include "data/text_reader.h"

namespace quorvel {
namespace {

constexpr std::size_t kScanBytes = 64 * 1024;

void GoToStart(std::streambuf& input) {
  input.pubseekpos(0, std::ios_base::in);
}

/// `before` is the byte in front of the piece, and becomes its last one.
bool HoldsBareLineFeed(std::string_view piece, char& before) {
  bool found = false;
  for (std::size_t at = piece.find('\n'); at != piece.npos && !found; at = piece.find('\n', at + 1))
    found = (at == 0 ? before : piece[at - 1]) != '\r';
  if (!piece.empty()) before = piece.back();
  return found;
}

}  // namespace

bool BeginsAsTextForm(std::streambuf& input, LineEnds lineEnds) {
  const auto size = static_cast<std::streamoff>(input.pubseekoff(0, std::ios_base::end, std::ios_base::in));
  GoToStart(input);
  TextReader reader(input, lineEnds);
  const TextReader::Item first = reader.Next();
  GoToStart(input);
  if (first == TextReader::Item::End) return reader.Position() == static_cast<std::uint64_t>(size);
  return first != TextReader::Item::Ignored;
}

bool HoldsBareLineFeed(std::streambuf& input) {
  GoToStart(input);
  std::vector<char> bytes(kScanBytes);
  char before = '\0';
  bool found = false;
  std::streamsize count = 0;
  do {
    count = input.sgetn(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    found = count > 0 && HoldsBareLineFeed({bytes.data(), static_cast<std::size_t>(count)}, before);
  } while (count > 0 && !found);
  GoToStart(input);
  return found;
}

}  // namespace quorvel
