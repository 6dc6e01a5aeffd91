#include "platform/settings/settings_store.h"

#include <algorithm>
#include <filesystem>

#include "data/ascii_case.h"
#include "platform/files/folder_lock.h"
#include "platform/files/xdg_folders.h"

namespace quorvel {

namespace {

constexpr char kFileName[] = "Kelmsor/Quorvel.conf";

std::string_view WithoutTrailingBackslashes(std::string_view key) {
  while (key.ends_with('\\')) key.remove_suffix(1);
  return key;
}

/// The key itself or one below it.
bool IsWithin(std::string_view key, std::string_view ancestor) {
  return key.size() >= ancestor.size() && EqualIgnoringCase(key.substr(0, ancestor.size()), ancestor) &&
         (key.size() == ancestor.size() || key[ancestor.size()] == '\\');
}

const std::string* Find(const SettingKeys& keys, std::string_view key, std::string_view name) {
  const auto values = keys.find(key);
  if (values == keys.end()) return nullptr;
  const auto value = values->second.find(name);
  return value == values->second.end() ? nullptr : &value->second;
}

}  // namespace

SettingsPlaces SettingsPlaces::FromEnvironment() {
  SettingsPlaces places;
  if (const std::string folder = ConfigFolder(); !folder.empty()) places.userFile = folder + "/" + kFileName;
  for (const std::string& folder : SystemConfigFolders())
    places.systemFiles.push_back(folder + "/" + kFileName);
  if (const std::string folder = ProgramConfigFolder(); !folder.empty())
    places.systemFiles.push_back(folder + "/" + kFileName);
  return places;
}

/// The user's settings, then the system's in their order.
std::vector<SettingKeys> SettingsStore::Layers() const {
  std::vector<SettingKeys> layers;
  layers.push_back(places_.userFile.empty() ? memory_
                                            : ReadSettingsFile(places_.userFile).value_or(SettingKeys()));
  for (const std::string& file : places_.systemFiles)
    layers.push_back(ReadSettingsFile(file).value_or(SettingKeys()));
  return layers;
}

bool SettingsStore::HasKey(std::string_view key) const {
  key = WithoutTrailingBackslashes(key);
  if (IsWithin(kApplicationKey, key)) return true;
  const std::vector<SettingKeys> layers = Layers();
  return std::any_of(layers.begin(), layers.end(), [&](const SettingKeys& keys) {
    return std::any_of(keys.begin(), keys.end(),
                       [&](const auto& entry) { return IsWithin(entry.first, key); });
  });
}

std::optional<std::string> SettingsStore::Get(std::string_view key, std::string_view name) const {
  key = WithoutTrailingBackslashes(key);
  for (const SettingKeys& keys : Layers())
    if (const std::string* value = Find(keys, key, name)) return *value;
  return std::nullopt;
}

std::vector<std::string> SettingsStore::SystemValues(std::string_view key, std::string_view name) const {
  std::vector<std::string> values;
  for (const std::string& file : places_.systemFiles) {
    const SettingKeys keys = ReadSettingsFile(file).value_or(SettingKeys());
    if (const std::string* value = Find(keys, key, name)) values.push_back(*value);
  }
  return values;
}

/// Reads, changes and writes the user's file as it is now, so that what other programs stored stays.
template <class Change>
bool SettingsStore::Update(Change change) {
  if (places_.userFile.empty()) {
    change(memory_);
    return true;
  }
  const std::filesystem::path folder = std::filesystem::path(places_.userFile).parent_path();
  std::error_code ignored;  // the write finds out
  std::filesystem::create_directories(folder, ignored);
  const FolderLock lock(folder);
  const std::optional<SettingKeys> before = ReadSettingsFile(places_.userFile);
  if (!before) return false;
  SettingKeys after = *before;
  change(after);
  return after == *before || WriteSettingsFile(places_.userFile, after);
}

bool SettingsStore::CreateKey(std::string_view key) {
  return Update([&](SettingKeys& keys) { keys.try_emplace(std::string(WithoutTrailingBackslashes(key))); });
}

bool SettingsStore::Set(std::string_view key, std::string_view name, std::string_view value) {
  return Update([&](SettingKeys& keys) {
    keys[std::string(WithoutTrailingBackslashes(key))][std::string(name)] = value;
  });
}

bool SettingsStore::SetAll(std::string_view key, const SettingValues& values) {
  return Update([&](SettingKeys& keys) { keys[std::string(WithoutTrailingBackslashes(key))] = values; });
}

}  // namespace quorvel
