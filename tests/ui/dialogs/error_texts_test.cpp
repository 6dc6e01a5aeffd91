// What the message boxes say about files that are not as they should be, and what happens then.

#include <QMessageBox>

#include "tests/map/map_samples.h"
#include "tests/ui/editor.h"
#include "tests/ui/modal_script.h"
#include "ui/wizard/map_wizard.h"

namespace quorvel {
namespace {

/// Expects a message box with this text and leaves it.
ModalSteps Says(std::string text) {
  return [text = std::move(text)](QDialog& dialog) {
    const auto* box = qobject_cast<QMessageBox*>(&dialog);
    ASSERT_TRUE(box) << dialog.windowTitle().toStdString() << " instead of " << text;
    EXPECT_EQ(box->text().toStdString(), "Map file error:\n\n" + text);
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    box->button(QMessageBox::Ok)->click();
  };
}

void AcceptType(QDialog& dialog) {
  Press(dialog, IDOK);
}
void FinishWizard(QDialog& wizard) {
  while (FindControl<QAbstractButton>(wizard, ID_WIZNEXT)->isVisible()) Press(wizard, ID_WIZNEXT);
  Press(wizard, ID_WIZFINISH);
}
void Discard(QDialog& dialog) {
  auto& box = dynamic_cast<QMessageBox&>(dialog);
  EXPECT_TRUE(box.text().startsWith("Save changes to ")) << box.text().toStdString();
  box.button(QMessageBox::Discard)->click();
}
void CancelWizard(QDialog& wizard) {
  EXPECT_EQ(wizard.windowTitle(), "Map Properties");
  Press(wizard, IDCANCEL);
}
void RefuseToLocate(QDialog& dialog) {
  dynamic_cast<QMessageBox&>(dialog).button(QMessageBox::Cancel)->click();
}

TEST(ErrorTexts, OfNewMaps) {
  const std::string map = Lines(
      "[Classes/Map] type='class' [Classes/Map/Width] type='int' range='1<3<5' [Classes/Map/Height] "
      "type='int' "
      "range='1<4<5'");
  using Steps = std::vector<ModalSteps>;
  const std::tuple<std::string, Steps, std::string, Steps> rows[] = {
      {Lines("[Classes/Cell] type='class'"), {}, "Map definition not found.\n", {}},
      {map, {CancelWizard}, "Cell definition not found.\n", {}},
      {map, {FinishWizard}, "Cell definition not found.\n", {Discard}},
      {"", {RefuseToLocate}, "Definition file error:\nDefault definitions file unavailable.\n", {}}};
  for (const auto& [definitions, before, text, after] : rows) {
    SCOPED_TRACE(text);
    Editor editor(Answers::InWindows);
    if (!definitions.empty()) editor.GiveDefinitions(definitions);
    std::vector<ModalSteps> script = {AcceptType};
    script.insert(script.end(), before.begin(), before.end());
    script.push_back(Says(text));
    script.insert(script.end(), after.begin(), after.end());
    WhenModals(script);
    editor.Run(ID_FILE_NEW);
    editor.Settle();
    EXPECT_TRUE(editor.app.Documents().empty()) << "closes after the message";
    EXPECT_TRUE(editor.Frame().MdiArea().subWindowList().isEmpty());
  }
}

TEST(ErrorTexts, OfMapFiles) {
  const std::tuple<std::string, std::string, bool> rows[] = {
      // and whether it opens all the same
      {Lines("[Classes/Cell] type='class' [Objects/Galaxy] Width=2 Height=1"), "Map definition not found.\n",
       true},
      {SampleClasses() + Lines("[Objects/Galaxy] Width=2"), "Map height 0 is below 1.\n", false}};
  for (const auto& [file, text, opens] : rows) {
    SCOPED_TRACE(text);
    Editor editor(Answers::InWindows);
    WhenModals({Says(text)});
    EXPECT_EQ(bool(editor.Open(editor.folder.Write("map.gdf", file))), opens);
    EXPECT_EQ(editor.app.GetRecentFiles().Paths().size(), opens ? 1U : 0U);
  }
}

}  // namespace
}  // namespace quorvel
