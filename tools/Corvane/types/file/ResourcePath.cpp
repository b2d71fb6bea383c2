#include "file/ResourcePath.h"

#include "NameCompare.h"

#include <algorithm>

namespace
{
std::u16string WithSlashes(std::u16string_view path)
{
    std::u16string text(path);
    std::replace(text.begin(), text.end(), u'\\', u'/');
    return text;
}
} // namespace

std::u16string_view ToResourcePath(std::u16string_view root, std::u16string_view path)
{
    const std::u16string_view head = path.substr(0, root.size());
    if (root.empty() || !EqualNames(WithSlashes(head), WithSlashes(root)))
        return path;
    // A second separator behind the root would make another kind of path of the rest.
    path.remove_prefix(head.size());
    return path.substr(std::min(path.find_first_not_of(u"\\/"), path.size()));
}

bool IsOutsideResources(std::u16string_view path)
{
    return path.find(u':') != std::u16string_view::npos || path.starts_with(u"\\\\");
}

std::u16string ToFullPath(std::u16string_view root, std::u16string_view path)
{
    return IsOutsideResources(path) ? std::u16string(path) : std::u16string(root).append(path);
}
