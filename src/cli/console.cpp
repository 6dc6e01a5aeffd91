#include "cli/console.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

#include "data/control_escapes.h"

namespace quorvel {

namespace {

/// A message that reaches standard error in one piece, if it is of usual length. Takes no memory: the message
/// may be that there is none.
class Message {
 public:
  Message() { Put("quorvel-map: "); }

  /// File names and texts of files may hold anything.
  void PutEscaped(std::string_view text) {
    PutWithEscapes(text, [this](std::string_view piece) { Put(piece); });
  }

  void Put(std::string_view text) {
    while (!text.empty()) {
      if (size_ == bytes_.size()) Send();
      const std::size_t taken = text.copy(bytes_.data() + size_, bytes_.size() - size_);
      size_ += taken;
      text.remove_prefix(taken);
    }
  }

  void Send() {
    std::fwrite(bytes_.data(), 1, size_, stderr);
    size_ = 0;
  }

 private:
  std::array<char, BUFSIZ> bytes_;
  std::size_t size_ = 0;
};

void WriteMessage(std::string_view about, std::string_view line) {
  Message message;
  if (!about.empty()) {
    message.PutEscaped(about);
    message.Put(": ");
  }
  message.PutEscaped(line);
  message.Put("\n");
  message.Send();
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
  WriteMessage({}, text);
}

}  // namespace quorvel
