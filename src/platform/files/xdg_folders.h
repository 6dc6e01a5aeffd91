#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

/// Where the desktop's rules (XDG) put the files of a program. Relative folders in the environment count as
/// not given; an empty answer: there is no such place.

/// For what a program keeps for itself between two runs: "/Kelmsor/Quorvel/NAME" below $XDG_STATE_HOME (else
/// ~/.local/state).
std::string StateFolder(std::string_view name);

/// For the user's settings: $XDG_CONFIG_HOME (else ~/.config).
std::string ConfigFolder();

/// For the system's settings, the most important first: those of $XDG_CONFIG_DIRS (else /etc/xdg).
std::vector<std::string> SystemConfigFolders();

/// For what comes with this copy of the program: "share/quorvel" beside the program's folder. It need not
/// exist.
std::string ProgramDataFolder();

/// For the settings that come with this copy of the program: "etc/xdg" beside the program's folder. It need
/// not exist.
std::string ProgramConfigFolder();

/// For what lives as long as the session: $XDG_RUNTIME_DIR.
std::string RuntimeFolder();

}  // namespace quorvel
