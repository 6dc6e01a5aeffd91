// What the message boxes say about files that are not as they should be.

#include <QListWidget>
#include <QMessageBox>

#include "tests/ui/editor.h"
#include "tests/ui/modal_script.h"
#include "tests/ui/wizard/cell_page_run.h"

namespace quorvel {
namespace {

constexpr char kMap[] = R"([Classes/Map]
type="class"
[Classes/Map/Width]
type="int"
range="1<3<5"
[Classes/Map/Height]
type="int"
range="1<4<5"
)";
constexpr char kCell[] = "[Classes/Cell]\ntype=\"class\"\n";

/// Expects a message box with this text and leaves it.
ModalSteps Says(std::string text) {
  return [text = std::move(text)](QDialog& dialog) {
    const auto* box = qobject_cast<QMessageBox*>(&dialog);
    ASSERT_TRUE(box) << dialog.windowTitle().toStdString() << " instead of " << text;
    EXPECT_EQ(box->text().toStdString(), text);
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    box->button(QMessageBox::Ok)->click();
  };
}

void AcceptType(QDialog& dialog) {
  Press(dialog, IDOK);
}
void CancelWizard(QDialog& wizard) {
  EXPECT_EQ(wizard.windowTitle(), "Map Properties");
  Press(wizard, IDCANCEL);
}
void RefuseToLocate(QDialog& dialog) {
  dynamic_cast<QMessageBox&>(dialog).button(QMessageBox::Cancel)->click();
}

TEST(ErrorTexts, OfDefinitions) {
  struct Row {
    const char* title;
    std::string definitions;
    std::vector<ModalSteps> before;
    std::string text;
  };
  const Row rows[] = {
      {"nothing", "x", {}, "Classes not found.\nMap definition not found.\nCell definition not found."},
      {"no map class", kCell, {}, "Map definition not found."},
      {"no cell class", kMap, {CancelWizard}, "Cell definition not found."},
      {"no size",
       std::string("[Classes/Map]\ntype=\"class\"\n") + kCell,
       {CancelWizard},
       "Map width 0 is below 1.\nMap height 0 is below 1."},
      {"no file", "", {RefuseToLocate}, "Definition file error:\nDefault definitions file unavailable."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.title);
    Editor editor(Answers::InWindows);
    if (!row.definitions.empty()) editor.GiveDefinitions(row.definitions);
    std::vector<ModalSteps> script = {AcceptType};
    script.insert(script.end(), row.before.begin(), row.before.end());
    script.push_back(Says("Map file error:\n\n" + row.text + "\n"));
    WhenModals(script);
    editor.Run(ID_FILE_NEW);
    editor.Settle();
    EXPECT_TRUE(editor.app.Documents().empty()) << "closes after the message";
    EXPECT_TRUE(editor.Frame().MdiArea().subWindowList().isEmpty());
  }
}

TEST(ErrorTexts, OfADefinitionsFileThatCannotBeRead) {
  Editor editor(Answers::InWindows);
  editor.GiveDefinitions("");
  std::filesystem::remove(editor.folder / "Definitions.txt");
  std::filesystem::create_directory(editor.folder / "Definitions.txt");
  WhenModals({AcceptType, Says("Map file error:\n\nDefinition file error:\n'" + editor.folder.Path() +
                               "/Definitions.txt'\nFile error.\nCause: Is a directory")});
  editor.Run(ID_FILE_NEW);
  EXPECT_TRUE(editor.app.Documents().empty());
}

TEST(ErrorTexts, OfMapFiles) {
  struct Row {
    const char* title;
    std::string file, text;
    bool opens;
  };
  const std::string binary = std::string(kMap) + kCell +
                             "[Version/Data]\ntype=\"binary\"\n[Version/Data/Offsets]\nData=900\nText=900\n";
  const Row rows[] = {
      {"no map class", std::string(kCell) + "[Objects/Galaxy]\nWidth=2\nHeight=1\n",
       "Map definition not found.", true},
      {"no cell class", std::string(kMap) + "[Objects/Galaxy]\nWidth=2\nHeight=1\n",
       "Cell definition not found.", false},
      {"no size", std::string(kMap) + kCell + "[Objects/Galaxy]\n",
       "Map width 0 is below 1.\nMap height 0 is below 1.", false},
      {"too large", std::string(kMap) + kCell + "[Objects/Galaxy]\nWidth=20000001\nHeight=1\n",
       "Map width 20000001 is above the limit of 20000000 cells a side.", false},
      {"data past the end", binary,
       "Data block offset 900 leaves no room for the size in a file of 231 bytes.", false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.title);
    Editor editor(Answers::InWindows);
    WhenModals({Says("Map file error:\n\n" + row.text + "\n")});
    const CVastrelDoc* document = editor.Open(editor.folder.Write("map.gdf", WithCrLf(row.file)));
    EXPECT_EQ(static_cast<bool>(document), row.opens);
    EXPECT_EQ(editor.app.GetRecentFiles().Paths().size(), row.opens ? 1U : 0U);
  }
}

}  // namespace
}  // namespace quorvel
