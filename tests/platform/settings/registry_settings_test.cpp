#include "platform/settings/registry_settings.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(RegistrySettings, AnswersByKeyAndValue) {
  SettingsStore store({});
  CRegistrySettings settings(store);
  std::string output = "before";
  EXPECT_FALSE(settings.GetString("Definitions", "DefaultFile", output, "default"));
  EXPECT_EQ(output, "default");
  EXPECT_FALSE(settings.SetString("Definitions", "DefaultFile", "/maps/Definitions.txt"));

  EXPECT_FALSE(settings.CreateKey("Missing", "Definitions"));
  EXPECT_TRUE(settings.CreateKey("", "Definitions"));
  output = "before";
  EXPECT_TRUE(settings.GetString("Definitions", "DefaultFile", output, "default"));
  EXPECT_EQ(output, "before");  // the key is there, the value is not: no default either

  EXPECT_TRUE(settings.SetString("Definitions", "DefaultFile", "/maps/Definitions.txt"));
  EXPECT_TRUE(settings.GetString("Definitions", "DefaultFile", output, "default"));
  EXPECT_EQ(output, "/maps/Definitions.txt");
  EXPECT_EQ(store.Get("Software\\Kelmsor\\Quorvel\\Definitions", "DefaultFile"), "/maps/Definitions.txt");
  SettingsStore unwritable({.userFile = "/proc/none/settings", .systemFiles = {}});
  EXPECT_FALSE(CRegistrySettings(unwritable).SetString("", "v", "1"));
  EXPECT_TRUE(settings.CreateKey("Definitions", "Below"));
  EXPECT_TRUE(store.HasKey("Software\\Kelmsor\\Quorvel\\Definitions\\Below"));
}

TEST(RegistrySettings, MovesValuesThroughABufferOf260Bytes) {
  SettingsStore store({});
  CRegistrySettings settings(store);
  settings.CreateKey("", "Key");
  const std::pair<std::string, std::string> rows[] = {{std::string(259, 'x'), std::string(259, 'x')},
                                                      {std::string(260, 'x'), std::string(259, 'x')},
                                                      {std::string("ab\0cd", 5), "ab"},
                                                      {"", ""}};
  for (const auto& [value, stored] : rows) {
    std::string output = "before";
    EXPECT_TRUE(settings.SetString("Key", "v", value));
    EXPECT_TRUE(settings.GetString("Key", "v", output, "default"));
    EXPECT_EQ(output, stored);
  }
  store.Set("Software\\Kelmsor\\Quorvel\\Key", "v", std::string(260, 'y'));  // by another program
  std::string output = "before";
  EXPECT_TRUE(settings.GetString("Key", "v", output, "default"));
  EXPECT_EQ(output, "before");
}

}  // namespace
}  // namespace quorvel
