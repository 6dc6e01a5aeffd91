#include "map/document/vastrel_doc.h"

#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/documents/doc_template.h"
#include "tests/map/failing_memory.h"
#include "tests/map/scripted_services.h"
#include "tests/platform/temp_folder.h"
#include "tests/platform/text_document.h"

namespace quorvel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// An application of one document, which it does not own.
class OneDocument : public DocumentOwner {
 public:
  int released = 0;

  void OnPathNameSet(CDocument&) override {}
  void ReleaseDocument(CDocument&) override { ++released; }
  CDocument* FindOtherDocument(const CDocument&, const std::string&) override { return nullptr; }
  void BeginBusy() override {}
  void EndBusy() override {}
};

class VastrelDoc : public testing::Test {
 protected:
  VastrelDoc()
      : product(kProductMapTemplate, "\nMap\nProduct\nProduct (*.vrl)\n.vrl\n\n", {}),
        generic(101, "\nMap\nGeneric\nGeneric (*.gdf)\n.gdf\n\n", {}),
        document(world.services) {
    document.SetOwner(owner, product);
    document.AddView(view);
  }

  void RememberDefinitions(const std::string& path) {
    world.settings.Set(std::string(kApplicationKey) + "\\Definitions", "DefaultFile", path);
  }
  void GiveDefinitions(const std::string& text) { RememberDefinitions(folder.Write("defs.txt", text)); }

  const TempFolder folder;
  ScriptedServices world;
  OneDocument owner;
  const CMultiDocTemplateWithID product, generic;
  CVastrelDoc document;
  LoggingView view;
};

TEST_F(VastrelDoc, WantOfMemoryKeepsTheFileOnSaveAndOpensNothing) {
  document.Adopt(SampleMap(5, 4, 1));
  const std::string path = folder / "map.vrl", whole = Saved(document);
  const auto expectMessage = [&](bool isDone, const char* verb) {
    const std::string message = std::string("Cannot ") + verb + " " + path + ":\nNot enough memory";
    EXPECT_EQ(world.prompts.TakeMessages(),
              isDone ? std::vector<std::string>{} : std::vector<std::string>{message});
  };
  const auto begin = [&] {
    document.SetModifiedFlag();
    folder.Write("map.vrl", "old");
  };
  begin();
  const int unsaved = RefusalsOf([&] { return document.OnSaveDocument(path); },
                                 [&](bool isDone) {
                                   expectMessage(isDone, "save");
                                   EXPECT_EQ(document.IsModified(), !isDone);
                                   EXPECT_EQ(folder.Read("map.vrl"), isDone ? whole : "old");
                                   EXPECT_THAT(folder.Names(), ElementsAre("map.vrl"));
                                   begin();
                                 });
  EXPECT_GT(unsaved, 20);

  folder.Write("map.vrl", whole);
  auto fresh = std::make_unique<CVastrelDoc>(world.services);
  const int unopened = RefusalsOf([&] { return fresh->OnOpenDocument(path); },
                                  [&](bool isDone) {
                                    expectMessage(isDone, "open");
                                    EXPECT_EQ(bool(fresh->m_pGrid), isDone);
                                    fresh = std::make_unique<CVastrelDoc>(world.services);
                                  });
  EXPECT_GT(unopened, 20);
}

TEST_F(VastrelDoc, ShowsTheErrorTextOfAFileOnce) {
  const std::string noMapClass = Lines(
      "[Classes/Cell] type='class' [Classes/Cell/v] type='int' [Objects/Galaxy] Width=2 "
      "Height=1 [Objects/Galaxy/Cells/1]");
  EXPECT_TRUE(document.OnOpenDocument(folder.Write("a.gdf", noMapClass)));
  EXPECT_EQ(document.m_pGrid->Count(), 1);
  EXPECT_THAT(world.prompts.TakeMessages(), ElementsAre("Map file error:\n\nMap definition not found.\n"));

  EXPECT_FALSE(document.OnOpenDocument(folder.Write("b.gdf", SampleClasses() + Lines("[Objects/Galaxy]"))));
  EXPECT_THAT(world.prompts.TakeMessages(),
              ElementsAre("Map file error:\n\nMap width 0 is below 1.\nMap height 0 is below 1.\n"));
  EXPECT_EQ(document.m_pGrid->Count(), 1);  // a refused file leaves the document as it was
}

