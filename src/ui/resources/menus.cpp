#include "ui/resources/menus.h"

#include "ui/resources/command_ids.h"

namespace quorvel {
namespace {

constexpr int kFrameFile[] = {
    ID_FILE_NEW,  ID_FILE_OPEN,      ID_WIZARD,    ID_SEPARATOR, ID_FILE_PRINT_SETUP,
    ID_SEPARATOR, ID_FILE_MRU_FILE1, ID_SEPARATOR, ID_APP_EXIT,
};

constexpr int kFrameView[] = {
    ID_VIEW_TOOLBAR,
    ID_VIEW_STATUS_BAR,
};

constexpr int kHelp[] = {
    ID_HELP_FINDER,
    ID_SEPARATOR,
    ID_APP_ABOUT,
};

constexpr int kMapFile[] = {
    ID_FILE_NEW,  ID_FILE_OPEN,      ID_FILE_CLOSE, ID_FILE_SAVE,          ID_FILE_SAVE_AS,
    ID_WIZARD,    ID_SEPARATOR,      ID_FILE_PRINT, ID_FILE_PRINT_PREVIEW, ID_FILE_PRINT_SETUP,
    ID_SEPARATOR, ID_FILE_MRU_FILE1, ID_SEPARATOR,  ID_APP_EXIT,
};

constexpr int kMapEdit[] = {
    ID_EDIT_UNDO, ID_SEPARATOR,       ID_EDIT_CUT,      ID_EDIT_COPY,     ID_EDIT_PASTE,
    ID_SEPARATOR, ID_EDIT_SELECT_ALL, ID_EDIT_DESELECT, ID_SELECT_REGION, ID_FILL_SELECTED,
};

constexpr int kMapView[] = {
    ID_VIEW_TOOLBAR, ID_VIEW_STATUS_BAR, ID_SEPARATOR, ID_VIEW_FILTER, ID_ZOOM_IN, ID_ZOOM_OUT,
};

constexpr int kMapWindow[] = {
    ID_WINDOW_NEW,
    ID_WINDOW_CASCADE,
    ID_WINDOW_TILE_HORZ,
    ID_WINDOW_ARRANGE,
};

constexpr PopupMenu kFrameMenu[] = {{"&File", kFrameFile}, {"&View", kFrameView}, {"&Help", kHelp}};
constexpr PopupMenu kMapMenu[] = {
    {"&File", kMapFile}, {"&Edit", kMapEdit}, {"&View", kMapView}, {"&Window", kMapWindow}, {"&Help", kHelp}};

constexpr MenuResource kMenus[] = {
    {IDR_MAINFRAME, kFrameMenu}, {IDR_GENERIC_DATA, kMapMenu}, {IDR_VASTREL_MAP, kMapMenu}};

}  // namespace

std::span<const MenuResource> MenuResources() {
  return kMenus;
}

}  // namespace quorvel
