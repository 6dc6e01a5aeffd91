#include "platform/documents/document.h"

#include <cstdlib>
#include <new>

#include <sys/stat.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/documents/doc_template.h"
#include "tests/platform/scripted_prompts.h"
#include "tests/platform/temp_folder.h"
#include "tests/platform/text_document.h"

namespace quorvel {
namespace {

using testing::ElementsAre;

class Document : public testing::Test, public DocumentOwner {
 protected:
  void SetUp() override {
    document.SetOwner(*this, docTemplate);
    document.SetTitle("Map1");
    document.text = "stars";
    document.SetModifiedFlag();
  }

  void OnPathNameSet(CDocument& named) override { pathsSet.push_back(named.GetPathName()); }
  void ReleaseDocument(CDocument&) override { ++releases; }
  CDocument* FindOtherDocument(const CDocument&, const std::string& path) override {
    return path == openElsewhere ? &document : nullptr;
  }
  void BeginBusy() override { ++busy; }
  void EndBusy() override { --busy; }

  /// The document as a saved file at "map.tst".
  std::string SaveAsMap() {
    EXPECT_TRUE(document.DoSave(folder / "map.tst", Replace::Yes));
    return folder / "map.tst";
  }

  const TempFolder folder;
  ScriptedPrompts prompts;
  CMultiDocTemplateWithID docTemplate{7, "\nMap\nTest Map\nTest Files (*.tst)\n.tst\nTest.Map\nTest Map",
                                      nullptr};
  TextDocument document{prompts};
  std::vector<std::string> pathsSet;
  std::string openElsewhere;
  int releases = 0;
  int busy = 0;
};

TEST_F(Document, TellsEveryViewButTheSender) {
  LoggingView a;
  LoggingView b;
  document.AddView(a);
  document.AddView(b);
  document.UpdateAllViews(&a, {UpdateHint::CurrentCell, {1, 2}, {3, 4}});
  document.UpdateAllViews(nullptr);
  EXPECT_THAT(a.hints, ElementsAre("all"));
  EXPECT_THAT(b.hints, ElementsAre("current 1:2 from 3:4", "all"));
  EXPECT_THAT(b.senders, ElementsAre(&a, nullptr));
}

TEST_F(Document, IsReleasedWithItsLastView) {
  {
    LoggingView a;
    document.AddView(a);
    EXPECT_EQ(a.GetDocument(), &document);
    {
      LoggingView b;
      document.AddView(b);
    }
    EXPECT_THAT(document.Views(), ElementsAre(&a));
    EXPECT_EQ(releases, 0);
  }
  EXPECT_EQ(releases, 1);

  LoggingView view;
  std::make_unique<TextDocument>(prompts)->AddView(view);  // destroyed before its view
  EXPECT_FALSE(view.GetDocument());
}

TEST_F(Document, AsksBeforeItsLastFrameClosesAndShowsTitleChangesOnce) {
  LoggingView view;
  LoggingView other;
  document.AddView(view);
  document.AddView(other);
  EXPECT_TRUE(document.CanCloseFrame());
  document.RemoveView(other);
  prompts.answers = {Answer::Cancel};
  EXPECT_FALSE(document.CanCloseFrame());

  document.SetModifiedFlag();  // no change
  EXPECT_EQ(view.titleChanges, 0);
  document.SetModifiedFlag(false);
  EXPECT_EQ(view.titleChanges, 1);
  document.SetPathName("/maps/stars.tst");
  EXPECT_EQ(view.titleChanges, 2);
  EXPECT_EQ(document.GetTitle(), "stars.tst");
}

TEST_F(Document, SavesUnderANameThatTheUserGives) {
  prompts.names = {folder / "stars"};
  EXPECT_TRUE(document.OnFileSave());
  EXPECT_EQ(folder.Read("stars.tst"), "stars");
  EXPECT_EQ(document.GetPathName(), folder / "stars.tst");
  EXPECT_EQ(document.GetTitle(), "stars.tst");
  EXPECT_FALSE(document.IsModified());
  EXPECT_THAT(pathsSet, ElementsAre(folder / "stars.tst"));
  const FilePrompt& prompt = prompts.filePrompts.at(0);
  EXPECT_EQ(prompt.title, "Save As");
  EXPECT_EQ(prompt.name, "Map1.tst");
  EXPECT_EQ(prompt.filters.at(0).name, "Test Files (*.tst)");
  EXPECT_EQ(prompt.filters.at(1).extension, "");

  document.text = "more";
  EXPECT_TRUE(document.OnFileSave());  // no further question
  EXPECT_EQ(folder.Read("stars.tst"), "more");

  prompts.names = {std::nullopt};
  EXPECT_FALSE(document.OnFileSaveAs());
  EXPECT_EQ(prompts.filePrompts.at(1).folder, folder.Path());
  EXPECT_EQ(prompts.filePrompts.at(1).name, "stars.tst");
}

TEST_F(Document, AddsTheExtensionOnlyWhereThereIsNone) {
  for (const auto& [typed, saved] : {std::pair{"a", "a.tst"},
                                     {"b.tst", "b.tst"},
                                     {"c.TXT", "c.TXT"},
                                     {"d.e f", "d.e f"},
                                     {".g", ".g.tst"}}) {
    prompts.names = {folder / typed};
    EXPECT_TRUE(document.OnFileSaveAs());
    EXPECT_EQ(document.GetTitle(), saved);
  }
}

// The dialog asked about the name as typed, so nobody confirmed the name with its extension.
TEST_F(Document, AsksBeforeAnAddedExtensionHitsAFile) {
  folder.Write("stars.tst", "theirs");
  for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
    prompts.names = {folder / "stars"};
    prompts.answers = {answer};
    EXPECT_EQ(document.OnFileSaveAs(), answer == Answer::Ok);
    EXPECT_EQ(folder.Read("stars.tst"), answer == Answer::Ok ? "stars" : "theirs");
  }
  EXPECT_EQ(prompts.messages.at(0), folder / "stars.tst" + " already exists.\nReplace it?");
}

TEST_F(Document, StaysOpenAndModifiedWhenItCannotBeSaved) {
  chmod(folder.Write("read-only", "old").c_str(), 0444);
  openElsewhere = folder / "other";
  for (const auto& [path, reason] : {std::pair{std::string("/dev/full"), "No space left on device"},
                                     {folder / "read-only", "The file is read-only"},
                                     {folder / "other", "The file is open in another window"}}) {
    EXPECT_FALSE(document.DoSave(path, Replace::Yes));
    EXPECT_THAT(prompts.TakeMessages(), ElementsAre("Cannot save " + path + ":\n" + reason));
    EXPECT_TRUE(document.IsModified());
    EXPECT_EQ(document.GetPathName(), "");
    EXPECT_EQ(busy, 0);
  }
  EXPECT_THAT(folder.Names(), ElementsAre("read-only"));
}

TEST_F(Document, KeepsTheFileWhenItRefusesOrMemoryEnds) {
  const std::string path = SaveAsMap();
  document.SetModifiedFlag();
  document.text = "!";
  EXPECT_FALSE(document.OnFileSave());
  EXPECT_THAT(prompts.TakeMessages(), ElementsAre("refused"));
  document.onSerialize = [] { throw std::bad_alloc(); };
  EXPECT_FALSE(document.OnFileSave());
  EXPECT_THAT(prompts.TakeMessages(), ElementsAre("Cannot save " + path + ":\nNot enough memory"));
  EXPECT_TRUE(document.IsModified());
  EXPECT_EQ(folder.Read("map.tst"), "stars");
  EXPECT_EQ(busy, 0);
}

TEST_F(Document, OffersAnotherNameForAFileThatBecameReadOnly) {
  const std::string path = SaveAsMap();
  EXPECT_TRUE(document.DoSave(folder / "copy.tst", Replace::No));
  EXPECT_EQ(document.GetTitle(), "map.tst") << "a copy gives no name";
  chmod(path.c_str(), 0444);
  document.text = "changed";
  prompts.names = {folder / "mine.tst"};
  EXPECT_TRUE(document.OnFileSave());
  EXPECT_THAT(prompts.TakeMessages(), ElementsAre("Cannot save " + path + ":\nThe file is read-only"));
  EXPECT_EQ(folder.Read("map.tst"), "stars");
  EXPECT_EQ(folder.Read("mine.tst"), "changed");
}

TEST_F(Document, AsksBeforeItReplacesAnothersChange) {
  const std::string path = SaveAsMap();
  document.text = "mine";
  EXPECT_TRUE(document.OnFileSave());  // its own change asks nothing
  folder.Write("map.tst", "theirs, longer");
  for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
    prompts.answers = {answer};
    EXPECT_EQ(document.OnFileSave(), answer == Answer::Ok);
    EXPECT_THAT(prompts.TakeMessages(), ElementsAre(path + " was changed by another program.\nReplace it?"));
  }
  EXPECT_EQ(folder.Read("map.tst"), "mine");

