// What a screen reader sees of the attribute list: a tree with one item a row, whose name tells attribute and
// value, or the value that is selected in it.
#pragma once

class CCorvaneListViewList;

// Makes the toolkit ask here for lists; the first list calls it.
void InstallListAccessibility();
// The selected row, or what it shows, is another one.
void TellAccessibleSelection(CCorvaneListViewList& list);
