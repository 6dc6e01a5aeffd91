#include "map/document/map_journal.h"

#include <filesystem>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "map/document/editing.h"
#include "map/document/map_recovery.h"
#include "map/document/vastrel_doc.h"
#include "platform/files/little_endian.h"
#include "tests/map/scripted_services.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class NoFrames : public FrameHost {
 public:
  void OpenFrame(CDocument&) override {}
  void ActivateFrame(CDocument&) override {}
  void CloseFrames(CDocument&) override {}
  void RequestIdle() override {}
};

/// Cell, member and text.
constexpr std::tuple<std::int32_t, const char*, const char*> kEdits[] = {
    {0, "Name", "a // \"b\" \xff"},  // a text that a text form would not keep
    {1, "Name", ""},
    {2, "Count", "-2147483648"},
    {3, "Weight", "1e-20"},  // all its bits count
    {4, "Weight", "nan"},
    {5, "Kind", "2"},
    {6, "Kind", "-1"},  // no position
    {7, "Part", ""},    // an object: only the record is made
    {2, "Count", "3"},  // the last value counts
    {11, "Count", "1"},
};

void Store(CVastrelDoc& document, std::int32_t index, const char* name, const char* text) {
  auto record = document.m_pGrid->Find(index);
  if (!record) record = CreateCell(document, document.m_pGrid->CoordOf(index));
  const MemberDef& member = *document.m_pCellClass->FindMember(name);
  std::uint32_t slot = 0;
  member.StoreText(&slot, text);
  document.StoreCellValue(*record, member, &slot);
}

void StoreAll(CVastrelDoc& document) {
  for (const auto& [cell, member, text] : kEdits) Store(document, cell, member, text);
}

MapContents LargeMapOfFewCells() {
  MapContents map = EmptySampleMap(2001, 2000);
  SetValue(map, 4'001'999, "Count", "8");
  return map;
}

/// One run of the editor after another over the same folder. A run that ends with documents open has crashed.
class Journals : public testing::Test {
 protected:
  void SetUp() override {
    world.services.journalsFolder = folder / "journals";
    Restart();
  }

  void Restart() {
    app = std::make_unique<CWinApp>(world.prompts, frames, world.settings);
    app->AddDocTemplate(std::make_unique<CMultiDocTemplateWithID>(
        kProductMapTemplate, "\nMap\nMap\nMaps (*.vrl)\n.vrl\n\n",
        [this] { return std::make_unique<CVastrelDoc>(world.services); }));
  }
  /// Starts again; answers what is offered.
  std::vector<std::string> Recover(std::deque<Answer> answers) {
    Restart();
    world.prompts.answers = std::move(answers);
    OfferRecovery(*app, world.services);
    return world.prompts.TakeMessages();
  }

  CVastrelDoc& Document() { return static_cast<CVastrelDoc&>(*app->Documents().at(0)); }
  CVastrelDoc& New(MapContents&& map) {
    auto& document = static_cast<CVastrelDoc&>(*app->OpenNewDocument(*app->Templates()[0]));
    document.Adopt(std::move(map));
    return document;
  }
  CVastrelDoc& Open(FileForm form) {
    MapContents map = SampleMap(4, 3, 2);
    return static_cast<CVastrelDoc&>(*app->OpenDocumentFile(folder.Write("map.vrl", SavedAs(map, form))));
  }

  /// The one journal there is.
  std::string Name() const {
    for (const auto& entry : std::filesystem::directory_iterator(folder / "journals"))
      if (entry.path().extension() == ".journal") return "journals/" + entry.path().filename().string();
    return "none";
  }
  /// Whether a journal and its base state are there; fails when only a part of them is.
  bool IsKept() const {
    const std::filesystem::directory_iterator files(folder / "journals");
    const auto count = std::distance(begin(files), end(files));
    EXPECT_TRUE(count == 0 || count == 2) << count;
    return count > 0;
  }

  const TempFolder folder;
  ScriptedServices world;
  NoFrames frames;
  std::unique_ptr<CWinApp> app;
};

