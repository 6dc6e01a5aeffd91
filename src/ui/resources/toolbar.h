#pragma once

#include "ui/resources/command_ids.h"

namespace quorvel {

/// Toolbar 100: its buttons in order, square.
inline constexpr int kToolbarButtonWidthPx = 16;
inline constexpr int kToolbarButtons[] = {
    ID_FILE_NEW,     ID_FILE_OPEN,          ID_FILE_SAVE, ID_SEPARATOR,  ID_FILE_PRINT,
    ID_SEPARATOR,    ID_EDIT_CUT,           ID_EDIT_COPY, ID_EDIT_PASTE, ID_SEPARATOR,
    ID_TOOL_POINTER, ID_TOOL_CELL_PROPERTY, ID_SEPARATOR, ID_APP_ABOUT,  ID_CONTEXT_HELP,
};

}  // namespace quorvel
