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

Lab Seen(std::uint32_t colour, Sight sight) {
  return LabOf(SeenWith(sight, LinearOf(colour)));
}

// The reference pairs of Sharma, Wu and Dalal, those where hue wraps, vanishes, or blues turn.
TEST(ShippedFiles, ColourDistanceIsCiede2000) {
  const struct {
    Lab one, other;
    double distance;
  } rows[] = {
      {{50, 2.6772, -79.7751}, {50, 0, -82.7485}, 2.0425},
      {{50, 0, 0}, {50, -1, 2}, 2.3669},
      {{50, 2.49, -0.001}, {50, -2.49, 0.0009}, 7.1792},
      {{50, 2.49, -0.001}, {50, -2.49, 0.0011}, 7.2195},
      {{50, 2.5, 0}, {50, 0, -2.5}, 4.3065},
      {{50, 2.5, 0}, {73, 25, -18}, 27.1492},
      {{22.7233, 20.0904, -46.6940}, {23.0331, 14.9730, -42.5619}, 2.0373},
      {{2.0776, 0.0795, -1.1350}, {0.9033, -0.0636, -0.5514}, 0.9082},
  };
  for (const auto& row : rows) {
    EXPECT_NEAR(ColourDistance(row.one, row.other), row.distance, 5e-5);
    EXPECT_NEAR(ColourDistance(row.other, row.one), row.distance, 5e-5);
  }
  EXPECT_NEAR(ColourDistance(Seen(0x000000, Sight::Full), Seen(0xFFFFFF, Sight::Full)), 100, 1e-2);
  EXPECT_NEAR(ContrastWithBlack(LinearOf(0xFFFFFF)), 21, 1e-4);
}

TEST(ShippedFiles, ASimulatedEyeConfusesWhatItCannotTellApart) {
  const struct {
    Sight sight;
    std::uint32_t one, other;
  } rows[] = {{Sight::Protanopia, 0xA04040, 0x505840},
              {Sight::Deuteranopia, 0xC06050, 0x808050},
              {Sight::Tritanopia, 0x4080A0, 0x408878}};
  for (const auto& row : rows) {
    EXPECT_LT(ColourDistance(Seen(row.one, row.sight), Seen(row.other, row.sight)),
              ColourDistance(Seen(row.one, Sight::Full), Seen(row.other, Sight::Full)) / 2);
    EXPECT_LT(ColourDistance(Seen(0x808080, row.sight), Seen(0x808080, Sight::Full)), 0.01);
  }
}

TEST(ShippedFiles, EveryColourCarriesALabelAndAMark) {
  DataBranch tree("");
  ReadTree(kShare + "/Definitions.txt", tree);
  ASSERT_EQ(ColouredLists(tree).size(), 3u);
  for (const DataBranch* list : ColouredLists(tree)) {
    for (const std::uint32_t colour : ColoursOf(*list)) {
      SCOPED_TRACE(testing::Message() << list->GetName() << " " << std::hex << colour);
      EXPECT_THAT(ContrastWithBlack(LinearOf(colour)), Ge(4.5));
      EXPECT_THAT(ColourDistance(Seen(colour, Sight::Full), Seen(~colour, Sight::Full)), Ge(30));
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
          EXPECT_THAT(ColourDistance(Seen(colours[one], sight), Seen(colours[other], sight)), Ge(10));
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
