#include "map/fill/kept_fills.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <new>
#include <system_error>
#include <vector>

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "platform/files/atomic_file.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

constexpr const char* kExtension = ".txt";

/// A name that is not taken: the time, and a number when a fill of the same second was kept.
fs::path FreshName(const fs::path& folder, std::int64_t seconds) {
  const std::string time = fmt::format("{:%Y-%m-%d-%H%M%S}", fmt::gmtime(static_cast<std::time_t>(seconds)));
  fs::path name = folder / (time + kExtension);
  std::error_code error;
  for (int number = 2; fs::exists(name, error); ++number)
    name = folder / fmt::format("{}-{}{}", time, number, kExtension);
  return name;
}

void RemoveOldest(const fs::path& folder) {
  std::vector<fs::path> kept;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error))
    if (entry.path().extension() == kExtension) kept.push_back(entry.path());
  if (kept.size() <= kKeptFills) return;

  std::ranges::sort(kept, {}, [](const fs::path& path) { return path.stem().native(); });
  kept.resize(kept.size() - kKeptFills);
  for (const fs::path& old : kept) fs::remove(old, error);
}

}  // namespace

bool KeepFillSettings(const std::string& folder, std::int64_t seconds, const FillSettings& settings,
                      const DataBranch* classes, std::string& errorText) try {
  DataBranch file({});
  file.AddCopy(classes);
  WriteFillSettings(settings, file);

  std::error_code error;
  fs::create_directories(folder, error);
  AtomicFile output(FreshName(folder, seconds).native());
  file.WriteText(&output);
  if (!output.Commit(errorText)) return false;
  RemoveOldest(folder);
  return true;
} catch (const std::bad_alloc&) {
  errorText += "There is not enough memory.\n";
  return false;
}

}  // namespace quorvel
