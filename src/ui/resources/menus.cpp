#include "ui/resources/menus.h"

#include "ui/resources/command_ids.h"

namespace quorvel {
namespace {

constexpr MenuItem kSeparator = {"", ID_SEPARATOR};

constexpr MenuItem kFrameFile[] = {
    {"&New\tCtrl+N", ID_FILE_NEW},
    {"&Open...\tCtrl+O", ID_FILE_OPEN},
    {"Wizard...", ID_WIZARD},
    kSeparator,
    {"P&rint Setup...", ID_FILE_PRINT_SETUP},
    kSeparator,
    {"Recent File", ID_FILE_MRU_FILE1},
    kSeparator,
    {"E&xit", ID_APP_EXIT},
};

constexpr MenuItem kFrameView[] = {
    {"&Toolbar", ID_VIEW_TOOLBAR},
    {"&Status Bar", ID_VIEW_STATUS_BAR},
};

constexpr MenuItem kHelp[] = {
    {"&Help Topics", ID_HELP_FINDER},
    kSeparator,
    {"&About Quorvel...", ID_APP_ABOUT},
};

constexpr MenuItem kMapFile[] = {
    {"&New\tCtrl+N", ID_FILE_NEW},
    {"&Open...\tCtrl+O", ID_FILE_OPEN},
    {"&Close", ID_FILE_CLOSE},
    {"&Save\tCtrl+S", ID_FILE_SAVE},
    {"Save &As...", ID_FILE_SAVE_AS},
    {"Wizard...", ID_WIZARD},
    kSeparator,
    {"&Print...\tCtrl+P", ID_FILE_PRINT},
    {"Print Pre&view", ID_FILE_PRINT_PREVIEW},
    {"P&rint Setup...", ID_FILE_PRINT_SETUP},
    kSeparator,
    {"Recent File", ID_FILE_MRU_FILE1},
    kSeparator,
    {"E&xit", ID_APP_EXIT},
};

constexpr MenuItem kMapEdit[] = {
    {"&Undo\tCtrl+Z", ID_EDIT_UNDO},
    kSeparator,
    {"Cu&t\tCtrl+X", ID_EDIT_CUT},
    {"&Copy\tCtrl+C", ID_EDIT_COPY},
    {"&Paste\tCtrl+V", ID_EDIT_PASTE},
    kSeparator,
    {"Select &All\tCtrl+A", ID_EDIT_SELECT_ALL},
    {"&Deselect\tCtrl+D", ID_EDIT_DESELECT},
    {"Select &Reqion...", ID_SELECT_REGION},
    {"&Fill Selected...", ID_FILL_SELECTED},
};

constexpr MenuItem kMapView[] = {
    {"&Toolbar", ID_VIEW_TOOLBAR},  {"&Status Bar", ID_VIEW_STATUS_BAR}, kSeparator,
    {"&Filter...", ID_VIEW_FILTER}, {"Zoom &In\t+", ID_ZOOM_IN},         {"Zoom &Out\t-", ID_ZOOM_OUT},
};

constexpr MenuItem kMapWindow[] = {
    {"&New Window", ID_WINDOW_NEW},
    {"&Cascade", ID_WINDOW_CASCADE},
    {"&Tile", ID_WINDOW_TILE_HORZ},
    {"&Arrange Icons", ID_WINDOW_ARRANGE},
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
