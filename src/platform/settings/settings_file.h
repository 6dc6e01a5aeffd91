#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

/// Names of keys and values compare without regard to ASCII case.
struct SettingNameLess {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

/// Value name -> text.
using SettingValues = std::map<std::string, std::string, SettingNameLess>;
/// Key path, its names joined by "\" -> values.
using SettingKeys = std::map<std::string, SettingValues, SettingNameLess>;

/// Settings as text: a line `[KEY PATH]` starts a key, `NAME=TEXT` below it is a value. Control bytes and "%"
/// are written as %XX, in names "=" and "[" too. Lines of any other shape are skipped, the last of equal
/// names counts.
SettingKeys ParseSettings(std::string_view text);
std::string FormatSettings(const SettingKeys& keys);

/// The settings of the file; empty when there is no file or it has more than 1 MB. None: something stands
/// there that cannot be read (a folder, a FIFO, a damaged disk) and should not be replaced.
std::optional<SettingKeys> ReadSettingsFile(const std::string& path);
/// False: not written, and the file is as it was.
bool WriteSettingsFile(const std::string& path, const SettingKeys& keys);

}  // namespace quorvel
