#include "platform/documents/win_app.h"

#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/scripted_prompts.h"
#include "tests/platform/temp_folder.h"
#include "tests/platform/text_document.h"

namespace quorvel {
namespace {

using testing::ElementsAre;

/// Frames of one view each. With `closesLate` a closed frame's view is destroyed only by `EndLateViews`.
class TestFrames : public FrameHost {
 public:
  bool closesLate = false;
  int idleRequests = 0;
  std::vector<CDocument*> activated;

  void OpenFrame(CDocument& document) override {
    views_.emplace(&document, std::make_unique<LoggingView>());
    document.AddView(*views_.find(&document)->second);
  }
  void ActivateFrame(CDocument& document) override { activated.push_back(&document); }
  void CloseFrames(CDocument& document) override {
    if (!closesLate) views_.erase(&document);
  }
  void RequestIdle() override { ++idleRequests; }

  void EndLateViews() { views_.clear(); }

 private:
  std::multimap<CDocument*, std::unique_ptr<LoggingView>> views_;
};

class App : public testing::Test {
 protected:
  void SetUp() override {
    app.LoadStdProfileSettings(4);
    for (const char* string : {"\nMap\nPlain\nPlain Files (*.pln)\n.pln\nPlain.Map\n",
                               "\nMap\nProduct\nProduct Files (*.prd)\n.prd\n\n"})
      app.AddDocTemplate(std::make_unique<CMultiDocTemplateWithID>(
          101 + static_cast<int>(app.Templates().size()), string,
          [this] { return std::make_unique<TextDocument>(prompts); }));
    TextDocument::ended = 0;
  }

  TextDocument& New() { return static_cast<TextDocument&>(*app.OpenNewDocument(*app.Templates()[0])); }
  CDocument* Open(const std::string& name) { return app.OpenDocumentFile(folder / name); }

