#include "Commands.h"

#include <algorithm>

namespace
{
constexpr SCommand kCommands[] = {
    {ID_FILE_OPEN, u"&Open...", "Ctrl+O", "open", u"Open a database"},
    {ID_FILE_SAVE, u"&Save", "Ctrl+S", "save", u"Save the whole database"},
    {ID_FILE_SAVE_AS, u"Save &As...", "Ctrl+Shift+S", "save-as", u"Save the database in another place"},
    {ID_APP_EXIT, u"E&xit", "Ctrl+Q", "", u"Close the editor"},
    {ID_APP_ABOUT, u"&About Corvane...", "F12", "about", u"Version and licences"},
    {ID_UNDO_FIRST, u"&Undo", "Ctrl+Z", "undo", u"Take back the last change"},
    {ID_REDO_FIRST, u"&Redo", "Ctrl+Y", "redo", u"Do the last change again"},
    {ID_EXPERT_MODE, u"E&xpert Mode", "Ctrl+Shift+F8", "expert", u"Show builds and what changes schemas"},
    {ID_REFRESH_ATTRIBUTES, u"Refresh A&ttributes", "Ctrl+Shift+F9", "refresh",
     u"Build the attribute lists again"},
    {ID_COMPILE_LOCAL, u"Compile for &Local...", "F7", "compile-local",
     u"Pack the database for this machine"},
    {ID_COMPILE_SERVER, u"Compile for &Server...", "Shift+F7", "compile-server",
     u"Pack the database for the team"},
    {ID_OVERRIDE_OUTPUT, u"Create &Override Output", "Ctrl+Shift+O", "override-output",
     u"Write the files by which a server overrides values"},
    {ID_SAVE_DEPENDENCIES, u"Save Dependencies...", "Ctrl+Shift+D", "dependencies",
     u"Write the list of what the database refers to"},
    {ID_VALIDATE_DATABASE, u"&Validate Database...", "F8", "validate",
     u"Look for values that cannot be used"},
    {ID_VALIDATE_RECORD, u"&Validate Record...", "Shift+F8", "validate",
     u"Look for values that cannot be used"},
    {ID_FIND_REPLACE, u"&Find and Replace...", "Ctrl+H", "find-replace", u"Find and replace values"},
    {ID_FIND_TEXT, u"F&ind Text...", "Ctrl+Shift+F", "find", u"Find a text in names, comments and values"},
    {ID_COMPARE_RECORD, u"Com&pare Record...", "Ctrl+D", "compare", u"Compare records"},
    {ID_DEFERRED_ATTRIBUTES, u"Deferred &Attributes...", "Ctrl+Shift+A", "deferred",
     u"Attributes that end with a build"},
    {ID_MODIFIED_ATTRIBUTES, u"&Modified Attributes...", "Ctrl+Shift+M", "modified",
     u"Attributes that were changed after a newer entry took over"},
    {ID_SETTINGS, u"Settings...", "Ctrl+,", "settings", u"Settings of the editor and of this database"},
    {ID_BAR_STANDARD, u"&Standard", "", "", u"Show or hide the standard tool bar"},
    {ID_BAR_VIEW, u"&View", "", "", u"Show or hide the view tool bar"},
    {ID_BAR_SOURCE_CONTROL, u"Source &Control", "", "", u"Show or hide the source control tool bar"},
    {ID_REFRESH_STATUS, u"&Refresh Status", "F5", "refresh", u"Take over what changed on the disk"},
    {ID_CLOSE_FRAME, u"&Close", "Ctrl+W", "", u"Close this window"},
    {ID_FOCUS_FILTER, u"&Go to Filter", "Ctrl+F", "filter", u"Filter the tree by name"},
    {ID_SUBMIT_ALL, u"&Submit All Changes...", "", "submit", u"Submit all pending changes"},
    {ID_UNDO_ALL, u"&Undo All Changes...", "", "undo-check-out", u"Take back all pending changes"},
    {ID_SYNCHRONIZE, u"S&ynchronize...", "", "synchronize", u"Bring the database to the server's state"},
    {ID_GET_LATEST_ALL, u"&Get Latest Version", "", "get-latest", u"Get the newest version of every file"},
    {ID_SEARCH_CHECK_OUTS, u"S&earch Check Outs...", "", "search-check-outs", u"Who has what checked out"},
    {ID_EXPAND, u"&Expand", "", "expand", u"Show what lies below"},
    {ID_DELETE, u"&Delete", "Del", "delete", u"Delete what is selected"},
    {ID_PROPERTIES, u"Propert&ies", "Alt+Return", "properties", u"Properties of what is selected"},
    {ID_OPEN_RECORD, u"&Open", "", "open-record", u"Show the record in this window"},
    {ID_NEW_WINDOW, u"New &Window", "Ctrl+Return", "new-window", u"Show the record in a window of its own"},
    {ID_RENAME, u"&Rename", "F2", "rename", u"Give it another name"},
    {ID_NEW_CATEGORY, u"New &Category", "Ctrl+Shift+N", "new-category", u"Add a category"},
    {ID_NEW_RECORD, u"New &Record", "Ctrl+N", "new-record", u"Add a record"},
    {ID_SUBMIT, u"&Submit Pending Changes", "", "submit", u"Submit the pending changes"},
    {ID_UNDO_CHECK_OUT, u"&Undo Pending Changes", "", "undo-check-out", u"Take back the pending changes"},
    {ID_GET_LATEST, u"&Get Latest Version", "", "get-latest", u"Get the newest version"},
    {ID_ADD_TO_CONTROL, u"&Add to Source Control...", "", "add-to-control",
     u"Put the file under source control"},
    {ID_CHECK_OUT_EDIT, u"Check Out for &Edit", "", "check-out", u"Check the file out to change it"},
    {ID_CHECK_OUT_DELETE, u"Check Out for &Delete", "", "check-out-delete",
     u"Check the file out to delete it"},
    {ID_HISTORY, u"&History", "", "history", u"Versions of the file"},
    {ID_CUT, u"Cu&t", "Ctrl+X", "cut", u"Take it to the clipboard to move it"},
    {ID_COPY, u"&Copy", "Ctrl+C", "copy", u"Copy it to the clipboard"},
    {ID_PASTE, u"&Paste", "Ctrl+V", "paste", u"Put the clipboard's record or category here"},
    {ID_VALIDATE, u"&Validate", "Shift+F8", "validate", u"Look for values that cannot be used"},
    {ID_SAVE, u"&Save", "Ctrl+Alt+S", "save", u"Save what is selected"},
    {ID_QUICK_CLONE, u"Quick C&lone", "Ctrl+L", "clone", u"Copy the record beside itself"},
    {ID_QUICK_REFERENCE, u"Quick Re&ference", "Ctrl+R", "reference",
     u"Add a record that inherits from this one"},
    {ID_EDIT, u"&Edit", "", "edit", u"Edit the value"},
    {ID_MOVE_UP, u"Move &Up", "Ctrl+Up", "move-up", u"Move the value up"},
    {ID_MOVE_DOWN, u"Move Do&wn", "Ctrl+Down", "move-down", u"Move the value down"},
    {ID_COLLAPSE, u"&Collapse", "", "collapse", u"Hide what lies below"},
    {ID_EXPAND_ALL, u"&Expand All", "Ctrl+Shift++", "expand-all", u"Expand every attribute"},
    {ID_COLLAPSE_ALL, u"&Collapse All", "Ctrl+Shift+-", "collapse-all", u"Collapse every attribute"},
    {ID_LOCK, u"&Lock", "Ctrl+Shift+L", "lock", u"Keep others from changing the attribute"},
    {ID_REFERENCE, u"Re&ference", "Ctrl+Shift+R", "inherit", u"Take the value from the referencer"},
    {ID_OVERRIDE, u"&Override", "Ctrl+Shift+V", "override", u"Let a server override the value"},
    {ID_TODO, u"Mark as T&odo", "Ctrl+T", "todo", u"Mark that there is work left"},
    {ID_PLACEHOLDER, u"Mark as Place&holder", "Ctrl+Shift+H", "placeholder",
     u"Mark that the value is for the time being"},
    {ID_DEFER_DELETE, u"Defer Delete Attri&bute", "", "defer-delete", u"End the attribute with a build"},
    {ID_DEFER_DEPRECATE, u"Defer Deprecate &Attribute", "", "defer-deprecate",
     u"Give the attribute a new entry from a build on"},
    {ID_IMMEDIATE_DELETE, u"&Immediate Delete Attribute", "", "delete",
     u"Remove the attribute from the schema now"},
};
} // namespace

std::span<const SCommand> GetCommands()
{
    return kCommands;
}

const SCommand* FindCommand(int id)
{
    const auto found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                    [id](const SCommand& command) { return command.m_nId == id; });
    return found == std::end(kCommands) ? nullptr : found;
}
