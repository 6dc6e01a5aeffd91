#include "ui/dialogs/list_dialog.h"

#include <QListWidget>
#include <gtest/gtest.h>

#include "tests/ui/modal_script.h"
#include "ui/dialogs/new_type_dialog.h"
#include "ui/dialogs/version_data_dialog.h"

namespace quorvel {
namespace {

QListWidget& List(QDialog& dialog) {
  return *FindControl<QListWidget>(dialog, IDC_DATA_TYPE);
}

TEST(VersionDataDialog, AnswersTheChosenPosition) {
  struct Row {
    const char* what;
    int selected, expectedRow;
    std::function<void(QDialog&)> steps;
    int result, answer;
  };
  const Row rows[] = {
      {"untouched", 1, 1, [](QDialog& d) { Press(d, IDOK); }, QDialog::Accepted, 1},
      {"key Up", 1, 1,
       [](QDialog& d) {
         QTest::keyClick(&List(d), Qt::Key_Up);
         Press(d, IDOK);
       },
       QDialog::Accepted, 0},
      {"cancelled", 1, 1,
       [](QDialog& d) {
         QTest::keyClick(&List(d), Qt::Key_Up);
         Press(d, IDCANCEL);
       },
       QDialog::Rejected, 1},
      {"Enter", 0, 0, [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Return); }, QDialog::Accepted, 0},
      {"double click", 0, 0,
       [](QDialog& d) {
         const QPoint second = List(d).visualItemRect(List(d).item(1)).center();
         QTest::mouseClick(List(d).viewport(), Qt::LeftButton, {}, second);
         QTest::mouseDClick(List(d).viewport(), Qt::LeftButton, {}, second);
       },
       QDialog::Accepted, 1},
      {"Ctrl and a click takes no choice away", 1, 1,
       [](QDialog& d) {
         const QPoint second = List(d).visualItemRect(List(d).item(1)).center();
         QTest::mouseClick(List(d).viewport(), Qt::LeftButton, Qt::ControlModifier, second);
         QTest::keyClick(&List(d), Qt::Key_Space, Qt::ControlModifier);
         Press(d, IDOK);
       },
       QDialog::Accepted, 1},
      {"outside the list", -1, -1, [](QDialog& d) { Press(d, IDOK); }, QDialog::Accepted, -1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    CVersionDataDialog dialog;
    dialog.SetChoices({"text", "binary"}, row.selected);
    EXPECT_EQ(dialog.windowTitle(), "Version Data");
    EXPECT_EQ(List(dialog).currentRow(), row.expectedRow);
    WhenModal(row.steps);
    EXPECT_EQ(dialog.exec(), row.result);
    EXPECT_EQ(dialog.GetSelected(), row.answer);
  }
}

TEST(NewTypeDialog, OffersTheTypesInOrder) {
  CNewTypeDialog dialog;
  dialog.SetChoices({"Map (generic format)", "Orvantis Vastrel Map"}, 0);
  auto* list = FindControl<QListWidget>(dialog, IDC_NEW_TYPES);
  EXPECT_EQ(list->item(0)->text(), "Map (generic format)");
  WhenModal([list](QDialog& d) {
    QTest::keyClick(list, Qt::Key_Down);
    Press(d, IDOK);
  });
  EXPECT_EQ(dialog.exec(), QDialog::Accepted);
  EXPECT_EQ(dialog.GetSelected(), 1);
}

}  // namespace
}  // namespace quorvel
