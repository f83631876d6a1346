#pragma once

// Command identifiers of the window program. Each command's QAction or button carries its id
// as data, so menus, the command bar and the page buttons name the same command.
namespace AppCommands {

enum Id : int
{
    ID_FILE_NEW = 57600,
    ID_FILE_OPEN = 57601,
    ID_FILE_SAVE = 57603,
    ID_FILE_SAVE_AS = 57604,
    ID_APP_ABOUT = 57664,
    ID_APP_EXIT = 57665,
    ID_JUMP_NEW = 32771,
    ID_VIEW_SIGNLIST = 32772,
    ID_VIEW_JUMPLIST = 32773,
    ID_USER_PROFILE = 32774,
    ID_PREFERENCES = 32775,
    ID_EQUIPMENT = 32776,
    ID_VIEW_HOME = 32785,
    ID_JUMP_CHANGE = 32793,
    ID_JUMP_DELETE = 32794,
    ID_JUMP_VIEW = 32798,
    ID_JUMP_SHOW_PICTURE = 32799,
    // The fifth page button: "Open...", so a touch user can change logbooks from any page.
    ID_PAGE_OPEN = 32833,
    // A logger's track as a new jump, or into the selected jump.
    ID_JUMP_IMPORT_TRACK = 32834,
    ID_JUMP_ADD_TRACK = 32835,
    // The statistics, licence progress and currency.
    ID_VIEW_STATISTICS = 32836,
    // The selected jumps (or those the search shows) as a CSV table or JSON.
    ID_FILE_EXPORT_SELECTION = 32845,
    // Takes the signature off the selected jump, after a question, so that it can be corrected
    // and signed again.
    ID_JUMP_REMOVE_SIGNATURE = 32846,
    // Jumps from a spreadsheet (CSV).
    ID_FILE_IMPORT_CSV = 32837,
    // The new jumps of a folder of tracks (a logger's card).
    ID_JUMP_IMPORT_CARD = 32838,
};

// The list control's id, used as its object name suffix.
inline constexpr int kListControlId = 1188;

} // namespace AppCommands
