#include "platform/settings/recent_files.h"

#include <climits>

#include <fmt/format.h>

namespace quorvel {

namespace {

const std::string kKey = std::string(kApplicationKey) + "\\Recent File List";

}  // namespace

void RecentFiles::Load(int size) {
  size_ = size;
  Read();
}

void RecentFiles::Read() {
  std::vector<std::string> stored;
  for (int i = 1; i <= size_; ++i) {
    const std::optional<std::string> path = settings_.Get(kKey, fmt::format("File{}", i));
    if (path && path->starts_with('/') && path->size() < PATH_MAX) stored.push_back(*path);
  }
  paths_ = std::move(stored);
}

void RecentFiles::Write() {
  SettingValues values;
  for (std::size_t i = 0; i < paths_.size(); ++i) values[fmt::format("File{}", i + 1)] = paths_[i];
  stored_ = settings_.SetAll(kKey, values);
}

void RecentFiles::Add(const std::string& path) {
  if (stored_) Read();
  std::erase(paths_, path);
  paths_.insert(paths_.begin(), path);
  if (paths_.size() > static_cast<std::size_t>(size_)) paths_.pop_back();
  Write();
}

void RecentFiles::Remove(const std::string& path) {
  if (stored_) Read();
  if (std::erase(paths_, path) > 0) Write();
}

}  // namespace quorvel
