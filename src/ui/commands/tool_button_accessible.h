#pragma once

namespace quorvel {

/// From now on assistive technology reads every button of a tool bar as a push button, with the states
/// checkable and checked where it stays down. (The library calls such a button a check box.)
void ReadToolButtonsAsPushButtons();

}  // namespace quorvel
