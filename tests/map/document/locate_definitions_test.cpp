#include "map/document/locate_definitions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/settings/registry_settings.h"
#include "tests/map/scripted_services.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Optional;

const std::string kKey = std::string(kApplicationKey) + "\\Definitions";
const std::string kQuestion = "The default definitions file was not found.\nPlease locate the file.";

/// A user in a working folder of their own, on a system with two settings files.
class LocateDefinitions : public testing::Test {
 protected:
  LocateDefinitions() {
    fs::create_directories(folder / "work");
    fs::current_path(folder / "work");
    world.settings =
        SettingsStore({.userFile = folder / "user", .systemFiles = {folder / "a", folder / "b"}});
  }
  ~LocateDefinitions() override { fs::current_path(before_); }

  void System(const std::string& file, const std::string& path) const {
    folder.Write(file, "[" + kKey + "]\nDefaultFile=" + path + "\n");
  }
  void ExpectUnasked(const std::string& expected) {
    EXPECT_EQ(DefaultDefinitionsPath(world.settings), expected);
    EXPECT_EQ(LocateDefaultDefinitions(path, world.services), DialogResult::Ok);
    EXPECT_EQ(path, expected);
    EXPECT_THAT(world.prompts.TakeMessages(), ElementsAre());
  }
  void Store(const std::string& text) { world.settings.Set(kKey, "DefaultFile", text); }
  std::optional<std::string> Stored() const { return world.settings.Get(kKey, "DefaultFile"); }

  const TempFolder folder;
  ScriptedServices world;
  std::string path = "before";

 private:
  const fs::path before_ = fs::current_path();
};

TEST_F(LocateDefinitions, AsksUntilAFileIsThere) {
  folder.Write("defs.txt", "x");
  world.prompts.answers = {Answer::Ok, Answer::Ok};
  world.prompts.names = {folder / "missing.txt", folder / "defs.txt"};
  EXPECT_EQ(DefaultDefinitionsPath(world.settings), "Definitions.txt");
  EXPECT_EQ(LocateDefaultDefinitions(path, world.services), DialogResult::Ok);
  EXPECT_EQ(path, folder / "defs.txt");
  EXPECT_THAT(Stored(), Optional(path));
  EXPECT_THAT(world.prompts.whatsThisTexts,
              ElementsAre(HasSubstr("definitions file is"), HasSubstr("definitions file is")));
  EXPECT_THAT(world.prompts.TakeMessages(), ElementsAre(kQuestion, kQuestion));
  ExpectUnasked(folder / "defs.txt");
  ASSERT_EQ(world.prompts.filePrompts.size(), 2U);
  EXPECT_EQ(world.prompts.filePrompts[0].title, "Locate default definitions file");
  EXPECT_TRUE(world.prompts.filePrompts[0].filters.empty());
  EXPECT_EQ(world.prompts.filePrompts[0].folder, "");
}

TEST_F(LocateDefinitions, GivesUpWithTheUser) {
  world.prompts.answers = {Answer::Cancel};
  EXPECT_EQ(LocateDefaultDefinitions(path, world.services), DialogResult::Cancel);
  EXPECT_TRUE(world.prompts.filePrompts.empty());

  world.prompts.answers = {Answer::Ok};
  world.prompts.names = {std::nullopt};
  EXPECT_EQ(LocateDefaultDefinitions(path, world.services), DialogResult::Cancel);
  EXPECT_EQ(Stored(), std::nullopt);
}

TEST_F(LocateDefinitions, TakesTheSystemsWhereTheUserHasNone) {
  const std::string shipped = folder.Write("shipped.txt", "x");
  System("a", folder / "gone.txt");
  System("b", shipped);
  ExpectUnasked(shipped);
  EXPECT_EQ(folder.Read("user"), "(none)") << "the system's may change";
  for (const std::string& none : {std::string("Definitions.txt"), shipped, folder / "gone.txt"}) {
    SCOPED_TRACE(none);
    Store(none);
    ExpectUnasked(shipped);
    EXPECT_THAT(Stored(), Optional(none));
  }

  folder.Write("work/Definitions.txt", "x");
  ExpectUnasked("Definitions.txt");
  EXPECT_THAT(Stored(), Optional(folder / "work/Definitions.txt"));
  fs::current_path(folder.Path());
  ExpectUnasked(folder / "work/Definitions.txt");
}

TEST_F(LocateDefinitions, AsksForTheUsersOwnInTheFolderOfTheShipped) {
  System("a", folder.Write("shipped.txt", "x"));
  Store(folder / "gone.txt");
  world.prompts.answers = {Answer::Ok};
  world.prompts.names = {folder / "shipped.txt"};
  EXPECT_EQ(LocateDefaultDefinitions(path, world.services), DialogResult::Ok);
  EXPECT_THAT(world.prompts.TakeMessages(), ElementsAre(kQuestion));
  EXPECT_EQ(world.prompts.filePrompts.at(0).folder, folder.Path());
  EXPECT_THAT(Stored(), Optional(folder / "shipped.txt"));
}

TEST_F(LocateDefinitions, TakesPathsOfTheSystemLongerThanSettingsHold) {
  const std::string name = std::string(200, 'p');
  fs::create_directories(folder / (name + "/" + name));
  const std::string shipped = folder.Write(name + "/" + name + "/Definitions.txt", "x");
  System("a", shipped);
  ExpectUnasked(shipped);
  Store(shipped.substr(0, CRegistrySettings::kMaxValueBytes));  // as it was picked
  ExpectUnasked(shipped);
}

}  // namespace
}  // namespace quorvel
