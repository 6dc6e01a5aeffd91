#include "map/document/locate_definitions.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/settings/registry_settings.h"

namespace quorvel {
namespace {

constexpr const char* kKey = "Definitions";
constexpr const char* kValue = "DefaultFile";

bool Exists(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

void Remember(CRegistrySettings& registry, const std::string& path) {
  registry.CreateKey("", kKey);
  registry.SetString(kKey, kValue, path);
}

}  // namespace

std::string DefaultDefinitionsPath(SettingsStore& settings) {
  std::string path;
  CRegistrySettings(settings).GetString(kKey, kValue, path, "");
  return path.empty() ? "Definitions.txt" : path;
}

DialogResult LocateDefaultDefinitions(std::string& path, Services& services) {
  CRegistrySettings registry(services.settings);
  for (path = DefaultDefinitionsPath(services.settings); !Exists(path);) {
    const Answer answer =
        services.prompts.Message("The default definitions file was not found.\nPlease locate the file.",
                                 MessageButtons::OkCancel, MessageIcon::None);
    if (answer != Answer::Ok) return DialogResult::Cancel;
    const std::optional<std::string> picked =
        services.prompts.OpenFileName({.title = "Locate default definitions file",
                                       .filters = {},
                                       .folder = services.definitionsFolder,
                                       .name = {}});
    if (!picked) return DialogResult::Cancel;
    path = *picked;
  }
  Remember(registry, path);
  return DialogResult::Ok;
}

}  // namespace quorvel
