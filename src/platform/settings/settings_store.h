#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/settings/settings_file.h"

namespace quorvel {

/// The application's own key, which always exists.
inline constexpr std::string_view kApplicationKey = "Software\\Kelmsor\\Quorvel";

/// Where settings lie.
struct SettingsPlaces {
  std::string userFile;                  ///< empty: settings live in memory only
  std::vector<std::string> systemFiles;  ///< read only, the first wins; as an installer leaves them

  /// Kelmsor/Quorvel.conf below $XDG_CONFIG_HOME (else ~/.config), and below each folder of $XDG_CONFIG_DIRS
  /// (else /etc/xdg). Last the one that comes with this copy of the program: below etc/xdg beside its folder.
  static SettingsPlaces FromEnvironment();
};

/// String settings in keys whose names are joined by "\". What the user's file lacks, the system's files
/// give. Every read looks at the files as they are now and every write changes one value of them, so running
/// programs share them. A file that is no plain file, above 1 MB or no settings counts as empty; nothing here
/// waits or reports.
///
/// The files: a line `[KEY PATH]` starts a key, `NAME=TEXT` below it is a value. Control bytes and "%" are
/// written as %XX, in names "=" and a leading "[" too. Other lines are ignored.
class SettingsStore {
 public:
  explicit SettingsStore(SettingsPlaces places) : places_(std::move(places)) {}

  /// Trailing backslashes of a key path do not count.
  bool HasKey(std::string_view key) const;
  std::optional<std::string> Get(std::string_view key, std::string_view name) const;
  /// What each of the system's files gives, the most important first, whatever the user's says.
  std::vector<std::string> SystemValues(std::string_view key, std::string_view name) const;
  /// Makes the key. False: not stored.
  bool CreateKey(std::string_view key);
  /// Sets the value, making its key. False: not stored.
  bool Set(std::string_view key, std::string_view name, std::string_view value);
  /// Gives the key these values and no other. False: not stored.
  bool SetAll(std::string_view key, const SettingValues& values);

 private:
  std::vector<SettingKeys> Layers() const;
  template <class Change>
  bool Update(Change change);

  SettingsPlaces places_;
  SettingKeys memory_;  // stands in for the user's file where there is none
};

}  // namespace quorvel
