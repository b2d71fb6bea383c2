// The filter texts of file dialogs: what a dialog offers to show, by rows of one table.
#pragma once

#include <initializer_list>
#include <string>

// Rows of the table that this system's own dialogs ask for; BuildFileFilter takes every number from 0 to
// kFileFilterCount - 1.
enum EFileFilter : int
{
    FILE_FILTER_ALL = 0,
    FILE_FILTER_DATABASE_ROOT = 26,
    FILE_FILTER_DATABASE_PACKED = 27,
    FILE_FILTER_DATABASE_DEPENDENCY = 28,
};

inline constexpr int kFileFilterCount = 43;

// Replaces `out` by the rows, each as "label (patterns)|patterns|", patterns separated by ';'. A number that
// the table does not have adds nothing.
void BuildFileFilter(std::u16string& out, std::initializer_list<int> rows);