TEST_F(VastrelDoc, AProductMapAsksForItsFormUnderANewName) {
  document.Adopt(SampleMap(2, 2, 1));
  EXPECT_FALSE(document.OnFileSaveAs());  // the form dialog is cancelled
  EXPECT_EQ(FormOf(document), FileForm::Text);

  world.mapDialogs.forms = {FileForm::Binary};
  world.prompts.names = {std::nullopt};  // the file dialog is cancelled: the form stays chosen
  EXPECT_FALSE(document.OnFileSaveAs());
  EXPECT_EQ(FormOf(document), FileForm::Binary);

  world.mapDialogs.forms = {FileForm::Binary};
  world.prompts.names = {folder / "map.vrl"};
  EXPECT_TRUE(document.OnFileSaveAs());
  EXPECT_TRUE(document.OnFileSave());  // has its name now
  EXPECT_THAT(world.mapDialogs.selectedForms, ElementsAre(FileForm::Text, FileForm::Text, FileForm::Binary));

  document.SetOwner(owner, generic);
  world.prompts.names = {folder / "map.gdf"};
  EXPECT_TRUE(document.OnFileSaveAs());
  EXPECT_EQ(world.mapDialogs.selectedForms.size(), 3U);
  EXPECT_EQ(folder.Read("map.gdf"), folder.Read("map.vrl"));
}

TEST_F(VastrelDoc, MakesTheNewMapOnce) {
  GiveDefinitions(SampleClasses());
  world.mapDialogs.newMaps.emplace_back(NewMapChoice{.width = 0, .height = 5000, .global = {}, .region = {}});
  document.OnIdle();
  document.OnIdle();
  ASSERT_EQ(world.mapDialogs.limits.size(), 1U);
  EXPECT_EQ(world.mapDialogs.limits[0].maxWidth, 1000);
  EXPECT_EQ(world.mapDialogs.cells[0], document.m_pCellClass);
  EXPECT_EQ(document.m_pGrid->Width(), 1);
  EXPECT_EQ(document.m_pGrid->Height(), 1000);
  EXPECT_TRUE(document.IsModified());
  EXPECT_TRUE(world.prompts.messages.empty());
}

TEST_F(VastrelDoc, ClosesANewMapThatCannotBeMade) {
  const std::pair<std::string, std::string> rows[] = {
      {"x", "Classes not found.\nMap definition not found.\nCell definition not found.\n"},
      {Lines("[Classes/Map] type='class' [Classes/Cell] type='class'"),
       "Map width 0 is below 1.\nMap height 0 is below 1.\n"},
      {Lines("[Classes/Map] type='class' [Classes/Map/Width] type='int' range='1<3<5' "
             "[Classes/Map/Height] type='float' range='1<3.9<5'"),
       "Cell definition not found.\n"}};  // though a map can be made
  for (const auto& [definitions, errorText] : rows) {
    GiveDefinitions(definitions);
    CVastrelDoc fresh(world.services);
    fresh.SetOwner(owner, product);
    owner.released = 0;
    fresh.OnIdle();
    EXPECT_THAT(world.prompts.TakeMessages(), ElementsAre("Map file error:\n\n" + errorText));
    EXPECT_EQ(owner.released, 1);
  }
}

/// A wizard that is finished with a fill.
class FillingDialogs : public ScriptedMapDialogs {
 public:
  std::optional<NewMapChoice> ChooseNewMap(const MapSizeLimits&, const ClassDef* cellClass) override {
    NewMapChoice choice{.width = 12, .height = 8, .global = {}, .region = {}};
    AddValues(choice.global, cellClass->FindMember("Name"));
    AddValues(choice.region, cellClass->FindMember("Count"));
    return choice;
  }

