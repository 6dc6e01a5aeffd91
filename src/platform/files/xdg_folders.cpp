#include "platform/files/xdg_folders.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace quorvel {
namespace {

std::string_view Environment(const char* name) {
  const char* text = std::getenv(name);
  return text ? text : std::string_view();
}

std::string FolderFrom(const char* variable) {
  const std::string_view folder = Environment(variable);
  return std::string(folder.starts_with('/') ? folder : std::string_view());
}

/// The folder that the variable names, else the one below the user's home.
std::string UserFolder(const char* variable, std::string_view belowHome) {
  std::string folder = FolderFrom(variable);
  if (!folder.empty()) return folder;
  folder = FolderFrom("HOME");
  return folder.empty() ? folder : folder.append(belowHome);
}

/// Empty where the system does not tell which program runs.
std::string BesideProgramFolder(const char* folder) {
  std::error_code ignored;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  return program.empty() ? "" : (program.parent_path().parent_path() / folder).string();
}

}  // namespace

std::string StateFolder(std::string_view name) {
  std::string folder = UserFolder("XDG_STATE_HOME", "/.local/state");
  return folder.empty() ? folder : folder.append("/Kelmsor/Quorvel/").append(name);
}

std::string ConfigFolder() {
  return UserFolder("XDG_CONFIG_HOME", "/.config");
}

std::vector<std::string> SystemConfigFolders() {
  std::string_view names = Environment("XDG_CONFIG_DIRS");
  if (names.empty()) names = "/etc/xdg";
  std::vector<std::string> folders;
  while (!names.empty()) {
    const std::string_view name = names.substr(0, names.find(':'));
    if (name.starts_with('/')) folders.emplace_back(name);
    names.remove_prefix(std::min(name.size() + 1, names.size()));
  }
  return folders;
}

std::string ProgramDataFolder() {
  return BesideProgramFolder("share/quorvel");
}

std::string ProgramConfigFolder() {
  return BesideProgramFolder("etc/xdg");
}

std::string RuntimeFolder() {
  return FolderFrom("XDG_RUNTIME_DIR");
}

}  // namespace quorvel