  const TempFolder folder;
  ScriptedPrompts prompts;
  TestFrames frames;
  SettingsStore settings{{}};
  CWinApp app{prompts, frames, settings};
};

TEST_F(App, OffersTheTypesOfNewDocumentsInOrder) {
  prompts.types = {1, std::nullopt, 0};
  CDocument* product = app.OnFileNew();
  EXPECT_FALSE(app.OnFileNew());
  CDocument* plain = app.OnFileNew();
  ASSERT_TRUE(product);
  ASSERT_TRUE(plain);
  EXPECT_THAT(prompts.typeLists.at(0), ElementsAre("Plain", "Product"));
  EXPECT_EQ(product->GetDocTemplate()->GetResourceID(), 102);
  EXPECT_EQ(plain->GetDocTemplate()->GetResourceID(), 101);
  EXPECT_EQ(product->GetTitle(), "Map1");
  EXPECT_EQ(plain->GetTitle(), "Map2");
  EXPECT_EQ(plain->Views().size(), 1U);
  EXPECT_GT(frames.idleRequests, 0);
}

TEST_F(App, OpensAFileWithTheTypeOfItsExtension) {
  for (const auto& [name, resourceId] :
       {std::pair{"b.prdx", 101}, {"bprd", 101}, {"a.pln", 101}, {"b.c.PRD", 102}, {"c.txt", 101}}) {
    folder.Write(name, "stars");
    CDocument* document = Open(name);
    ASSERT_TRUE(document) << name;
    EXPECT_EQ(document->GetDocTemplate()->GetResourceID(), resourceId) << name;
    EXPECT_EQ(document->GetTitle(), name);
    EXPECT_EQ(static_cast<TextDocument*>(document)->text, "stars");
  }
  EXPECT_THAT(app.GetRecentFiles().Paths(),
              ElementsAre(folder / "c.txt", folder / "b.c.PRD", folder / "a.pln", folder / "bprd"));
}

TEST_F(App, ActivatesAFileThatIsOpenAlready) {
  folder.Write("a.pln", "stars");
  std::filesystem::create_symlink("a.pln", folder / "link.pln");
  CDocument* first = Open("a.pln");
  EXPECT_EQ(Open("a.pln"), first);
  EXPECT_EQ(Open("link.pln"), first);
  EXPECT_EQ(Open("../" + std::filesystem::path(folder.Path()).filename().string() + "/a.pln"), first);
  EXPECT_THAT(frames.activated, ElementsAre(first, first, first));
  EXPECT_EQ(app.Documents().size(), 1U);

  CDocument& other = New();
  EXPECT_FALSE(
      other.DoSave(folder / "a.pln", Replace::Yes));  // two documents of one file would overwrite each other
  EXPECT_EQ(folder.Read("a.pln"), "stars");
}

TEST_F(App, AsksForTheFileToOpenAndForgetsOneThatItRefuses) {
  folder.Write("refused.pln", "!");
  prompts.names = {folder / "refused.pln", std::nullopt};
  EXPECT_FALSE(app.OnFileOpen());
  EXPECT_FALSE(app.OnFileOpen());
  EXPECT_THAT(prompts.messages, ElementsAre("refused"));
  EXPECT_EQ(TextDocument::ended, 1);
  EXPECT_TRUE(app.Documents().empty());
  EXPECT_TRUE(app.GetRecentFiles().Paths().empty());
  EXPECT_FALSE(app.IsBusy());
  std::vector<std::string> filters;
  for (const FileFilter& filter : prompts.filePrompts.at(0).filters) filters.push_back(filter.name);
  EXPECT_THAT(filters, ElementsAre("Plain Files (*.pln)", "Product Files (*.prd)", "All Files (*.*)"));
}

TEST_F(App, EndsAReleasedDocumentInTheNextIdlePassOnly) {
  TextDocument& document = New();
  document.OnFileClose();
  EXPECT_TRUE(app.Documents().empty());
  EXPECT_EQ(TextDocument::ended, 0);
  app.OnIdle();
  EXPECT_EQ(TextDocument::ended, 1);

  frames.closesLate = true;
  New().OnFileClose();
  app.OnIdle();
  EXPECT_EQ(TextDocument::ended, 1);  // a view still refers to it
  const int before = frames.idleRequests;
  frames.EndLateViews();
  EXPECT_GT(frames.idleRequests, before);
  app.OnIdle();
  EXPECT_EQ(TextDocument::ended, 2);
}

TEST_F(App, LetsADocumentCloseItselfWhileItIsIdle) {
  TextDocument& first = New();
  TextDocument& second = New();
  int secondPasses = 0;
  first.onIdle = [&] {
    first.OnFileClose();
    second.OnFileClose();
  };
  second.onIdle = [&] { ++secondPasses; };
  app.OnIdle();
  EXPECT_EQ(secondPasses, 0);  // released by the first one's pass
  EXPECT_EQ(TextDocument::ended, 0);
  app.OnIdle();
  EXPECT_EQ(TextDocument::ended, 2);
}

TEST_F(App, IsBusyDuringALongOperation) {
  folder.Write("a.pln", "stars");
  TextDocument& document = New();
  int passes = 0;
  document.onIdle = [&] {
    ++passes;
    EXPECT_TRUE(app.IsBusy());
    app.OnIdle();  // as the pumping of messages does
    EXPECT_FALSE(app.OnFileNew());
    EXPECT_FALSE(app.OnFileOpen());
    EXPECT_FALSE(Open("a.pln"));
    EXPECT_FALSE(app.CloseAllDocuments());
  };
  app.OnIdle();
  EXPECT_EQ(passes, 1);
  EXPECT_FALSE(app.IsBusy());
  EXPECT_TRUE(prompts.typeLists.empty());

  document.onSerialize = [&] { EXPECT_TRUE(app.IsBusy()); };
  EXPECT_TRUE(document.DoSave(folder / "b.pln", Replace::Yes));
  EXPECT_FALSE(app.IsBusy());
}

TEST_F(App, MakesUpForAnIdlePassMissedWhileBusyAndThenRests) {
  TextDocument& document = New();
  document.onIdle = [&] { app.OnIdle(); };
  frames.idleRequests = 0;
  app.OnIdle();
  EXPECT_EQ(frames.idleRequests, 1);
  document.onIdle = [] {};
  app.OnIdle();
  EXPECT_EQ(frames.idleRequests, 1);
}

TEST_F(App, AsksAboutEveryModifiedDocumentBeforeItEnds) {
  std::vector<TextDocument*> documents = {&New(), &New(), &New()};
  documents[0]->SetModifiedFlag();
  documents[2]->SetModifiedFlag();
  documents[2]->text = "third";

  prompts.answers = {Answer::Discard, Answer::Cancel};
  EXPECT_FALSE(app.CloseAllDocuments());
  EXPECT_EQ(app.Documents().size(), 3U);
  EXPECT_THAT(prompts.TakeMessages(), ElementsAre("Save changes to Map1?", "Save changes to Map3?"));
  EXPECT_THAT(frames.activated, ElementsAre(documents[0], documents[2]));

  prompts.answers = {Answer::Discard, Answer::Save};
  prompts.names = {folder / "third"};
  EXPECT_TRUE(app.CloseAllDocuments());
  EXPECT_EQ(folder.Read("third.pln"), "third");
  EXPECT_TRUE(app.Documents().empty());
}

}  // namespace
}  // namespace quorvel
