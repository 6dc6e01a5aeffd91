#pragma once

#include <span>

#include "ui/resources/command_ids.h"

namespace quorvel {

/// A key as `QKeySequence` spells it. A command's first key is the one that its menu item shows.
struct Accelerator {
  const char* key;
  int command;
};

/// Accelerator table 100, used by every frame.
inline constexpr Accelerator kAccelerators[] = {
    {"+", ID_ZOOM_IN},
    {"=", ID_ZOOM_IN},
    {"-", ID_ZOOM_OUT},
    {"Ctrl+A", ID_EDIT_SELECT_ALL},
    {"Ctrl+C", ID_EDIT_COPY},
    {"Ctrl+Ins", ID_EDIT_COPY},
    {"Ctrl+D", ID_EDIT_DESELECT},
    {"Ctrl+N", ID_FILE_NEW},
    {"Ctrl+O", ID_FILE_OPEN},
    {"Ctrl+P", ID_FILE_PRINT},
    {"Ctrl+S", ID_FILE_SAVE},
    {"Ctrl+V", ID_EDIT_PASTE},
    {"Shift+Ins", ID_EDIT_PASTE},
    {"Ctrl+X", ID_EDIT_CUT},
    {"Shift+Del", ID_EDIT_CUT},
    {"Ctrl+Z", ID_EDIT_UNDO},
    {"Alt+Backspace", ID_EDIT_UNDO},
    {"F1", ID_HELP},
    {"Shift+F1", ID_CONTEXT_HELP},
    {"F6", ID_NEXT_PANE},
    {"Shift+F6", ID_PREV_PANE},
};

/// Keys of commands that stand in no menu.
inline constexpr Accelerator kFurtherKeys[] = {
    {"Ctrl+G", ID_GO_TO_CELL},
};

}  // namespace quorvel
