// Where a record or a category of the tree may be taken: the rules of paste and drop. `cut` tells a move from
// a copy.
#pragma once

class CCorvaneCategory;
class CCorvaneRecord;
class CTreeItem;

[[nodiscard]] bool IsDestinationValid(const CCorvaneRecord* pRecordSrc, const CCorvaneCategory* pCategoryDest,
                                      bool cut);
[[nodiscard]] bool IsDestinationValid(const CCorvaneCategory* pCategorySrc,
                                      const CCorvaneCategory* pCategoryDest, bool cut);
// By the kind of the source; false for a root.
[[nodiscard]] bool IsDestinationValid(const CTreeItem& source, const CCorvaneCategory* pCategoryDest,
                                      bool cut);