TEST_F(Journals, BringBackValuesOfEveryKind) {
  const std::function<CVastrelDoc&()> ways[] = {
      [&]() -> CVastrelDoc& { return New(SampleMap(4, 3, 2)); },
      [&]() -> CVastrelDoc& { return New(LargeMapOfFewCells()); },
      [&]() -> CVastrelDoc& { return Open(FileForm::Text); },
      [&]() -> CVastrelDoc& { return Open(FileForm::Binary); },
  };
  for (const auto& make : ways) {
    SCOPED_TRACE(&make - ways);
    Restart();
    CVastrelDoc& edited = make();
    StoreAll(edited);
    const std::string before = Describe(edited);
    const std::string path = edited.GetPathName();
    for (int crash = 0; crash < 2; ++crash) {
      EXPECT_THAT(Recover({Answer::Yes}), ElementsAre("Quorvel ended unexpectedly.\nRecover the changes of " +
                                                      (path.empty() ? "Map1" : path) + "?"));
      ASSERT_THAT(app->Documents(), SizeIs(1));
      EXPECT_EQ(Describe(Document()), before);
      EXPECT_EQ(Document().GetPathName(), path);
      EXPECT_TRUE(Document().IsModified());
    }
    Document().OnCloseDocument();
    EXPECT_FALSE(IsKept());
  }
}

TEST_F(Journals, EndAtTheRecordThatTheCrashCut) {
  CVastrelDoc& edited = New(SampleMap(4, 3, 2));
  Store(edited, 0, "Count", "1");
  const std::string before = Describe(edited);
  Store(edited, 1, "Name", "cut off");
  Restart();
  const std::string whole = folder.Read(Name());
  folder.Write(Name(), whole.substr(0, whole.size() - 1));
  Recover({Answer::Yes});
  EXPECT_EQ(Describe(Document()), before);
  Store(Document(), 9, "Count", "9");  // on the record that was cut
  const std::string later = Describe(Document());
  Recover({Answer::Yes});
  EXPECT_EQ(Describe(Document()), later);
}

TEST_F(Journals, AreRefusedWhenTheyDoNotFitTheirMap) {
  const auto append = [&](const std::string& record) {
    EditJournal::Abandoned(folder / "journals").at(0)->Append(record);
  };
  const auto value = [](std::uint32_t member, std::uint32_t cell, const std::string& bytes) {
    std::string record = "\3";
    PutLittleEndian(record, member);
    PutLittleEndian(record, cell);
    return record + bytes;
  };
  const auto base = [&](const std::string& bytes) { folder.Write(Name() + ".base", bytes); };
  const std::string noFit = "Its changes do not fit its map.\n";
  const struct {
    const char* title;
    std::function<void()> damage;
    std::string reason;
  } rows[] = {
      {"no base", [&] { std::filesystem::remove(folder / Name() + ".base"); }, "No such file or directory\n"},
      {"no map", [&] { base("x"); },
       "Classes not found.\nMap definition not found.\nCell definition not found.\n"},
      {"another class",
       [&] {
         base(
             Lines("[Classes/Map] type='class' [Classes/Cell] type='class' [Classes/Cell/Count] type='int' "
                   "[Objects/Galaxy] Width=4 Height=3"));
       },
       noFit},
      {"no such cell", [&] { append(value(1, 12, "1234")); }, noFit},
      {"no such member", [&] { append(value(5, 0, "1234")); }, noFit},
      {"too short a value", [&] { append(value(1, 0, "123")); }, noFit},
      {"an object with a value", [&] { append(value(2, 0, "1234")); }, noFit},
      {"no cell at all", [&] { append(value(1, 0, "").substr(0, 8)); }, noFit},
      {"cells of a larger map", [&] { append("\2\xff\xff\xff"); }, noFit},
      {"an unknown record", [&] { append("\4"); }, noFit},
      {"an empty record", [&] { append(""); }, noFit},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.title);
    Restart();
    Store(New(SampleMap(4, 3, 2)), 0, "Count", "1");
    Restart();
    row.damage();
    EXPECT_EQ(Recover({Answer::Yes}).at(1), "Cannot recover Map1:\n" + row.reason);
    EXPECT_THAT(app->Documents(), IsEmpty());
    EXPECT_THAT(Recover({Answer::No}), SizeIs(1)) << "it stays until it is not wanted";
    EXPECT_THAT(Recover({}), IsEmpty());
  }
}

