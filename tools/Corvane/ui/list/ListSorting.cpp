#include "ListSorting.h"

#include "CorvaneType.h"
#include "NameCompare.h"

namespace
{
// A text that is missing counts as empty.
int CompareTexts(std::u16string_view a, std::u16string_view b)
{
    return ZRStrICmp(a.data() ? a : u"", b.data() ? b : u"");
}

template <class T> int CompareNumbers(T a, T b)
{
    return a < b ? -1 : (b < a ? 1 : 0);
}
} // namespace

int CompareAttributes(const CCorvaneType& a, const CCorvaneType& b, EListColumn column)
{
    switch (column)
    {
    case COLUMN_NAME:
        return CompareTexts(a.GetName(), b.GetName());
    case COLUMN_TYPE:
        return CompareTexts(a.GetTypeName(), b.GetTypeName());
    case COLUMN_BUILD:
        return CompareNumbers(a.GetBuild(), b.GetBuild());
    case COLUMN_LOCK_USER:
        return CompareTexts(a.GetLockUser(), b.GetLockUser());
    case COLUMN_LOCK:
        return CompareNumbers(a.IsLocked(), b.IsLocked());
    case COLUMN_REFERENCE:
        return CompareNumbers(a.GetInherit(), b.GetInherit());
    case COLUMN_OVERRIDE:
        return CompareNumbers(a.GetOverride(), b.GetOverride());
    case COLUMN_TODO:
        return CompareNumbers(a.IsTodo(), b.IsTodo());
    case COLUMN_PLACEHOLDER:
        return CompareNumbers(a.IsPlaceHolder(), b.IsPlaceHolder());
    default:
        return 0;
    }
}
