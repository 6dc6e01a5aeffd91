#include "platform/settings/registry_settings.h"

#include <cstring>

namespace quorvel {

bool CRegistrySettings::CreateKey(const std::string& subPath, const std::string& keyName) {
  const std::string parent = basePath_ + subPath;
  if (!store_.HasKey(parent)) return false;
  store_.CreateKey(parent.ends_with('\\') ? parent + keyName : parent + "\\" + keyName);
  return true;
}

bool CRegistrySettings::GetString(const std::string& subPath, const std::string& valueName,
                                  std::string& output, const std::string& defaultValue) const {
  const std::string key = basePath_ + subPath;
  if (!store_.HasKey(key)) {
    output = defaultValue;
    return false;
  }
  const std::optional<std::string> value = store_.Get(key, valueName);
  // As the buffer's text ends.
  if (value && value->size() <= kMaxValueBytes) output = value->substr(0, value->find('\0'));
  return true;
}

bool CRegistrySettings::SetString(const std::string& subPath, const std::string& valueName,
                                  const std::string& value) {
  const std::string key = basePath_ + subPath;
  if (!store_.HasKey(key)) return false;
  return store_.Set(key, valueName, std::string_view(value.c_str(), strnlen(value.c_str(), kMaxValueBytes)));
}

}  // namespace quorvel
