#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/data_tree.h"
#include "places.h"
#include "tests/cli/tool_run.h"
#include "tests/workflow/colour_distance.h"

namespace quorvel {
namespace {

using testing::Ge;

const std::string kShare = QUORVEL_SOURCE_DIR "/share";
constexpr Sight kSights[] = {Sight::Full, Sight::Protanopia, Sight::Deuteranopia, Sight::Tritanopia};

void ReadTree(const std::string& path, DataBranch& tree) {
  std::filebuf file;
  ASSERT_TRUE(file.open(path, std::ios::in | std::ios::binary)) << path;
  tree.ReadText(&file);
}

/// The lists with colours that a definitions or settings file declares.
std::vector<const DataBranch*> ColouredLists(const DataBranch& tree) {
  std::vector<const DataBranch*> lists;
  const DataBranch* classes = tree.FindBranch("Classes");
  for (const DataBranch* type = classes ? classes->GetFirstBranch() : nullptr; type;
       type = type->GetNextBranch()) {
    if (type->FindBranch("UI/Color")) lists.push_back(type);
  }
  return lists;
}

std::vector<std::uint32_t> ColoursOf(const DataBranch& list) {
  std::vector<std::uint32_t> colours;
  for (const DataLeaf* leaf = list.FindBranch("UI/Color")->GetFirstLeaf(); leaf; leaf = leaf->GetNextLeaf()) {
    colours.push_back(static_cast<std::uint32_t>(std::stoul(std::string(leaf->GetValue()), nullptr, 0)));
  }
  return colours;
}

std::string TextOf(const DataBranch& branch) {
  std::stringbuf text;
  branch.WriteText(&text);
  return text.str();
}

// As published for the primaries of sRGB.
TEST(ShippedFiles, ColourDistanceIsThatOfOklab) {
  constexpr std::pair<std::uint32_t, double> rows[] = {
      {0xFFFFFF, 1}, {0xFF0000, 0.6788}, {0x00FF00, 0.9152}, {0x0000FF, 0.5499}};
  for (const auto& [colour, fromBlack] : rows) EXPECT_NEAR(ColourDistance(0, colour), fromBlack, 1e-4);
  EXPECT_NEAR(ContrastWithBlack(0xFFFFFF), 21, 1e-4);
}

TEST(ShippedFiles, ASimulatedEyeConfusesWhatItCannotTellApart) {
  constexpr std::tuple<Sight, std::uint32_t, std::uint32_t> rows[] = {
      {Sight::Protanopia, 0xA04040, 0x505840},
      {Sight::Deuteranopia, 0xC06050, 0x808050},
      {Sight::Tritanopia, 0x4080A0, 0x408878}};
  for (const auto& [sight, one, other] : rows) {
    EXPECT_LT(ColourDistance(one, other, sight), ColourDistance(one, other) / 2);
    EXPECT_NEAR(ColourDistance(0, 0x808080, sight), ColourDistance(0, 0x808080), 1e-4) << "greys stay";
  }
}

TEST(ShippedFiles, EveryColourCarriesALabelAndAMark) {
  DataBranch tree("");
  ReadTree(kShare + "/Definitions.txt", tree);
  ASSERT_EQ(ColouredLists(tree).size(), 3u);
  for (const DataBranch* list : ColouredLists(tree)) {
    for (const std::uint32_t colour : ColoursOf(*list)) {
      SCOPED_TRACE(testing::Message() << list->GetName() << " " << std::hex << colour);
      EXPECT_THAT(ContrastWithBlack(colour), Ge(4.5));
      EXPECT_THAT(ColourDistance(colour, ~colour), Ge(0.14));
    }
  }
}

TEST(ShippedFiles, EveryEyeTellsTheColoursOfAListApart) {
  DataBranch tree("");
  ReadTree(kShare + "/Definitions.txt", tree);
  for (const DataBranch* list : ColouredLists(tree)) {
    const std::vector<std::uint32_t> colours = ColoursOf(*list);
    for (const Sight sight : kSights) {
      for (std::size_t one = 0; one < colours.size(); ++one) {
        for (std::size_t other = 0; other < one; ++other) {
          SCOPED_TRACE(testing::Message() << list->GetName() << " " << std::hex << colours[one] << " "
                                          << colours[other] << ", sight " << static_cast<int>(sight));
          EXPECT_THAT(ColourDistance(colours[one], colours[other], sight), Ge(0.07));
        }
      }
    }
  }
}

TEST(ShippedFiles, SettingsDeclareTheListsOfTheDefinitions) {
  DataBranch definitions("");
  ReadTree(kShare + "/Definitions.txt", definitions);
  for (const auto& entry : std::filesystem::directory_iterator(kShare + "/settings")) {
    SCOPED_TRACE(entry.path().string());
    DataBranch settings("");
    ReadTree(entry.path(), settings);
    EXPECT_GE(ColouredLists(settings).size(), 2u);
    for (const DataBranch* list : ColouredLists(settings)) {
      const DataBranch* own = definitions.FindBranch("Classes/" + std::string(list->GetName()));
      ASSERT_TRUE(own) << list->GetName();
      EXPECT_EQ(TextOf(*list), TextOf(*own)) << list->GetName();
    }
  }
}

TEST(ShippedFiles, SamplesAreWhatTheScriptMakes) {
  const TempFolder folder;
  const std::string command = "QUORVEL_MAP='" QUORVEL_BIN_DIR "/quorvel-map' '" QUORVEL_SOURCE_DIR
                              "/scripts/make-samples' '" +
                              folder.Path() + "'";
  ASSERT_EQ(std::system(command.c_str()), 0);
  std::vector<std::string> samples;
  for (const auto& entry : std::filesystem::directory_iterator(kShare + "/samples")) {
    samples.push_back(entry.path().filename());
  }
  EXPECT_THAT(samples, testing::UnorderedElementsAreArray(folder.Names()));
  for (const std::string& name : folder.Names()) {
    EXPECT_TRUE(ReadBytes(folder / name) == ReadBytes(kShare + "/samples/" + name)) << name;
  }
}

}  // namespace
}  // namespace quorvel