 private:
  static void AddValues(CPropertySettingList& settings, MemberDef* member) {
    CPropertySetting& setting = settings.Add(member, CoverageControl::Slider);
    setting.SetCoverage(60);
    for (const char* text : {"7", "a text too long to lie within a string"}) {
      CValueSetting& value = setting.AddValue();
      value.StoreText(text);
      setting.SetShare(&value, 50);
    }
  }
};

TEST_F(VastrelDoc, WantOfMemoryInTheFillLeavesNoMap) {
  GiveDefinitions(SampleClasses());
  NullFeedback quiet;
  FillingDialogs dialogs;
  Services services{world.prompts, quiet, dialogs, world.toolOptions, world.settings, world.clock};
  std::unique_ptr<CVastrelDoc> fresh;
  const auto begin = [&] {
    fresh = std::make_unique<CVastrelDoc>(services);
    fresh->SetOwner(owner, product);
    owner.released = 0;
  };
  begin();
  fresh->OnIdle();
  const std::string whole = Describe(*fresh);
  begin();
  const auto fill = [&] {
    fresh->OnIdle();
    return world.prompts.messages.empty();
  };
  const auto check = [&](bool isDone) {
    if (!isDone) {
      EXPECT_THAT(world.prompts.TakeMessages(),
                  ElementsAre("Map file error:\n\nThere is not enough memory for the map.\n"));
    }
    EXPECT_EQ(fresh->m_pGrid ? Describe(*fresh) : "", isDone ? whole : "");
    EXPECT_EQ(fresh->IsModified(), isDone);
    EXPECT_EQ(owner.released, isDone ? 0 : 1);
    begin();
  };
  EXPECT_GT(RefusalsOf(fill, check), 100);
}

TEST_F(VastrelDoc, DoesNotSaveWhatCouldNotBeOpenedAgain) {
  GiveDefinitions(
      Lines("[Classes/Map] type='class' [Classes/Map/Width] type='int' range='1<3<5' "
            "[Classes/Map/Height] type='int' range='1<3<5'"));
  document.SetTitle("Map1");
  world.mapDialogs.newMaps.emplace_back(NewMapChoice{.width = 2, .height = 2, .global = {}, .region = {}});
  world.prompts.answers = {Answer::Save};
  world.mapDialogs.forms = {FileForm::Text};
  world.prompts.names = {folder / "map.vrl"};
  document.OnIdle();
  EXPECT_THAT(
      world.prompts.messages,
      ElementsAre("Map file error:\n\nCell definition not found.\n", "Save changes to Map1?",
                  "Map file error:\n\nA map without the class \"Cell\" could not be opened again.\n"));
  EXPECT_THAT(folder.Names(), ElementsAre("defs.txt"));
  EXPECT_EQ(owner.released, 0);
}

TEST_F(VastrelDoc, AFormThatIsNoneIsSavedAsText) {
  MapContents map = SampleMap(5, 4, 1);
  const std::string text = SavedAs(map, FileForm::Text);
  document.Adopt(std::move(map));
  document.m_nDataType = -1;
  ASSERT_TRUE(document.OnSaveDocument(folder / "map.vrl"));
  EXPECT_EQ(folder.Read("map.vrl"), text);
  EXPECT_EQ(document.m_nDataType, -1);
}

TEST_F(VastrelDoc, SaysWhyTheDefinitionsCannotBeRead) {
  std::string errorText;
  DataBranch file({});
  world.prompts.answers = {Answer::Cancel};
  EXPECT_FALSE(document.LoadDefaultDefinitions(file, errorText));
  EXPECT_EQ(errorText, "Definition file error:\nDefault definitions file unavailable.\n");

  RememberDefinitions(folder.Path());  // there, but no file
  errorText.clear();
  EXPECT_FALSE(document.LoadDefaultDefinitions(file, errorText));
  EXPECT_EQ(errorText, "Definition file error:\n'" + folder.Path() + "'\nFile error.\nCause: Is a directory");
}

}  // namespace
}  // namespace quorvel
