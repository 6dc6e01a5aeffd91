#pragma once

#include <string>

#include "cli/console.h"
#include "cli/exit_code.h"
#include "platform/files/file_source.h"

namespace quorvel {

/// Judges a file after it was read, and tells the console when it could not be.
inline ExitCode ReadOutcome(Console& console, const std::string& path, const FileSource& source) {
  console.Complain(path, source.Error());
  return CodeOf(source.GetOutcome());
}

}  // namespace quorvel
