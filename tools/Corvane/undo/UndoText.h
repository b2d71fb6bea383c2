// Texts of the groups in the undo and redo menus. The tab parts an object's name from what was done to it; a
// menu shows it as a line's end.
#pragma once

#include <string>
#include <string_view>

inline constexpr std::u16string_view kUndoRecordCopied = u"[%s]\tCopied Record";
inline constexpr std::u16string_view kUndoRecordMoved = u"[%s]\tMoved Record";
inline constexpr std::u16string_view kUndoRecordDeleted = u"[%s]\tRecord Deleted";
inline constexpr std::u16string_view kUndoRecordRenamed = u"[%s]\tRenamed Record";
inline constexpr std::u16string_view kUndoCategoryCopied = u"[%s]\tCopied Category";
inline constexpr std::u16string_view kUndoCategoryMoved = u"[%s]\tMoved Category";
inline constexpr std::u16string_view kUndoCategoryDeleted = u"[%s]\tCategory Deleted";
inline constexpr std::u16string_view kUndoCategoryRenamed = u"[%s]\tRenamed Category";
inline constexpr std::u16string_view kUndoFindAndReplace = u"Find and Replace";
inline constexpr std::u16string_view kUndoValueAdded = u"Add";
inline constexpr std::u16string_view kUndoValueModified = u"Modify";
inline constexpr std::u16string_view kUndoValueDeleted = u"Delete";

// One of the texts above with the object's name.
[[nodiscard]] std::u16string GetUndoText(std::u16string_view form, std::u16string_view name);
// The text of a value's edit: what was done (one of the three words), the attribute's name, the value. Cut
// behind 34 units; a cut text ends in three dots and the closing quote.
[[nodiscard]] std::u16string GetValueUndoText(std::u16string_view action, std::u16string_view name,
                                              std::u16string_view value);
