#pragma once

#include <QToolBar>

#include "ui/commands/command_actions.h"

namespace quorvel {

/// Fills the tool bar with the buttons of the toolbar resource; each button has its command's number as
/// object name.
void BuildToolbar(const CommandActions& actions, QToolBar& toolbar);

}  // namespace quorvel
