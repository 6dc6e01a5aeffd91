#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include <gtest/gtest.h>

#include "places.h"

namespace quorvel {

/// A folder of a test's own in the build tree, removed with all that is in it.
class TempFolder {
 public:
  TempFolder() {
    std::filesystem::create_directories(QUORVEL_TEMP_DIR);
    if (!mkdtemp(path_.data())) ADD_FAILURE() << "no temporary folder";
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& Path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

  /// Makes or overwrites the file and answers its path.
  std::string Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(*this / name, std::ios::binary) << bytes;
    return *this / name;
  }
  /// "(none)" when it cannot be read.
  std::string Read(const std::string& name) const {
    std::ifstream file(*this / name, std::ios::binary);
    if (!file) return "(none)";
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
  }
  /// Names of all entries, sorted.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::string path_ = QUORVEL_TEMP_DIR "/XXXXXX";
};

}  // namespace quorvel
