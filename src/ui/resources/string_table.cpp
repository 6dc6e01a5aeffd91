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
    {ID_TOOL_TERRAIN, "Paint Terrain Tool\nTerrain"},
    {ID_TOOL_PLANET, "Paint Planet Tool\nPlanet"},
    {ID_TOOL_BASE, "Paint Base Tool\nBase"},
    {IDC_TOOL_MEMBER, "Choose the property to paint\nCell property",
     "The property of cells that the cell property tool paints."},
};

constexpr StringRow kNone = {0, ""};

}  // namespace

const StringRow& FindString(int id) {
  const auto* row = std::ranges::find(kStrings, id, &StringRow::id);
  return row == std::end(kStrings) ? kNone : *row;
}

std::string_view PromptOf(std::string_view text) {
  return text.substr(0, text.find('\n'));
}

std::string_view TooltipOf(std::string_view text) {
  const size_t end = text.find('\n');
  return end == text.npos ? text : text.substr(end + 1);
}

}  // namespace quorvel
