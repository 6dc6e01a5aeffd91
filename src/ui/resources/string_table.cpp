#include "ui/resources/string_table.h"

#include <algorithm>
#include <iterator>

#include "ui/resources/command_ids.h"

namespace quorvel {
namespace {

constexpr StringRow kStrings[] = {
    {IDR_MAINFRAME, "Quorvel Vastrelum"},
    {IDS_APP_TITLE, "Quorvel"},
    {IDS_IDLE_MESSAGE, "For Help, press F1"},
    {IDS_MAP_WINDOW, "Map",
     "The map. Press and drag to use the tool chosen in the toolbar. Plus and minus zoom, arrow keys scroll, "
     "square and curly brackets choose the properties that colour the cells and their outlines."},

    {ID_INDICATOR_POSITION, "000000(000:000)",
     "The cell under the pointer: its index, then its column and row. Click on it to go to another cell. "
     "Shows progress while the editor works."},
    {ID_TOOL_POINTER, "Pointer Tool\nPointer",
     "Marks cells: press on an unmarked cell and drag to mark, on a marked one to unmark."},
    {ID_TOOL_CELL_PROPERTY, "Paint Cell Properties Tool\nCell Property",
     "Paints the value beside the list of properties into every cell that you drag across."},
    {ID_TOOL_TERRAIN, "Paint Terrain Tool\nTerrain"},
    {ID_TOOL_PLANET, "Paint Planet Tool\nPlanet"},
    {ID_TOOL_BASE, "Paint Base Tool\nBase"},
    {IDC_TOOL_MEMBER, "Choose the property to paint\nCell property",
     "The property of cells that the cell property tool paints."},

    {ID_SELECT_REGION, "Select an entire Region\nSelect Region",
     "Would mark a whole region. This version cannot do it yet."},
    {ID_FILL_SELECTED, "Fill the Selected Region\nFill Selected",
     "Would fill the marked cells. This version cannot do it yet."},
    {ID_EDIT_DESELECT, "Deselect\nDeselect", "Clears the mark of every cell."},
    {ID_GO_TO_CELL, "Go to a cell of the map\nGo To Cell (Ctrl+G)",
     "Asks for a column and a row, or an index, and scrolls that cell into sight."},
    {ID_ZOOM_IN, "Zoom In\nZoom In ( ] )", "Draws cells 10 pixels larger, up to 100."},
    {ID_ZOOM_OUT, "Zoom Out\nZoom Out ( [ )", "Draws cells 10 pixels smaller, down to 10."},
    {ID_WIZARD, "Wizard\nWizard", "Would lead through a map's pages again. New leads through them once."},
    {ID_VIEW_FILTER, "Filter...\tFilter...", "Chooses the values of cells that are shown in full colour."},

    {ID_FILE_NEW, "Create a new map\nNew",
     "Makes a new map: asks for its type, then for its size and contents."},
    {ID_FILE_OPEN, "Open an existing map\nOpen", "Opens a map file in a window of its own."},
    {ID_FILE_CLOSE, "Close the active map\nClose", "Closes the map; asks first when it has unsaved changes."},
    {ID_FILE_SAVE, "Save the active map\nSave",
     "Writes the map to its file; the first time it asks for a name."},
    {ID_FILE_SAVE_AS, "Save the active map under a new name\nSave As",
     "Asks for a name and writes the map to it. The map keeps that name."},
    {ID_FILE_PRINT_SETUP, "Change the printer and printing options\nPrint Setup",
     "Chooses the paper, its orientation and its margins. The printer is chosen when printing."},
    {ID_FILE_PRINT, "Print the active map\nPrint", "Prints the map, cut into as many pages as it needs."},
    {ID_FILE_PRINT_DIRECT, "Print the active map using current options\nQuick Print",
     "Prints the map as it was printed last."},
    {ID_FILE_PRINT_PREVIEW, "Display full pages\nPrint Preview",
     "Shows the pages as they would be printed, and how many there are."},
    {ID_FILE_MRU_FILE1, "Open this map\nRecent File", "Opens a map that was open before."},

    {ID_EDIT_UNDO, "Undo the last action\nUndo", "Takes back the last change. Maps have no undo yet."},
    {ID_EDIT_CUT, "Cut the selection and put it on the Clipboard\nCut",
     "Would move the marked cells to the clipboard. This version cannot do it yet."},
    {ID_EDIT_COPY, "Copy the selection and put it on the Clipboard\nCopy",
     "Would copy the marked cells to the clipboard. This version cannot do it yet."},
    {ID_EDIT_PASTE, "Insert Clipboard contents\nPaste",
     "Would put the clipboard's cells into the map. This version cannot do it yet."},
    {ID_EDIT_SELECT_ALL, "Select the entire document\nSelect All", "Marks every cell of the map."},

    {ID_WINDOW_NEW, "Open another window for the active map\nNew Window",
     "Shows the same map in one more window, with a zoom and place of its own."},
    {ID_WINDOW_ARRANGE, "Arrange icons at the bottom of the window\nArrange Icons",
     "Lines up minimized windows along the lower edge."},
    {ID_WINDOW_CASCADE, "Arrange windows so they overlap\nCascade Windows",
     "Lays the map windows over each other so that every title is seen."},
    {ID_WINDOW_TILE_HORZ, "Arrange windows as non-overlapping tiles\nTile Windows",
     "Lays the map windows side by side over the whole area."},

    {ID_APP_ABOUT, "Display program information and version number\nAbout",
     "Shows the version of the editor."},
    {ID_APP_EXIT, "Quit the editor; prompts to save maps\nExit", "Closes all maps and ends the editor."},
    {ID_HELP_FINDER, "List Help topics\nHelp Topics", "Opens the help in a window of its own."},
    {ID_CONTEXT_HELP, "Display help for clicked on buttons and menus\nHelp",
     "Turns the pointer into a question: click on a button or a menu item to read what it does."},
    {ID_HELP, "Display help for the current task\nHelp", "Opens the help in a window of its own."},
    {ID_NEXT_PANE, "Move to the next part of the window\nNext Pane",
     "Leads the keyboard from the map to the toolbar, to the tool options and back."},
    {ID_PREV_PANE, "Move to the previous part of the window\nPrevious Pane",
     "Leads the keyboard from the map to the tool options, to the toolbar and back."},
    {ID_VIEW_TOOLBAR, "Show or hide the toolbar\nToolbar", "Shows or hides the row of buttons."},
    {ID_VIEW_STATUS_BAR, "Show or hide the status bar\nStatus Bar",
     "Shows or hides the bar at the lower edge."},
};

constexpr StringRow kNone = {0, ""};

}  // namespace

const StringRow& FindString(int id) {
  const auto* row = std::ranges::find(kStrings, id, &StringRow::id);
  return row == std::end(kStrings) ? kNone : *row;
}

std::string_view PromptOf(int id) {
  const std::string_view text = FindString(id).text;
  return text.substr(0, text.find('\n'));
}

std::string_view TooltipOf(int id) {
  const std::string_view text = FindString(id).text;
  const size_t end = text.find('\n');
  return end == text.npos ? text : text.substr(end + 1);
}

}  // namespace quorvel
