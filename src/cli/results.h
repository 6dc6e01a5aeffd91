#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files/file_calls.h"

namespace quorvel {

/// Results on their way to standard output, in large pieces. After the first failed write nothing more is
/// written and the failure is kept for whoever asks at the end.
class Results {
 public:
  Results();

  /// Appends bytes as they are.
  void Write(std::string_view text) {
    buffer_ += text;
    if (buffer_.size() >= kPieceBytes) Drain();
  }

  /// Buffer to which one line may be appended directly; EndLine() closes it.
  std::string& Line() { return buffer_; }
  void EndLine() {
    buffer_ += '\n';
    if (buffer_.size() >= kPieceBytes) Drain();
  }

  /// True once a write has failed: a long dump may as well stop.
  bool Failed() const { return error_ != 0; }

  /// Writes what is left. False when any write failed; `errorText` then gets a line that says why.
  bool Finish(std::string& errorText);

 private:
  void Drain();

  std::string buffer_;
  int error_ = 0;
};

}  // namespace quorvel
