#pragma once

namespace quorvel {

/// Numbers of the commands and of the controls in bars; each is the `objectName` of the Qt object made for
/// it.
enum CommandId : int {
  ID_SEPARATOR = 0,  ///< separator in menus and tool bars, the message pane in the status bar

  ID_INDICATOR_POSITION = 501,
  ID_TOOL_POINTER = 502,
  ID_TOOL_CELL_PROPERTY = 503,
  ID_TOOL_TERRAIN = 504,
  ID_TOOL_PLANET = 505,
  ID_TOOL_BASE = 506,

  ID_SELECT_REGION = 32771,
  ID_FILL_SELECTED = 32772,
  ID_EDIT_DESELECT = 32773,
  ID_ZOOM_IN = 32774,
  ID_ZOOM_OUT = 32775,
  ID_WIZARD = 32776,
  ID_VIEW_FILTER = 32777,
  ID_GO_TO_CELL = 32778,

  ID_FILE_NEW = 57600,
  ID_FILE_OPEN = 57601,
  ID_FILE_CLOSE = 57602,
  ID_FILE_SAVE = 57603,
  ID_FILE_SAVE_AS = 57604,
  ID_FILE_PRINT_SETUP = 57606,
  ID_FILE_PRINT = 57607,
  ID_FILE_PRINT_DIRECT = 57608,
  ID_FILE_PRINT_PREVIEW = 57609,
  ID_FILE_MRU_FILE1 = 57616,
  ID_EDIT_COPY = 57634,
  ID_EDIT_CUT = 57635,
  ID_EDIT_PASTE = 57637,
  ID_EDIT_SELECT_ALL = 57642,
  ID_EDIT_UNDO = 57643,
  ID_WINDOW_NEW = 57648,
  ID_WINDOW_ARRANGE = 57649,
  ID_WINDOW_CASCADE = 57650,
  ID_WINDOW_TILE_HORZ = 57651,
  ID_APP_ABOUT = 57664,
  ID_APP_EXIT = 57665,
  ID_HELP_FINDER = 57667,
  ID_CONTEXT_HELP = 57669,
  ID_HELP = 57670,
  ID_DEFAULT_HELP = 57671,
  ID_NEXT_PANE = 57680,
  ID_PREV_PANE = 57681,
  ID_VIEW_TOOLBAR = 59392,
  ID_VIEW_STATUS_BAR = 59393,
};

/// Numbers of the frame's own windows and of the resources that it loads.
enum ResourceId : int {
  AFX_IDW_TOOLBAR = 59392,
  AFX_IDW_STATUS_BAR = 59393,
  AFX_IDW_DIALOGBAR = 59397,

  IDR_MAINFRAME = 100,     ///< menu, accelerators, tool bar, title and icon of the main frame
  IDR_GENERIC_DATA = 101,  ///< menu, icon and document string of the generic data file
  IDR_VASTREL_MAP = 102,   ///< menu, icon and document string of the product map file
  IDD_TOOL_OPTIONS = 100,
  IDC_TOOL_MEMBER = 1000,
  IDC_PROGRESS = 100,
  IDD_ABOUT = 200,
  IDC_ABOUT_VERSION = 1020,
  IDD_VERSION_DATA = 507,
  IDS_MAP_WINDOW = 103,
  IDS_APP_TITLE = 57344,
  IDS_IDLE_MESSAGE = 57345,
};

}  // namespace quorvel
