#include "ui/commands/tool_button_accessible.h"

#include <QAccessibleWidget>
#include <QToolBar>
#include <QToolButton>

namespace quorvel {
namespace {

class ToolButtonAccessible final : public QAccessibleWidget {
 public:
  explicit ToolButtonAccessible(QToolButton* button)
      : QAccessibleWidget(button, QAccessible::Button, button->accessibleName()), button_(*button) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button_.isCheckable();
    state.checked = button_.isChecked();
    state.pressed = button_.isDown();
    return state;
  }

  QStringList actionNames() const override {
    if (!button_.isEnabled()) return {};
    QStringList names = {QAccessibleActionInterface::pressAction()};
    if (button_.focusPolicy() != Qt::NoFocus) names << QAccessibleActionInterface::setFocusAction();
    return names;
  }

  void doAction(const QString& name) override {
    if (name == QAccessibleActionInterface::pressAction()) {
      button_.animateClick();
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  QToolButton& button_;
};

QAccessibleInterface* MakeToolButton(const QString&, QObject* object) {
  auto* button = qobject_cast<QToolButton*>(object);
  return button && qobject_cast<QToolBar*>(button->parent()) ? new ToolButtonAccessible(button) : nullptr;
}

}  // namespace

void ReadToolButtonsAsPushButtons() {
  QAccessible::installFactory(MakeToolButton);
}

}  // namespace quorvel
