#pragma once

#include <string_view>

#include "cli/results.h"

namespace quorvel {

/// Name of standard input or output in the place of a file.
inline constexpr std::string_view kStandardStream = "-";

/// What is said of a run, or of a file, when memory runs out.
inline constexpr std::string_view kNoMemoryMessage = "not enough memory";

/// Whether long work shows a progress bar.
enum class ProgressDisplay { OnTerminal, Never };

/// Where a run of the tool speaks: results to standard output, everything else to standard error. Messages
/// show control bytes as %XX.
class Console {
 public:
  /// Tells about a file, one message for each line of `text`.
  static void Complain(std::string_view file, std::string_view text);

  /// Tells about the run itself, in one line.
  static void Complain(std::string_view text);

  Results& Out() { return results_; }

  ProgressDisplay progress = ProgressDisplay::OnTerminal;

 private:
  Results results_;
};

}  // namespace quorvel
