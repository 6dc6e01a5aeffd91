#include "ui/commands/command.h"
#include "ui/resources/command_ids.h"

namespace quorvel {
namespace {

constexpr Command kUnhandledCommands[] = {
    {.id = ID_WIZARD,
     .menuText = "Wizard...",
     .text = "Wizard\nWizard",
     .whatsThis = "Would lead through a map's pages again. New leads through them once."},
    {.id = ID_EDIT_UNDO,
     .menuText = "&Undo",
     .keys = "Ctrl+Z Alt+Backspace",
     .text = "Undo the last action\nUndo",
     .whatsThis = "Takes back the last change. Maps have no undo yet."},
    {.id = ID_EDIT_CUT,
     .menuText = "Cu&t",
     .keys = "Ctrl+X Shift+Del",
     .text = "Cut the selection and put it on the Clipboard\nCut",
     .whatsThis = "Would move the marked cells to the clipboard. This version cannot do it yet."},
    {.id = ID_EDIT_COPY,
     .menuText = "&Copy",
     .keys = "Ctrl+C Ctrl+Ins",
     .text = "Copy the selection and put it on the Clipboard\nCopy",
     .whatsThis = "Would copy the marked cells to the clipboard. This version cannot do it yet."},
    {.id = ID_EDIT_PASTE,
     .menuText = "&Paste",
     .keys = "Ctrl+V Shift+Ins",
     .text = "Insert Clipboard contents\nPaste",
     .whatsThis = "Would put the clipboard's cells into the map. This version cannot do it yet."},
    {.id = ID_SELECT_REGION,
     .menuText = "Select &Reqion...",
     .text = "Select an entire Region\nSelect Region",
     .whatsThis = "Would mark a whole region. This version cannot do it yet."},
    {.id = ID_FILL_SELECTED,
     .menuText = "&Fill Selected...",
     .text = "Fill the Selected Region\nFill Selected",
     .whatsThis = "Would fill the marked cells. This version cannot do it yet."},
};

}  // namespace

std::span<const Command> UnhandledCommands() {
  return kUnhandledCommands;
}

}  // namespace quorvel
