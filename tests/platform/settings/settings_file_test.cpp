#include "platform/settings/settings_file.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(SettingsText, ReadsKeysAndValues) {
  const std::pair<const char*, SettingKeys> rows[] = {
      {"", {}},
      {"[A]\nx=1\n", {{"A", {{"x", "1"}}}}},
      {"[A]\r\nx=1\r\n\r\n[A\\B]\r\n", {{"A", {{"x", "1"}}}, {"A\\B", {}}}},
      {"[A]\nx=1", {{"A", {{"x", "1"}}}}},                              // the last line without its end
      {"[A]\nx= two words =3 \n", {{"A", {{"x", " two words =3 "}}}}},  // blanks and "=" belong to the value
      {"[A]\nx=\n", {{"A", {{"x", ""}}}}},
      {"[A]\nx=1\n[b]\n[a]\nX=2\n", {{"A", {{"x", "2"}}}, {"b", {}}}},  // names without regard to case
      {"[A]\nx=%41%0a%25%4\n", {{"A", {{"x", "A\n%%4"}}}}},             // a "%" without two digits is itself
      {"[A]\nx=%zz%-1\n", {{"A", {{"x", "%zz%-1"}}}}},
      {"x=1\nnonsense\n[A\ny=2\n[B]\nnonsense\n", {{"B", {}}}},  // a broken key takes its values along
  };
  for (const auto& [text, keys] : rows) EXPECT_EQ(ParseSettings(text), keys) << text;
}

TEST(SettingsText, ReadsBackWhatItWrites) {
  std::string everyByte;
  for (int c = 0; c < 256; ++c) everyByte += static_cast<char>(c);
  const SettingKeys keys = {{"[odd]=\\" + everyByte, {{"[" + everyByte, everyByte}, {"empty", ""}}},
                            {"plain", {}}};
  EXPECT_EQ(ParseSettings(FormatSettings(keys)), keys);
}

}  // namespace
}  // namespace quorvel
