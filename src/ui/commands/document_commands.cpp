#include "ui/commands/document_commands.h"

#include "map/document/editing.h"
#include "map/fill/map_filter.h"
#include "ui/resources/command_ids.h"

namespace quorvel {
namespace {

constexpr CommandRow<CVastrelDoc> kDocumentCommands[] = {
    {{.id = ID_EDIT_SELECT_ALL,
      .menuText = "Select &All",
      .keys = "Ctrl+A",
      .text = "Select the entire document\nSelect All",
      .whatsThis = "Marks every cell of the map."},
     [](CVastrelDoc& document) { OnEditSelectAll(document); }},
    {{.id = ID_EDIT_DESELECT,
      .menuText = "&Deselect",
      .keys = "Ctrl+D",
      .text = "Deselect\nDeselect",
      .whatsThis = "Clears the mark of every cell."},
     [](CVastrelDoc& document) { OnEditDeselect(document); }},
    {{.id = ID_TOOL_POINTER,
      .text = "Pointer Tool\nPointer",
      .whatsThis = "Marks cells: press on an unmarked cell and drag to mark, on a marked one to unmark."},
     [](CVastrelDoc& document) { SelectTool(document, kPointerTool); },
     nullptr,
     [](const CVastrelDoc& document) { return document.m_nTool == kPointerTool; }},
    {{.id = ID_TOOL_CELL_PROPERTY,
      .text = "Paint Cell Properties Tool\nCell Property",
      .whatsThis = "Paints the value beside the list of properties into every cell that you drag across."},
     [](CVastrelDoc& document) { SelectTool(document, kCellPropertyTool); },
     nullptr,
     [](const CVastrelDoc& document) { return document.m_nTool == kCellPropertyTool; }},
    {{.id = ID_VIEW_FILTER,
      .menuText = "&Filter...",
      .text = "Filter...\tFilter...",
      .whatsThis = "Chooses the values of cells that are shown in full colour."},
     [](CVastrelDoc& document) { OnViewFilter(document); },
     nullptr,
     [](const CVastrelDoc& document) { return IsFilterActive(document.m_pFilter.get()); }},
    {{.id = ID_FILE_CLOSE,
      .menuText = "&Close",
      .text = "Close the active map\nClose",
      .whatsThis = "Closes the map; asks first when it has unsaved changes."},
     [](CVastrelDoc& document) { document.OnFileClose(); }},
    {{.id = ID_FILE_SAVE,
      .menuText = "&Save",
      .keys = "Ctrl+S",
      .text = "Save the active map\nSave",
      .whatsThis = "Writes the map to its file; the first time it asks for a name."},
     [](CVastrelDoc& document) { document.OnFileSave(); }},
    {{.id = ID_FILE_SAVE_AS,
      .menuText = "Save &As...",
      .text = "Save the active map under a new name\nSave As",
      .whatsThis = "Asks for a name and writes the map to it. The map keeps that name."},
     [](CVastrelDoc& document) { document.OnFileSaveAs(); }},
};

}  // namespace

std::span<const CommandRow<CVastrelDoc>> DocumentCommands() {
  return kDocumentCommands;
}

}  // namespace quorvel
