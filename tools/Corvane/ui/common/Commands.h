// Every command of the editor: one row a command, with its label, keys, icon and tip. Numbers are those by
// which commands are known outside, too; they never change.
#pragma once

#include <span>
#include <string_view>

enum ECommand : int
{
    ID_SEPARATOR = 0,

    // Frames.
    ID_FILE_OPEN = 57601,
    ID_FILE_SAVE = 32848,
    ID_FILE_SAVE_AS = 32850,
    ID_APP_EXIT = 57665,
    ID_APP_ABOUT = 57664,
    ID_RECENT_FIRST = 57616, // To ID_RECENT_FIRST + 7.
    ID_UNDO_FIRST = 32796,   // To ID_UNDO_FIRST + 17: so many steps and one.
    ID_UNDO_NONE = 32832,
    ID_REDO_FIRST = 32814,
    ID_REDO_NONE = 32833,
    ID_EXPERT_MODE = 32970,
    ID_REFRESH_ATTRIBUTES = 32974,
    ID_COMPILE_LOCAL = 32956,
    ID_COMPILE_SERVER = 32958,
    ID_OVERRIDE_OUTPUT = 33000,
    ID_SAVE_DEPENDENCIES = 33002,
    ID_VALIDATE_DATABASE = 32892,
    ID_VALIDATE_RECORD = 32907,
    ID_FIND_REPLACE = 32911,
    ID_FIND_TEXT = 32917,
    ID_COMPARE_RECORD = 32920,
    ID_DEFERRED_ATTRIBUTES = 32949,
    ID_MODIFIED_ATTRIBUTES = 32959,
    ID_SETTINGS = 32779,
    ID_BAR_STANDARD = 59392,
    ID_BAR_VIEW = 59393,
    ID_BAR_SOURCE_CONTROL = 32967,
    ID_REFRESH_STATUS = 32997,
    ID_CLOSE_FRAME = 57602,
    ID_FOCUS_FILTER = 57640,

    // Source control of the whole database.
    ID_SUBMIT_ALL = 32844,
    ID_UNDO_ALL = 32845,
    ID_SYNCHRONIZE = 32955,
    ID_GET_LATEST_ALL = 32842,
    ID_SEARCH_CHECK_OUTS = 32939,

    // Tree and list; which of the two answers is a matter of the active pane.
    ID_EXPAND = 32866,
    ID_DELETE = 32861,
    ID_PROPERTIES = 32783,

    // Tree.
    ID_OPEN_RECORD = 32853,
    ID_NEW_WINDOW = 32862,
    ID_RENAME = 32860,
    ID_NEW_CATEGORY = 32870,
    ID_NEW_RECORD = 32871,
    ID_SUBMIT = 32927,
    ID_UNDO_CHECK_OUT = 32928,
    ID_GET_LATEST = 32926,
    ID_ADD_TO_CONTROL = 32932,
    ID_CHECK_OUT_EDIT = 32929,
    ID_CHECK_OUT_DELETE = 32931,
    ID_HISTORY = 32940,
    ID_CUT = 57635,
    ID_COPY = 57634,
    ID_PASTE = 57637,
    ID_VALIDATE = 32908,
    ID_SAVE = 32933,
    ID_QUICK_CLONE = 32952,
    ID_QUICK_REFERENCE = 32953,

    // Attribute list.
    ID_EDIT = 32784,
    ID_MOVE_UP = 32780,
    ID_MOVE_DOWN = 32781,
    ID_COLLAPSE = 129,
    ID_EXPAND_ALL = 32846,
    ID_COLLAPSE_ALL = 32847,
    ID_LOCK = 32787,
    ID_REFERENCE = 32880,
    ID_OVERRIDE = 32990,
    ID_TODO = 32785,
    ID_PLACEHOLDER = 32786,
    ID_DEFER_DELETE = 32947,
    ID_DEFER_DEPRECATE = 32948,
    ID_IMMEDIATE_DELETE = 32964,
};

struct SCommand
{
    int m_nId;
    std::u16string_view m_sLabel; // With '&' for the mnemonic.
    const char* m_sKeys;          // Portable text of a key sequence; empty for none.
    const char* m_sIcon;          // A name of the icon set; empty for none.
    std::u16string_view m_sTip;
};

[[nodiscard]] std::span<const SCommand> GetCommands();
// Null for an unknown id.
[[nodiscard]] const SCommand* FindCommand(int id);
