// Help pages of what the user has selected; for CCorvaneHtmlView::NavigateMemory.
#pragma once

#include <string>
#include <string_view>

class CCorvaneRecord;
class CCorvaneType;

// A record that is opened from the tree: its name and its comment.
[[nodiscard]] std::u16string BuildRecordHelp(const CCorvaneRecord& record);
// An attribute that is selected in the list: its name and type, its help and its comment, and the comment of
// its record. A struct's page holds all its members; with `member`, a member of one of its rows, that one
// alone.
[[nodiscard]] std::u16string BuildAttributeHelp(const CCorvaneType& attrib,
                                                const CCorvaneType* member = nullptr);
