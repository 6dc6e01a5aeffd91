#pragma once

#include <algorithm>

#include "platform/files/outcome.h"

namespace quorvel {

/// How a run of the batch tool ends.
enum class ExitCode : int {
  Done = 0,     ///< all well, equal
  No = 1,       ///< the answer is no: differences, problems, a refused file, a limit passed, an error text
  Trouble = 2,  ///< wrong usage, a file that cannot be opened, read or written, no memory
};

constexpr ExitCode CodeOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::Done:
      return ExitCode::Done;
    case Outcome::Refused:
      return ExitCode::No;
    case Outcome::NoMemory:
    case Outcome::FileTrouble:
      break;
  }
  return ExitCode::Trouble;
}

/// The code of a run that did both: with several files the highest wins.
constexpr ExitCode Worse(ExitCode one, ExitCode other) {
  return std::max(one, other);
}

}  // namespace quorvel
