#pragma once

#include <string>
#include <vector>

#include "platform/settings/settings_store.h"

namespace quorvel {

/// The files opened or saved last, newest first, kept in the settings ("Recent File List", values "File1",
/// "File2", ...). Every change is stored at once, on top of what another running editor stored meanwhile.
class RecentFiles {
 public:
  explicit RecentFiles(SettingsStore& settings) : settings_(settings) {}

  /// Reads the list; at most `size` entries are kept from now on (none before).
  void Load(int size);
  /// Absolute paths.
  const std::vector<std::string>& Paths() const { return paths_; }
  /// Puts the path first; an entry of the same path moves, the oldest falls out.
  void Add(const std::string& path);
  void Remove(const std::string& path);

 private:
  void Read();
  void Write();

  SettingsStore& settings_;
  int size_ = 0;
  bool stored_ = true;  // else the settings cannot be written, and the list here is the newer one
  std::vector<std::string> paths_;
};

}  // namespace quorvel
