#include "ui/dialogs/list_dialog.h"

#include <QListWidget>
#include <gtest/gtest.h>

#include "tests/ui/modal_script.h"
#include "ui/dialogs/version_data_dialog.h"

namespace quorvel {
namespace {

QListWidget& List(QDialog& dialog) {
  return *FindControl<QListWidget>(dialog, IDC_DATA_TYPE);
}

QPoint SecondRow(QDialog& dialog) {
  return List(dialog).visualItemRect(List(dialog).item(1)).center();
}

void DoubleClickSecond(QDialog& dialog) {
  QTest::mouseClick(List(dialog).viewport(), Qt::LeftButton, {}, SecondRow(dialog));
  QTest::mouseDClick(List(dialog).viewport(), Qt::LeftButton, {}, SecondRow(dialog));
}

/// Takes no choice away.
void ClickWithControl(QDialog& dialog) {
  QTest::mouseClick(List(dialog).viewport(), Qt::LeftButton, Qt::ControlModifier, SecondRow(dialog));
  QTest::keyClick(&List(dialog), Qt::Key_Space, Qt::ControlModifier);
}

TEST(VersionDataDialog, AnswersTheChosenPosition) {
  const auto press = [](Qt::Key key) {
    return [key](QDialog& dialog) { QTest::keyClick(&List(dialog), key); };
  };
  struct Row {
    const char* what;
    int selected;
    ModalSteps steps;
    int button, result, answer;
  };
  const Row rows[] = {{"untouched", 1, [](QDialog&) {}, IDOK, QDialog::Accepted, 1},
                      {"key Up", 1, press(Qt::Key_Up), IDOK, QDialog::Accepted, 0},
                      {"cancelled", 1, press(Qt::Key_Up), IDCANCEL, QDialog::Rejected, 1},
                      {"Enter", 0, press(Qt::Key_Return), 0, QDialog::Accepted, 0},
                      {"double click", 0, DoubleClickSecond, 0, QDialog::Accepted, 1},
                      {"Ctrl", 1, ClickWithControl, IDOK, QDialog::Accepted, 1},
                      {"outside the list", -1, [](QDialog&) {}, IDOK, QDialog::Accepted, -1}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    CVersionDataDialog dialog;
    dialog.SetChoices({"text", "binary"}, row.selected);
    EXPECT_EQ(List(dialog).currentRow(), row.selected);
    WhenModal([&row](QDialog& shown) {
      row.steps(shown);
      if (row.button) Press(shown, row.button);
    });
    EXPECT_EQ(dialog.exec(), row.result);
    EXPECT_EQ(dialog.GetSelected(), row.answer);
  }
}

}  // namespace
}  // namespace quorvel
