#pragma once

#include <string>

#include "platform/settings/settings_store.h"

namespace quorvel {

/// Per-user string settings below the application's key. A sub-path names a key below it, the empty one the
/// application's key itself. Values hold at most 259 bytes (a buffer of 260 with its terminator).
class CRegistrySettings {
 public:
  static constexpr std::size_t kMaxValueBytes = 259;

  /// `basePath` ends with a backslash and is put before every sub-path as it stands.
  explicit CRegistrySettings(SettingsStore& store, std::string basePath = std::string(kApplicationKey) + "\\")
      : store_(store), basePath_(std::move(basePath)) {}
  virtual ~CRegistrySettings() = default;

  /// Makes the key `keyName` below `subPath`. False: `subPath` does not exist. True says nothing about the
  /// new key.
  bool CreateKey(const std::string& subPath, const std::string& keyName);
  /// False: no such key, and `output` is `defaultValue`. True: `output` is the value, or unchanged when the
  /// value is missing or longer than 259 bytes.
  bool GetString(const std::string& subPath, const std::string& valueName, std::string& output,
                 const std::string& defaultValue) const;
  /// Stores the first 259 bytes of `value`. False: no such key, or not stored.
  bool SetString(const std::string& subPath, const std::string& valueName, const std::string& value);

 private:
  SettingsStore& store_;
  std::string basePath_;
};

}  // namespace quorvel
