#include "map/document/locate_definitions.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/files/xdg_folders.h"
#include "platform/settings/registry_settings.h"

namespace quorvel {
namespace {

constexpr const char* kKey = "Definitions";
constexpr const char* kValue = "DefaultFile";
constexpr const char* kFileName = "Definitions.txt";

constexpr const char* kWhatDefinitionsAre =
    "A definitions file is a text file that says what a map and each of its cells can carry: the properties, "
    "their values and colours, and the size of a new map. Every new map begins with one. OK lets you choose "
    "the file; Definitions.txt, which comes with Quorvel, is complete.";

bool Exists(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

/// Of those that the system's settings name and that of this copy, the most important first.
std::vector<std::string> ShippedDefinitions(const SettingsStore& settings) {
  std::vector<std::string> paths = settings.SystemValues(std::string(kApplicationKey) + "\\" + kKey, kValue);
  paths.push_back(ProgramDataFolder() + "/" + kFileName);
  std::erase_if(paths, [](const std::string& path) { return !path.starts_with('/'); });
  return paths;
}

/// A shipped path may be longer than what the settings hold of it.
bool IsShipped(const std::string& path, const std::vector<std::string>& shipped) {
  return std::any_of(shipped.begin(), shipped.end(), [&path](const std::string& one) {
    return path == one || path == one.substr(0, CRegistrySettings::kMaxValueBytes);
  });
}

/// The first that is there; empty: none is.
std::string FirstThere(const std::vector<std::string>& paths) {
  const auto found = std::find_if(paths.begin(), paths.end(), Exists);
  return found == paths.end() ? "" : *found;
}

void Remember(SettingsStore& settings, const std::string& path) {
  std::error_code ignored;
  CRegistrySettings registry(settings);
  registry.CreateKey("", kKey);
  registry.SetString(kKey, kValue, std::filesystem::absolute(path, ignored).string());
}

std::optional<std::string> AskForDefinitions(Services& services) {
  const Answer answer =
      services.prompts.Message("The default definitions file was not found.\nPlease locate the file.",
                               MessageButtons::OkCancel, MessageIcon::None, kWhatDefinitionsAre);
  if (answer != Answer::Ok) return std::nullopt;
  const std::filesystem::path shipped = FirstThere(ShippedDefinitions(services.settings));
  return services.prompts.OpenFileName({.title = "Locate default definitions file",
                                        .filters = {},
                                        .folder = shipped.parent_path().string(),
                                        .name = {}});
}

}  // namespace

std::string DefaultDefinitionsPath(SettingsStore& settings) {
  const std::vector<std::string> shipped = ShippedDefinitions(settings);
  std::string stored;
  CRegistrySettings(settings).GetString(kKey, kValue, stored, "");
  const bool isUsersOwn = !stored.empty() && stored != kFileName && !IsShipped(stored, shipped);
  if (isUsersOwn) return stored;
  if (Exists(kFileName)) return kFileName;
  const std::string found = FirstThere(shipped);
  return found.empty() ? kFileName : found;
}

DialogResult LocateDefaultDefinitions(std::string& path, Services& services) {
  SettingsStore& settings = services.settings;
  path = DefaultDefinitionsPath(settings);
  bool isShipped = IsShipped(path, ShippedDefinitions(settings));
  while (!Exists(path)) {
    const std::optional<std::string> picked = AskForDefinitions(services);
    if (!picked) return DialogResult::Cancel;
    path = *picked;
    isShipped = false;
  }
  if (!isShipped) Remember(settings, path);
  return DialogResult::Ok;
}

}  // namespace quorvel
