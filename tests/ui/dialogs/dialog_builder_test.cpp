#include "ui/dialogs/dialog_builder.h"

#include <set>

#include <QApplication>
#include <QLabel>
#include <gtest/gtest.h>

#include "ui/resources/wizard_templates.h"

namespace quorvel {
namespace {

const DialogTemplate* const kTemplates[] = {&kToolOptionsTemplate,    &kAboutTemplate,
                                            &kVersionDataTemplate,    &kMapPropertiesTemplate,
                                            &kCellPropertiesTemplate, &kNewTypeTemplate};

/// Runs a check on every template, built with the desktop's font and with one of twice its size.
void ForEachBuilt(
    const std::function<void(const DialogTemplate&, QWidget&, const std::vector<QWidget*>&)>& check) {
  const QFont usual = QApplication::font();
  for (const double scale : {1.0, 2.0}) {
    for (const DialogTemplate* source : kTemplates) {
      SCOPED_TRACE(testing::Message() << "template " << source->id << " at " << scale);
      QWidget dialog;
      QFont font = usual;
      font.setPointSizeF(usual.pointSizeF() * scale);
      dialog.setFont(font);
      std::vector<QWidget*> controls;
      dialog.resize(PixelsOf({0, 0, source->width, source->height}, dialog).size());
      BuildControls(*source, dialog);
      for (QObject* child : dialog.children()) controls.push_back(static_cast<QWidget*>(child));
      ASSERT_EQ(controls.size(), source->controls.size());
      check(*source, dialog, controls);
    }
  }
}

TEST(DialogBuilder, NothingIsClippedOrCovered) {
  ForEachBuilt([](const DialogTemplate& source, QWidget& dialog, const std::vector<QWidget*>& controls) {
    for (std::size_t i = 0; i < controls.size(); ++i) {
      if (controls[i]->isHidden()) continue;
      SCOPED_TRACE(source.controls[i].id);
      if (source.id != IDD_TOOL_OPTIONS) {
        EXPECT_TRUE(dialog.rect().contains(controls[i]->geometry()));
      }
      if (qobject_cast<QLabel*>(controls[i])) {
        EXPECT_GE(controls[i]->width(), controls[i]->sizeHint().width());
      }
      for (std::size_t other = 0; other < i; ++other) {
        if (controls[other]->isHidden()) continue;
        EXPECT_FALSE(controls[i]->geometry().intersects(controls[other]->geometry()))
            << "covers " << source.controls[other].id;
      }
    }
  });
}

TEST(DialogBuilder, EveryKeyLeadsSomewhereAndIsFree) {
  ForEachBuilt([](const DialogTemplate& source, QWidget&, const std::vector<QWidget*>& controls) {
    std::set<QChar> keys = {'B', 'N', 'F'};  // the wizard's own buttons
    if (source.id == kNewTypeTemplate.id) keys.clear();
    for (std::size_t i = 0; i < controls.size(); ++i) {
      const QString text = QString::fromUtf8(source.controls[i].text);
      const qsizetype mark = text.indexOf('&');
      if (mark < 0) continue;
      EXPECT_TRUE(keys.insert(text[mark + 1].toUpper()).second) << source.controls[i].text;
      const auto* label = qobject_cast<QLabel*>(controls[i]);
      if (!label || source.id == IDD_CELL_PROPERTIES) continue;  // its lists are made by the page
      ASSERT_TRUE(label->buddy()) << source.controls[i].text;
      EXPECT_TRUE(label->buddy()->focusPolicy() & Qt::TabFocus);
    }
  });
}

}  // namespace
}  // namespace quorvel
