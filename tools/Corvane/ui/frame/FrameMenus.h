// What stands in the menus and bars of the frames, in order.
#pragma once

#include <span>

enum class EFrameMenu
{
    FileHead, // Above the recent files.
    SourceControl,
    FileEnd, // Below them.
    Edit,
    View,
    ToolBars,
    Database,
    Help,
    RecordFile,
    RecordEdit,
    RecordView,
};

enum class EFrameBar
{
    Standard,
    SourceControl,
    View,
    Record,
};

// Identifiers of the command table; ID_SEPARATOR between groups.
[[nodiscard]] std::span<const int> GetMenuCommands(EFrameMenu menu);
[[nodiscard]] std::span<const int> GetBarCommands(EFrameBar bar);
