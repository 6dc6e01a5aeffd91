#pragma once

#include "cli/exit_code.h"

namespace quorvel {

/// Runs the batch tool with the arguments of main().
ExitCode RunTool(int argc, const char* const* argv);

}  // namespace quorvel
