#include "map/file/map_writer.h"

#include <sstream>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "map/file/map_file_layout.h"
#include "map/file/map_writer_tree.h"
#include "platform/files/little_endian.h"
#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

std::string OneMemberClasses() {
  return Lines(
      "[Classes/Map] type='class' [Classes/Map/Width] type='int' range='1<10<1000' "
      "[Classes/Map/Height] type='int' range='1<10<1000' [Classes/Cell] type='class' "
      "[Classes/Cell/v] type='int' range='0<0<9'");
}

std::string VersionLines(std::string_view form) {
  return Lines(
      fmt::format("[Version] FileType='Orvantis.Map.Vastrel' FileVersion=0 CellType='hex' "
                  "[Version/Data] type='{}'",
                  form));
}

std::string LittleEndian(std::initializer_list<std::uint32_t> numbers) {
  std::string bytes;
  for (const std::uint32_t number : numbers) PutLittleEndian(bytes, number);
  return bytes;
}

TEST(MapWriter, WritesTheTextFormByteForByte) {
  MapContents contents = EmptySampleMap(2, 1);
  const std::string head = VersionLines("text") + SampleClasses() +
                           Lines("[Declare/Galaxy] type='Map' [Objects/Galaxy] Width=2 Height=1");
  EXPECT_EQ(Saved(contents), head + Lines("[Objects/Galaxy/Cells]"));  // no record: the branch is empty
  SetValue(contents, 1, "Name", "a\"b");
  SetValue(contents, 1, "Weight", "-nan");
  SetValue(contents, 1, "Kind", "-1");
  SetValue(contents, 0, "Count", "-2147483648");
  EXPECT_EQ(
      Saved(contents),
      head +
          "[Objects/Galaxy/Cells/0]\r\nName=\"none\"\r\nCount=-2147483648\r\nWeight=1.500000\r\nKind=0\r\n"
          "[Objects/Galaxy/Cells/1]\r\nName=\"a\"b\"\r\nCount=5\r\nWeight=-nan.\r\nKind=-1\r\n");
}

TEST(MapWriter, WritesNoClassesWhereThereAreNone) {
  MapContents contents = ContentsOf(OneMemberClasses());
  contents.m_pClasses.reset();
  MakeGrid(contents, 1, 1);
  EXPECT_EQ(
      Saved(contents),
      VersionLines("text") +
          Lines("[Declare/Galaxy] type='Map' [Objects/Galaxy] Width=1 Height=1 [Objects/Galaxy/Cells]"));
}

TEST(MapWriter, WritesTheBinaryFormByteForByte) {
  MapContents contents = EmptySampleMap(2, 1);
  SetValue(contents, 1, "Name", "abc");
  SetValue(contents, 1, "Count", "-2");
  SetValue(contents, 1, "Weight", "0.5");
  SetValue(contents, 1, "Kind", "2");
  const std::string header = Lines("[Version] FileType='Orvantis.Map.Vastrel' FileVersion=0 CellType='hex'") +
                             "Warning=\"Do not manually edit this file.\"\r\n" +
                             Lines(
                                 "[Version/Data] type='binary' [Version/Data/Offsets] Data=856 Text=900 "
                                 "[Version/Data/Sizes] string=4 int=4 float=4 index=4 object=0") +
                             SampleClasses() + Lines("[Declare/Galaxy] type='Map' [Objects]");
  ASSERT_EQ(header.size(), 855U);
  // The cell without a record is written with the defaults; equal texts would be written again.
  EXPECT_EQ(SavedAs(contents, FileForm::Binary),
            header + std::string(1, '\0') + LittleEndian({2, 1, 2}) +
                LittleEndian({0, 5, 0x3fc00000, 0, 5, 0xfffffffe, 0x3f000000, 2}) +
                std::string("none\0abc\0", 9));
  EXPECT_EQ(contents.m_pCellClass->CountInstances(), 1U);  // the defaults were only lent
}

TEST(MapWriter, OffsetsCountTheirOwnDigits) {
  // Text sizes around the place where the offsets' digits grow and push the blocks on.
  for (std::size_t fill = 0; fill < 120; ++fill) {
    DataBranch tree({});
    tree.SetLeaf("Version/fill", std::string(900 + fill, 'x'), ValueType::String);
    const BlockOffsets offsets = SettleOffsets(tree, 12);
    SCOPED_TRACE(fill);
    EXPECT_EQ(offsets.data, PaddedTextBytes(tree.TextSize()));
    EXPECT_EQ(offsets.text, offsets.data + 12);
    EXPECT_EQ(tree.FindLeaf("Version/Data/Offsets/Data")->GetValue(), std::to_string(offsets.data));
    EXPECT_EQ(tree.FindLeaf("Version/Data/Offsets/Text")->GetValue(), std::to_string(offsets.text));
  }
}

TEST(MapWriter, ReportsEveryCellInOrder) {
  MapContents contents = ContentsOf(OneMemberClasses());
  MakeGrid(contents, 3, 1);
  SetValue(contents, 0, "v", "1");
  SetValue(contents, 2, "v", "2");
  const std::pair<FileForm, std::vector<std::string>> rows[] = {
      {FileForm::Text, {"progress 0", "progress 50"}},
      {FileForm::Binary, {"progress 0", "progress 33", "progress 66"}}};
  for (const auto& [form, progress] : rows) {
    contents.m_nDataType = DataTypeOf(form);
    std::string errorText;
    const auto plan = PlanMapFile(contents, "", errorText);
    std::stringbuf file;
    FeedbackLog log;
    SaveMap(*plan, contents, file, log);
    std::vector<std::string> expected = {"wait", "show", "progress 0", "text Saving map..."};
    expected.insert(expected.end(), progress.begin(), progress.end());
    expected.insert(expected.end(), {"hide", "text ", "end wait"});
    EXPECT_EQ(log.Events(), expected);
  }
}

TEST(MapWriter, RefusesBeforeTheFirstByte) {
  std::string errorText;
  EXPECT_FALSE(PlanMapFile(ContentsOf(SampleClasses()), "", errorText));
  EXPECT_EQ(errorText, "There is no map to save.\n");

  // 3000 cells that share a text of 1 MB: some 3 GB when each cell's copy is written.
  MapContents contents = ContentsOf(SampleClasses());
  contents.m_nDataType = DataTypeOf(FileForm::Binary);
  MakeGrid(contents, 3000, 1);
  SetValue(contents, 0, "Name", std::string(1000000, 'x'));
  const MemberDef* name = contents.m_pCellClass->FindMember("Name");
  const ClassInstance first = contents.m_pGrid->Find(0)->data;
  for (int index = 1; index < 3000; ++index)
    name->SetValue(CreateCell(contents, {index, 0})->data, name->GetValuePtr(first));
  errorText.clear();
  EXPECT_FALSE(PlanMapFile(contents, "", errorText));
  EXPECT_TRUE(errorText.find("above the limit of 2147483647 bytes for the binary form.\n") != errorText.npos)
      << errorText;
}

}  // namespace
}  // namespace quorvel
