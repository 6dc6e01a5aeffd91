#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/console.h"

namespace quorvel {

/// Wrong usage when more than one of the files to read is standard input, which gives its bytes once.
inline void RequireOneStandardInput(const std::vector<std::string>& files) {
  if (std::ranges::count(files, kStandardStream) > 1)
    throw CLI::ValidationError(std::string(kStandardStream), "standard input can be read only once");
}

}  // namespace quorvel
