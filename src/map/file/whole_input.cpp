#include "map/file/whole_input.h"

#include <algorithm>
#include <string_view>

#include "map/types/map_limits.h"
#include "platform/files/file_calls.h"

namespace quorvel {
namespace {

bool HasNoText(std::string_view start) {
  const std::size_t first = start.find_first_not_of("\r\n");
  return first != start.npos && start[first] == '\0';
}

}  // namespace

std::string ReadWholeInput(std::streambuf& input) {
  constexpr std::uint64_t kEnough = kMaxTextFileBytes + 1;
  std::string bytes;
  while (bytes.size() < kEnough && !HasNoText(bytes)) {
    const std::size_t held = bytes.size();
    bytes.resize(held + kPieceBytes);
    const std::streamsize count = input.sgetn(bytes.data() + held, kPieceBytes);
    bytes.resize(held + static_cast<std::size_t>(std::max<std::streamsize>(count, 0)));
    if (count <= 0) break;
  }
  return bytes;
}

}  // namespace quorvel
