#pragma once

#include <string>

#include "cli/console.h"
#include "cli/exit_code.h"
#include "platform/files/file_source.h"

namespace quorvel {

/// Judges a file after it was read, and tells the console when it could not be: Trouble, or No for one that
/// is larger than its limit.
inline ExitCode ReadOutcome(Console& console, const std::string& path, const FileSource& source) {
  if (source.Error().empty()) return ExitCode::Done;
  console.Complain(path, source.Error());
  return source.PassedLimit() ? ExitCode::No : ExitCode::Trouble;
}

}  // namespace quorvel