  document.SetTitle("");
  ASSERT_TRUE(document.OnOpenDocument(path));  // what was opened counts like what was saved
  EXPECT_EQ(document.text, "mine");
  EXPECT_EQ(document.titleWhileLoading, "");
  EXPECT_FALSE(document.IsModified());
  folder.Write("map.tst", "theirs");
  prompts.answers = {Answer::Cancel};
  EXPECT_FALSE(document.OnFileSave());
}

TEST_F(Document, SaysWhyItCannotBeOpened) {
  const std::pair<std::string, std::string> rows[] = {
      {folder / "none", "Cannot open " + folder / "none" + ":\nNo such file or directory"},
      {"/proc/self/mem",
       "Cannot open /proc/self/mem:\nInput/output error"},  // a damaged disk is no end of file
      {folder.Write("refused", "!"), "refused"}};
  for (const auto& [path, message] : rows) {
    EXPECT_FALSE(document.OnOpenDocument(path));
    EXPECT_THAT(prompts.TakeMessages(), ElementsAre(message));
  }
  EXPECT_EQ(busy, 0);
}

TEST_F(Document, WarnsOfAnotherEditor) {
  setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
  const std::string path = SaveAsMap();
  EXPECT_TRUE(document.OnFileSave());  // its own claim is no other's
  for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
    TextDocument other(prompts);
    prompts.answers = {answer};
    EXPECT_EQ(other.OnOpenDocument(path), answer == Answer::Ok);
    EXPECT_THAT(prompts.TakeMessages(), ElementsAre(path + " is open in another editor.\nOpen it anyway?"));
    prompts.answers = {Answer::Cancel};
    EXPECT_FALSE(other.DoSave(path, Replace::Yes));
    EXPECT_THAT(prompts.TakeMessages(), ElementsAre(path + " is open in another editor.\nReplace it?"));
  }
  unsetenv("XDG_RUNTIME_DIR");
}

TEST_F(Document, AsksAboutChangesWhenItCloses) {
  const std::tuple<Answer, std::optional<std::string>, int, const char*> rows[] = {
      {Answer::Cancel, {}, 0, "(none)"},
      {Answer::Save, {}, 0, "(none)"},  // no name: not saved
      {Answer::Discard, {}, 1, "(none)"},
      {Answer::Save, folder / "saved.tst", 2, "stars"}};
  for (const auto& [answer, name, closed, file] : rows) {
    document.SetModifiedFlag();
    prompts.answers = {answer};
    prompts.names = {name};
    document.OnFileClose();
    EXPECT_EQ(releases, closed);
    EXPECT_EQ(folder.Read("saved.tst"), file);
    EXPECT_THAT(prompts.TakeMessages(), ElementsAre("Save changes to Map1?"));
  }
  document.OnFileClose();  // unmodified: no question
  EXPECT_EQ(releases, 3);
}

}  // namespace
}  // namespace quorvel
