#include "FrameMenus.h"

#include "Commands.h"

namespace
{
constexpr int kFileHead[] = {ID_FILE_OPEN, ID_FILE_SAVE, ID_SEPARATOR};
constexpr int kSourceControl[] = {ID_SUBMIT_ALL,     ID_UNDO_ALL,  ID_SEPARATOR,        ID_SYNCHRONIZE,
                                  ID_GET_LATEST_ALL, ID_SEPARATOR, ID_SEARCH_CHECK_OUTS};
constexpr int kFileEnd[] = {ID_APP_EXIT};
constexpr int kEdit[] = {ID_CUT,        ID_COPY,        ID_PASTE,           ID_SEPARATOR, ID_NEW_CATEGORY,
                         ID_NEW_RECORD, ID_QUICK_CLONE, ID_QUICK_REFERENCE, ID_SEPARATOR, ID_EDIT,
                         ID_MOVE_UP,    ID_MOVE_DOWN,   ID_RENAME,          ID_DELETE,    ID_SEPARATOR,
                         ID_LOCK,       ID_REFERENCE,   ID_OVERRIDE,        ID_TODO,      ID_PLACEHOLDER,
                         ID_SEPARATOR,  ID_PROPERTIES};
constexpr int kView[] = {ID_OPEN_RECORD, ID_NEW_WINDOW,     ID_SEPARATOR,         ID_EXPAND,
                         ID_EXPAND_ALL,  ID_COLLAPSE_ALL,   ID_SEPARATOR,         ID_FOCUS_FILTER,
                         ID_SEPARATOR,   ID_REFRESH_STATUS, ID_REFRESH_ATTRIBUTES};
constexpr int kToolBars[] = {ID_BAR_STANDARD, ID_BAR_SOURCE_CONTROL, ID_BAR_VIEW};
constexpr int kDatabase[] = {
    ID_COMPILE_LOCAL,       ID_COMPILE_SERVER, ID_SEPARATOR,         ID_OVERRIDE_OUTPUT,
    ID_SAVE_DEPENDENCIES,   ID_SEPARATOR,      ID_VALIDATE_DATABASE, ID_FIND_REPLACE,
    ID_FIND_TEXT,           ID_COMPARE_RECORD, ID_SEPARATOR,         ID_DEFERRED_ATTRIBUTES,
    ID_MODIFIED_ATTRIBUTES, ID_SEPARATOR,      ID_EXPERT_MODE,       ID_SETTINGS};
constexpr int kHelp[] = {ID_APP_ABOUT};
constexpr int kRecordFile[] = {ID_FILE_SAVE, ID_SEPARATOR, ID_VALIDATE_RECORD, ID_SEPARATOR, ID_CLOSE_FRAME};
constexpr int kRecordEdit[] = {ID_EDIT,      ID_MOVE_UP,     ID_MOVE_DOWN, ID_DELETE,
                               ID_SEPARATOR, ID_LOCK,        ID_REFERENCE, ID_OVERRIDE,
                               ID_TODO,      ID_PLACEHOLDER, ID_SEPARATOR, ID_PROPERTIES};
constexpr int kRecordView[] = {ID_EXPAND, ID_EXPAND_ALL, ID_COLLAPSE_ALL, ID_SEPARATOR,
                               ID_REFRESH_ATTRIBUTES};

constexpr int kStandardBar[] = {ID_FILE_OPEN,     ID_FILE_SAVE,
                                ID_FILE_SAVE_AS,  ID_SEPARATOR,
                                ID_UNDO_FIRST,    ID_REDO_FIRST,
                                ID_SEPARATOR,     ID_CUT,
                                ID_COPY,          ID_PASTE,
                                ID_DELETE,        ID_SEPARATOR,
                                ID_COMPILE_LOCAL, ID_VALIDATE_DATABASE};
constexpr int kSourceControlBar[] = {ID_SUBMIT_ALL,     ID_UNDO_ALL,  ID_SYNCHRONIZE,
                                     ID_GET_LATEST_ALL, ID_SEPARATOR, ID_SEARCH_CHECK_OUTS};
constexpr int kViewBar[] = {
    ID_EXPAND_ALL,          ID_COLLAPSE_ALL, ID_SEPARATOR,      ID_DEFERRED_ATTRIBUTES,
    ID_MODIFIED_ATTRIBUTES, ID_SEPARATOR,    ID_REFRESH_STATUS, ID_SETTINGS};
constexpr int kRecordBar[] = {ID_FILE_SAVE,  ID_SEPARATOR,    ID_UNDO_FIRST, ID_REDO_FIRST,     ID_SEPARATOR,
                              ID_EXPAND_ALL, ID_COLLAPSE_ALL, ID_SEPARATOR,  ID_VALIDATE_RECORD};
} // namespace

std::span<const int> GetMenuCommands(EFrameMenu menu)
{
    switch (menu)
    {
    case EFrameMenu::FileHead:
        return kFileHead;
    case EFrameMenu::SourceControl:
        return kSourceControl;
    case EFrameMenu::FileEnd:
        return kFileEnd;
    case EFrameMenu::Edit:
        return kEdit;
    case EFrameMenu::View:
        return kView;
    case EFrameMenu::ToolBars:
        return kToolBars;
    case EFrameMenu::Database:
        return kDatabase;
    case EFrameMenu::Help:
        return kHelp;
    case EFrameMenu::RecordFile:
        return kRecordFile;
    case EFrameMenu::RecordEdit:
        return kRecordEdit;
    case EFrameMenu::RecordView:
        return kRecordView;
    }
    return {};
}

std::span<const int> GetBarCommands(EFrameBar bar)
{
    switch (bar)
    {
    case EFrameBar::Standard:
        return kStandardBar;
    case EFrameBar::SourceControl:
        return kSourceControlBar;
    case EFrameBar::View:
        return kViewBar;
    case EFrameBar::Record:
        return kRecordBar;
    }
    return {};
}
