#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "map/types/cell_marks.h"
#include "platform/documents/cell_coord.h"

namespace quorvel {

class CVastrelDoc;

/// Numbers of the tools; no other number is handled.
inline constexpr int kPointerTool = 0;
inline constexpr int kCellPropertyTool = 1;

/// A button press, a move to another cell while it is held, and its release.
enum class ToolPhase { Pressed = 0, Moved = 1, Released = 2 };

/// "index(column:row)" of a cell of the grid; empty for any other.
std::string PositionText(const CellGrid& grid, CellCoord cell);

/// Text of the position pane.
void ShowCellText(CVastrelDoc& document, std::string_view text);

/// Makes a cell, which may lie outside the map, the current one and shows its position. True: it was another
/// one before. Null clears the text only.
bool SetCurrentCell(CVastrelDoc& document, const CellCoord* cell);

/// Makes a tool the document's current one and shows it; the cell-property tool shows the editor of its
/// member. Answers the number of the tool now current.
int SelectTool(CVastrelDoc& document, int tool);
/// Applies the current tool to the current cell. When memory runs out the cell keeps what it had, a message
/// says so, and nothing more is painted until the next press.
void ApplyTool(CVastrelDoc& document, ToolPhase phase);

/// Marks every cell, or none.
void OnEditSelectAll(CVastrelDoc& document);
void OnEditDeselect(CVastrelDoc& document);

/// Lets the user choose a filter; when the choice is cancelled the old one stays.
void OnViewFilter(CVastrelDoc& document);

}  // namespace quorvel
