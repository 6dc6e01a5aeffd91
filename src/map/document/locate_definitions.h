#pragma once

#include <string>

#include "map/document/services.h"

namespace quorvel {

/// The default definitions file that the settings name, else "Definitions.txt" in the current folder; it need
/// not exist.
std::string DefaultDefinitionsPath(SettingsStore& settings);

/// How a dialog ended; the codes are those of its buttons.
enum class DialogResult : int { Ok = 1, Cancel = 2 };

/// Finds the default definitions file, asking the user while there is none at the path, and remembers in the
/// settings where it is. Ok: `path` names an existing file. Cancel: the user gave up.
DialogResult LocateDefaultDefinitions(std::string& path, Services& services);

}  // namespace quorvel
