#include "ui/commands/document_commands.h"

#include "map/document/editing.h"
#include "ui/resources/command_ids.h"

namespace quorvel {
namespace {

constexpr CommandRow<CVastrelDoc> kDocumentCommands[] = {
    {ID_EDIT_SELECT_ALL, [](CVastrelDoc& document) { OnEditSelectAll(document); }},
    {ID_EDIT_DESELECT, [](CVastrelDoc& document) { OnEditDeselect(document); }},
    {ID_TOOL_POINTER, [](CVastrelDoc& document) { SelectTool(document, kPointerTool); }, nullptr,
     [](const CVastrelDoc& document) { return document.m_nTool == kPointerTool; }},
    {ID_TOOL_CELL_PROPERTY, [](CVastrelDoc& document) { SelectTool(document, kCellPropertyTool); }, nullptr,
     [](const CVastrelDoc& document) { return document.m_nTool == kCellPropertyTool; }},
    {ID_VIEW_FILTER, [](CVastrelDoc& document) { OnViewFilter(document); }},
    {ID_FILE_CLOSE, [](CVastrelDoc& document) { document.OnFileClose(); }},
    {ID_FILE_SAVE, [](CVastrelDoc& document) { document.OnFileSave(); }},
    {ID_FILE_SAVE_AS, [](CVastrelDoc& document) { document.OnFileSaveAs(); }},
};

}  // namespace

std::span<const CommandRow<CVastrelDoc>> DocumentCommands() {
  return kDocumentCommands;
}

}  // namespace quorvel
