#include "map/document/locate_definitions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/settings/registry_settings.h"
#include "tests/map/scripted_services.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

using testing::ElementsAre;

class LocateDefinitions : public testing::Test {
 protected:
  LocateDefinitions() : registry(world.settings) {}

  std::string Remembered() {
    std::string file = "(nothing)";
    registry.GetString("Definitions", "DefaultFile", file, "(no key)");
    return file;
  }

  const TempFolder folder;
  ScriptedServices world;
  CRegistrySettings registry;
  std::string path = "before";
};

TEST_F(LocateDefinitions, AsksUntilAFileIsThere) {
  folder.Write("defs.txt", "x");
  world.prompts.answers = {Answer::Ok, Answer::Ok};
  world.prompts.names = {folder / "missing.txt", folder / "defs.txt"};
  EXPECT_EQ(DefaultDefinitionsPath(world.settings), "Definitions.txt");
  EXPECT_EQ(LocateDefaultDefinitions(path, world.services), DialogResult::Ok);
  EXPECT_EQ(path, folder / "defs.txt");
  EXPECT_EQ(Remembered(), path);
  EXPECT_EQ(LocateDefaultDefinitions(path, world.services), DialogResult::Ok);
  EXPECT_EQ(DefaultDefinitionsPath(world.settings), path);  // found unasked
  const std::string question = "The default definitions file was not found.\nPlease locate the file.";
  EXPECT_THAT(world.prompts.messages, ElementsAre(question, question));
  ASSERT_EQ(world.prompts.filePrompts.size(), 2U);
  EXPECT_EQ(world.prompts.filePrompts[0].title, "Locate default definitions file");
  EXPECT_TRUE(world.prompts.filePrompts[0].filters.empty());
  EXPECT_EQ(world.prompts.filePrompts[0].folder, "/usr/share/quorvel");
}

TEST_F(LocateDefinitions, GivesUpWithTheUser) {
  world.prompts.answers = {Answer::Cancel};
  EXPECT_EQ(LocateDefaultDefinitions(path, world.services), DialogResult::Cancel);
  EXPECT_TRUE(world.prompts.filePrompts.empty());

  world.prompts.answers = {Answer::Ok};
  world.prompts.names = {std::nullopt};
  EXPECT_EQ(LocateDefaultDefinitions(path, world.services), DialogResult::Cancel);
  EXPECT_EQ(Remembered(), "(no key)");
}

}  // namespace
}  // namespace quorvel
