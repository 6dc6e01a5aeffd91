#include "cli/console.h"

#include <algorithm>
#include <cstdio>

namespace quorvel {

namespace {

// Takes no memory: the message may be that there is none.
void WriteMessage(std::string_view about, std::string_view line) {
  std::fprintf(stderr, "quorvel-map: %.*s%s%.*s\n", static_cast<int>(about.size()), about.data(),
               about.empty() ? "" : ": ", static_cast<int>(line.size()), line.data());
}

}  // namespace

void Console::Complain(std::string_view file, std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    WriteMessage(file, text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

void Console::Complain(std::string_view text) {
  Complain({}, text);
}

}  // namespace quorvel
