#include "cli/results.h"

#include <cerrno>
#include <system_error>

#include <unistd.h>

namespace quorvel {

Results::Results() {
  buffer_.reserve(kPieceBytes + 4096);
}

void Results::Drain() {
  std::string_view left = buffer_;
  while (!left.empty() && error_ == 0) {
    const ssize_t written = ::write(STDOUT_FILENO, left.data(), left.size());
    if (written >= 0)
      left.remove_prefix(static_cast<std::size_t>(written));
    else if (errno != EINTR)
      error_ = errno;
  }
  buffer_.clear();
}

bool Results::Finish(std::string& errorText) {
  Drain();
  if (error_ != 0) errorText += std::generic_category().message(error_) + "\n";
  return error_ == 0;
}

}  // namespace quorvel
