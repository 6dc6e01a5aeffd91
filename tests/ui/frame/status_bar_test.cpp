#include "ui/frame/status_bar.h"

#include <QAccessible>
#include <QLabel>
#include <QProgressBar>
#include <QStatusTipEvent>

#include "tests/ui/editor.h"

namespace quorvel {
namespace {

TEST(StatusBar, TheProgressBarLiesExactlyOverThePositionPane) {
  Editor editor;
  CStatusBar& bar = editor.Frame().StatusBar();
  const auto* pane = bar.findChild<QLabel*>(QString::number(ID_INDICATOR_POSITION));
  const auto* progress = bar.findChild<QProgressBar*>();
  ASSERT_TRUE(pane && progress);
  EXPECT_FALSE(progress->isVisible());
  EXPECT_GE(pane->width(), pane->fontMetrics().horizontalAdvance("000000(000:000)"));

  editor.feedback.ShowProgress(true);
  editor.feedback.SetProgressPos(40);
  for (const QSize size : {QSize(1024, 720), QSize(700, 500), QSize(1200, 400)}) {
    editor.Frame().resize(size);
    editor.Settle();
    EXPECT_EQ(progress->geometry(), pane->geometry());
  }
  EXPECT_TRUE(progress->isVisible());
  editor.feedback.ShowProgress(false);
  EXPECT_FALSE(progress->isVisible());
  EXPECT_EQ(progress->value(), 40) << "the position is kept";
}

TEST(StatusBar, ALongPositionIsCutAndReadWhole) {
  Editor editor;
  CStatusBar& bar = editor.Frame().StatusBar();
  auto* pane = bar.findChild<QLabel*>(QString::number(ID_INDICATOR_POSITION));
  const int width = pane->width();
  const QString longOne = QStringLiteral("A member's name that is longer than the pane");
  for (const QString& text : {longOne, QStringLiteral("12(2:1)"), longOne, QString()}) {
    bar.SetStatusText(text);
    editor.Settle();
    EXPECT_EQ(pane->width(), width);
    EXPECT_LE(pane->sizeHint().width(), width) << "the text ends inside";
    EXPECT_EQ(pane->text() == text, text != longOne);
    EXPECT_EQ(pane->toolTip() == text, text == longOne);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(pane)->text(QAccessible::Name), text);
  }
}

TEST(StatusBar, PromptsCoverTheMessageWhileAnItemIsLit) {
  Editor editor;
  EXPECT_EQ(editor.Pane(ID_SEPARATOR), "For Help, press F1");
  editor.feedback.SetMessageText("Saving map...");
  EXPECT_EQ(editor.Pane(ID_SEPARATOR), "Saving map...");
  editor.Action(ID_FILE_OPEN).showStatusText(&editor.Frame());
  EXPECT_EQ(editor.Pane(ID_SEPARATOR), "Open an existing map");
  QStatusTipEvent leave{QString()};
  QApplication::sendEvent(&editor.Frame(), &leave);
  EXPECT_EQ(editor.Pane(ID_SEPARATOR), "Saving map...");
  editor.feedback.SetMessageText("");
  EXPECT_EQ(editor.Pane(ID_SEPARATOR), "");
}

}  // namespace
}  // namespace quorvel
