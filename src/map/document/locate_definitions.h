#pragma once

#include <string>

#include "map/document/services.h"

namespace quorvel {

/// The default definitions file: the user's own, else "Definitions.txt" in the current folder, else the first
/// that is there of those that the system's settings name and the one that comes with this copy of the
/// program; where there is none at all, "Definitions.txt". The user's own is what the user's settings name,
/// unless that is a file of the system or the program; it need not exist.
std::string DefaultDefinitionsPath(SettingsStore& settings);

/// How a dialog ended; the codes are those of its buttons.
enum class DialogResult : int { Ok = 1, Cancel = 2 };

/// Finds the default definitions file, asking the user while there is none at the path. What the user picked
/// or has in the current folder is remembered in the settings, as an absolute path. Ok: `path` names an
/// existing file. Cancel: the user gave up.
DialogResult LocateDefaultDefinitions(std::string& path, Services& services);

}  // namespace quorvel
