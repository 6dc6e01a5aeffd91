#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

/// The application's own key, which always exists.
inline constexpr std::string_view kApplicationKey = "Software\\Kelmsor\\Quorvel";

/// Names compare without regard to ASCII case.
struct SettingNameLess {
  bool operator()(std::string_view a, std::string_view b) const;
};

/// The values of one file: key path -> value name -> text.
using SettingValues = std::map<std::string, std::string, SettingNameLess>;
using SettingKeys = std::map<std::string, SettingValues, SettingNameLess>;

/// Where settings lie.
struct SettingsPlaces {
  std::string userFile;                  ///< empty: settings live in memory only
  std::vector<std::string> systemFiles;  ///< read only, the first wins; as an installer leaves them

  /// Kelmsor/Quorvel.conf below $XDG_CONFIG_HOME (else ~/.config), and below each folder of $XDG_CONFIG_DIRS
  /// (else /etc/xdg).
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
  /// Makes the key and those above it. False: not stored.
  bool CreateKey(std::string_view key);
  /// Sets the value, making its key. False: not stored.
  bool Set(std::string_view key, std::string_view name, std::string_view value);
  /// False: not stored; a value that is not there is removed already.
  bool Remove(std::string_view key, std::string_view name);

 private:
  SettingKeys UserKeys() const;
  template <class Change>
  bool Update(Change change);

  SettingsPlaces places_;
  SettingKeys memory_;  // stands in for the user's file where there is none
};

}  // namespace quorvel
