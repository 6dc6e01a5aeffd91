#pragma once

#include <span>

#include "map/document/vastrel_doc.h"
#include "ui/commands/command_target.h"

namespace quorvel {

/// The commands of a map document.
std::span<const CommandRow<CVastrelDoc>> DocumentCommands();

}  // namespace quorvel