TEST_F(Journals, AreOfferedUntilTheyAreAnswered) {
  Store(New(SampleMap(4, 3, 2)), 0, "Count", "1");
  Store(New(SampleMap(2, 2, 2)), 0, "Count", "2");
  EXPECT_FALSE(OfferRecovery(*app, world.services)) << "this editor holds them";
  EXPECT_THAT(Recover({Answer::Cancel, Answer::Cancel}), SizeIs(2));
  EXPECT_THAT(Recover({Answer::Yes, Answer::No}), SizeIs(2));
  EXPECT_EQ(Document().m_pGrid->Width(), 4) << "the oldest comes first";
  EXPECT_EQ(app->OpenNewDocument(*app->Templates()[0])->GetTitle(), "Map2") << "Map1 is there again";
  EXPECT_THAT(Recover({Answer::No}), SizeIs(1));

  folder.Write("journals/empty.journal", "");  // its program ended before it began
  EditJournal::Create(folder / "journals")->Append("\7 of a later version");
  EXPECT_THAT(Recover({}), IsEmpty());
  EXPECT_NE(Name(), "journals/empty.journal");
  EXPECT_NE(Name(), "none");
}

TEST_F(Journals, LiveFromTheFirstChangeToTheSave) {
  CVastrelDoc& document = Open(FileForm::Text);
  OnEditSelectAll(document);
  EXPECT_FALSE(std::filesystem::exists(folder / "journals")) << "marks are no changes";
  for (int round = 0; round < 2; ++round) {
    Store(document, 0, "Count", "1");
    EXPECT_TRUE(IsKept());
    EXPECT_FALSE(document.OnSaveDocument(folder.Path())) << "a folder";
    EXPECT_TRUE(IsKept());
    EXPECT_TRUE(document.OnFileSave());
    EXPECT_FALSE(IsKept());
  }
  Store(document, 0, "Count", "2");
  world.prompts.answers = {Answer::Cancel, Answer::Discard};
  document.OnFileClose();
  EXPECT_TRUE(IsKept());
  document.OnFileClose();
  EXPECT_FALSE(IsKept());
}

TEST_F(Journals, HoldAMapThatWasReplacedAsAWhole) {
  CVastrelDoc& document = New(SampleMap(4, 3, 2));
  Store(document, 0, "Count", "1");
  document.Adopt(SampleMap(2, 5, 3));
  const std::string whole = Describe(document);
  Recover({Answer::Yes});
  EXPECT_EQ(Describe(Document()), whole);
}

TEST_F(Journals, RememberTheFileThatTheMapWasOpenedFrom) {
  Store(Open(FileForm::Text), 0, "Count", "1");
  folder.Write("map.vrl", "another program's");
  Recover({Answer::Yes});
  world.prompts.answers = {Answer::Cancel};
  EXPECT_FALSE(Document().OnFileSave());
  EXPECT_THAT(world.prompts.messages,
              ElementsAre(folder / "map.vrl" + " was changed by another program.\nReplace it?"));
}

TEST_F(Journals, ThatCannotBeWrittenAreToldOnceAndDisturbNobody) {
  folder.Write("file", "");
  world.services.journalsFolder = folder / "file/journals";
  CVastrelDoc& document = Open(FileForm::Text);
  StoreAll(document);
  EXPECT_EQ(std::ranges::count(world.feedback.Events(),
                               "text Changes are not kept safe from a crash: Not a directory"),
            1);
  EXPECT_THAT(world.prompts.messages, IsEmpty());
  EXPECT_TRUE(document.OnFileSave());
}

}  // namespace
}  // namespace quorvel
