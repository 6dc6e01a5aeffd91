// The rooms' arrows run one way. Linking alone proves nothing, since a header can come along through a third
// library, so this reads the include lines themselves.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "places.h"

namespace {

namespace fs = std::filesystem;

const std::map<std::string, std::set<std::string>> kMayInclude = {
    {"data", {"data"}},
    {"platform", {"data", "platform"}},
    {"map", {"data", "platform", "map"}},
    {"render", {"data", "platform", "map", "render"}},
    {"ui", {"data", "platform", "map", "render", "ui"}},
    {"cli", {"data", "platform", "map", "render", "cli"}},
};
/// Within a room: the sub-rooms that the files of each may include beside their own.
const std::map<std::string, std::set<std::string>> kSubRooms = {
    {"platform/files", {}},
    {"platform/settings", {"files"}},
    {"platform/documents", {"files", "settings"}},

    {"map/grid", {}},
    {"map/types", {"grid"}},
    {"map/file", {"grid", "types"}},
    {"map/fill", {"grid", "types"}},
    {"map/check", {"grid", "types", "file"}},
    {"map/document", {"grid", "types", "file", "fill"}},

    {"ui/resources", {}},
    {"ui/drawings", {"resources"}},
    {"ui/commands", {"resources", "drawings"}},
    {"ui/dialogs", {"resources", "drawings"}},
    {"ui/wizard", {"resources", "dialogs"}},
    {"ui/view", {"resources", "drawings", "commands", "dialogs"}},
    {"ui/printing", {"resources", "commands", "dialogs", "view"}},
    {"ui/frame", {"resources", "drawings", "commands", "dialogs", "view"}},
    {"ui/app", {"resources", "drawings", "commands", "dialogs", "wizard", "view", "printing", "frame"}},
};
const std::set<std::string> kRoomsWithoutQt = {"data", "platform", "map"};

struct Include {
  std::string file, header;
  bool own;  // "header" rather than <header>
};

/// The header that the line includes, if it does.
std::optional<Include> ParseInclude(const std::string& file, std::string_view line) {
  constexpr std::string_view kWord = "#include ";
  if (!line.starts_with(kWord) || line.size() < kWord.size() + 2) return std::nullopt;
  const std::string_view quoted = line.substr(kWord.size());
  const std::size_t end = quoted.find_first_of("\">", 1);
  return Include{file, std::string(quoted.substr(1, end - 1)), quoted.front() == '"'};
}

std::vector<Include> IncludesBelow(const fs::path& folder) {
  std::vector<Include> includes;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
    std::ifstream source(entry.path());
    for (std::string line; std::getline(source, line);) {
      if (auto include = ParseInclude(entry.path().string(), line)) includes.push_back(std::move(*include));
    }
  }
  return includes;
}

TEST(IncludeArrows, NameOnlyRoomsToTheLeftAndNoQtWhereNoScreenIsKnown) {
  for (const auto& [room, allowed] : kMayInclude) {
    const std::vector<Include> includes = IncludesBelow(fs::path(QUORVEL_SOURCE_DIR) / "src" / room);
    EXPECT_FALSE(includes.empty()) << room;
    for (const Include& include : includes) {
      const bool isQt = !include.own && include.header.starts_with('Q');
      const bool isAllowed = include.own
                                 ? allowed.contains(include.header.substr(0, include.header.find('/')))
                                 : !isQt || !kRoomsWithoutQt.contains(room);
      EXPECT_TRUE(isAllowed) << include.file << " includes " << include.header;
    }
  }
}

TEST(Rooms, AreAllKnownAndEachHasAReadme) {
  std::set<std::string> rooms;
  for (const auto& entry : fs::directory_iterator(fs::path(QUORVEL_SOURCE_DIR) / "src")) {
    if (!entry.is_directory()) continue;
    rooms.insert(entry.path().filename());
    EXPECT_TRUE(fs::exists(entry.path() / "README.md")) << entry.path();
  }
  for (const auto& [room, allowed] : kMayInclude) EXPECT_EQ(rooms.count(room), 1U) << room;
  EXPECT_EQ(rooms.size(), kMayInclude.size());
}

/// "map/grid" of "map/grid/hex_grid.h", "data" of "data/slot.h".
std::string FolderOf(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  return std::string(slash == std::string_view::npos ? std::string_view() : path.substr(0, slash));
}

std::string RoomOf(const std::string& folder) {
  return folder.substr(0, folder.find('/'));
}

/// "/map/grid" of "src/map/grid" and of "tests/map/grid".
std::string WithoutTree(const std::string& path) {
  return path.substr(std::min(path.find('/'), path.size()));
}

TEST(Pages, NameOnlyFilesThatAreThere) {
  const std::regex named("`([a-z_/]+\\.(h|cpp))`");
  const fs::path root(QUORVEL_SOURCE_DIR);
  std::vector<std::string> files = {"ARCHITECTURE.md", "README.md"};
  for (const char* tree : {"src", "tests", "bench", "fuzz"}) {
    for (const auto& entry : fs::recursive_directory_iterator(root / tree))
      files.push_back(fs::relative(entry.path(), root));
  }
  for (const std::string& page : files) {
    if (!page.ends_with(".md")) continue;
    std::ifstream source(root / page);
    const std::string text{std::istreambuf_iterator<char>(source), {}};
    for (std::sregex_iterator word(text.begin(), text.end(), named), end; word != end; ++word) {
      const std::string name = (*word)[1];
      // A bare name is a file of the page's own folder or of its tests.
      const std::string folder = name.find('/') != name.npos ? "" : WithoutTree(FolderOf(page));
      EXPECT_TRUE(std::ranges::any_of(files,
                                      [&](const std::string& file) {
                                        return ('/' + file).ends_with('/' + name) &&
                                               WithoutTree(file).starts_with(folder);
                                      }))
          << page << " names " << name;
    }
  }
}

TEST(SubRooms, AreAllKnownAndEachHasAReadmeAndItsTestsAtTheSamePlace) {
  const fs::path root(QUORVEL_SOURCE_DIR);
  std::set<std::string> withCode;
  for (const char* tree : {"src", "tests"}) {
    for (const auto& entry : fs::recursive_directory_iterator(root / tree)) {
      if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
      const std::string folder = fs::relative(entry.path().parent_path(), root / tree);
      EXPECT_TRUE(folder == RoomOf(folder) || kSubRooms.contains(folder)) << entry.path();
      if (std::string_view(tree) == "src") withCode.insert(folder);
    }
  }
  for (const auto& [subRoom, allowed] : kSubRooms) {
    EXPECT_TRUE(withCode.contains(subRoom)) << subRoom;
    EXPECT_FALSE(withCode.contains(RoomOf(subRoom)))
        << "src/" << RoomOf(subRoom) << " has code beside its sub-rooms";
    EXPECT_TRUE(fs::exists(root / "src" / subRoom / "README.md")) << subRoom;
  }
}

TEST(SubRooms, NameOnlyThoseOfTheTable) {
  const fs::path source = fs::path(QUORVEL_SOURCE_DIR) / "src";
  for (const auto& [subRoom, allowed] : kSubRooms) {
    for (const Include& include : IncludesBelow(source / subRoom)) {
      const std::string named = FolderOf(include.header);
      if (!include.own || named == subRoom || RoomOf(named) != RoomOf(subRoom)) continue;
      EXPECT_TRUE(allowed.contains(named.substr(named.find('/') + 1)))
          << include.file << " includes \"" << include.header << '"';
    }
  }
}

TEST(SubRooms, HaveNoCircle) {
  std::set<std::string> reached;
  for (std::size_t before = reached.size() + 1; before != reached.size();) {
    before = reached.size();
    for (const auto& [subRoom, allowed] : kSubRooms) {
      const std::string room = RoomOf(subRoom);
      if (std::ranges::all_of(allowed,
                              [&](const auto& named) { return reached.contains(room + '/' + named); }))
        reached.insert(subRoom);
    }
  }
  EXPECT_EQ(reached.size(), kSubRooms.size()) << "some sub-rooms can be reached from themselves";
}

}  // namespace
