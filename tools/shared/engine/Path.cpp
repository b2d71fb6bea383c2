#include "Path.h"

#include "Unicode.h"

#include <algorithm>
#include <vector>

namespace
{
constexpr std::u16string_view kSeparators = u"\\/";

bool IsLetter(char16_t unit)
{
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

std::size_t DriveLength(std::u16string_view path)
{
    return path.size() >= 2 && path[1] == u':' && IsLetter(path[0]) ? 2 : 0;
}

std::vector<std::u16string_view> SplitElements(std::u16string_view directory)
{
    std::vector<std::u16string_view> elements;
    while (!directory.empty())
    {
        const std::size_t length = std::min(directory.find_first_of(kSeparators), directory.size());
        if (length != 0)
            elements.push_back(directory.substr(0, length));
        directory.remove_prefix(std::min(length + 1, directory.size()));
    }
    return elements;
}

// Walks from the last element to the first; each ".." takes the next element that stands before it.
void DropDots(std::vector<std::u16string_view>& elements)
{
    std::vector<std::u16string_view> kept;
    std::size_t drop = 0;
    for (auto element = elements.rbegin(); element != elements.rend(); ++element)
    {
        if (*element == u".")
            continue;
        if (*element == u"..")
            ++drop;
        else if (drop != 0)
            --drop;
        else
            kept.push_back(*element);
    }
    std::reverse(kept.begin(), kept.end());
    elements.swap(kept);
}

// Cuts the last element off `path`, with the separators around it, down to `root`.
void PopElement(std::u16string& path, std::size_t root)
{
    while (path.size() > root && IsSeparator(path.back()))
        path.pop_back();
    while (path.size() > root && !IsSeparator(path.back()))
        path.pop_back();
}

// Resolves "." and ".." without a change to the separators that stay.
std::u16string ResolveDots(std::u16string_view path)
{
    std::size_t root = DriveLength(path);
    while (root < path.size() && IsSeparator(path[root]))
        ++root;
    std::u16string out(path.substr(0, root));
    bool dotted = false;
    for (path.remove_prefix(root); !path.empty();)
    {
        const std::size_t length = std::min(path.find_first_of(kSeparators), path.size());
        const std::u16string_view element = path.substr(0, length);
        const std::u16string_view whole = path.substr(0, std::min(length + 1, path.size()));
        dotted = element == u"." || element == u"..";
        if (element == u"..")
            PopElement(out, root);
        else if (!dotted)
            out += whole;
        path.remove_prefix(whole.size());
        dotted = dotted && whole.size() == length;
    }
    // A path that ended in dots named a directory without a separator behind it.
    while (dotted && out.size() > root && IsSeparator(out.back()))
        out.pop_back();
    return out;
}

bool IsUnsafeUnit(char16_t unit)
{
    constexpr std::u16string_view kReserved = u"\\/:*?\"<>|";
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || unit >= 0xFFFE ||
           kReserved.find(unit) != std::u16string_view::npos;
}

bool IsLoneSurrogate(std::u16string_view text, std::size_t index)
{
    const auto isLead = [&](std::size_t i) { return i < text.size() && (text[i] & 0xFC00U) == 0xD800U; };
    const auto isTrail = [&](std::size_t i) { return i < text.size() && (text[i] & 0xFC00U) == 0xDC00U; };
    if (isLead(index))
        return !isTrail(index + 1);
    return isTrail(index) && (index == 0 || !isLead(index - 1));
}

// File names end at 255 bytes; the extension and a " (2)" need room as well.
void CutToFileName(std::u16string& name)
{
    constexpr std::size_t kLongest = 200;
    while (name.size() > kLongest / 3 && ToNarrow(name).size() > kLongest)
    {
        const bool pair = name.size() > 1 && (name.back() & 0xFC00U) == 0xDC00U;
        name.resize(name.size() - (pair ? 2 : 1));
    }
}
} // namespace

SPathParts SplitPath(std::u16string_view path)
{
    SPathParts parts;
    parts.drive = path.substr(0, DriveLength(path));
    path.remove_prefix(parts.drive.size());
    parts.directory = GetDirectoryPart(path);
    path.remove_prefix(parts.directory.size());
    const std::size_t point = std::min(path.rfind(u'.'), path.size());
    parts.name = path.substr(0, point);
    parts.extension = path.substr(point);
    return parts;
}

char16_t GetSeparator(std::u16string_view path)
{
    return path.find(u'\\') != std::u16string_view::npos ? u'\\' : u'/';
}

bool IsSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

bool EndsInSeparator(std::u16string_view path)
{
    return !path.empty() && IsSeparator(path.back());
}

std::u16string_view GetDirectoryPart(std::u16string_view path)
{
    const std::size_t last = path.find_last_of(kSeparators);
    return last == std::u16string_view::npos ? path.substr(0, 0) : path.substr(0, last + 1);
}

std::u16string_view GetFileNamePart(std::u16string_view path)
{
    return path.substr(GetDirectoryPart(path).size());
}

std::u16string_view GetExtensionPart(std::u16string_view path)
{
    const std::u16string_view name = GetFileNamePart(path);
    const std::size_t point = name.rfind(u'.');
    return point == std::u16string_view::npos ? name.substr(name.size()) : name.substr(point + 1);
}

std::u16string WithExtension(std::u16string_view path, std::u16string_view extension)
{
    const std::size_t length = path.size() - SplitPath(path).extension.size();
    std::u16string out(path.substr(0, length));
    out += u'.';
    out += extension;
    return out;
}

std::u16string_view WithoutLastSeparator(std::u16string_view path)
{
    while (EndsInSeparator(path))
        path.remove_suffix(1);
    return path;
}

bool IsAbsolutePath(std::u16string_view path)
{
    if (path.empty())
        return false;
    if (IsSeparator(path.front()))
        return true;
    return path.substr(0, path.find_first_of(kSeparators)).find(u':') != std::u16string_view::npos;
}

std::u16string JoinPath(std::u16string_view directory, std::u16string_view name)
{
    std::u16string out(directory);
    if (directory.empty())
        return out.append(name);
    while (!name.empty() && IsSeparator(name.front()))
        name.remove_prefix(1);
    if (!EndsInSeparator(directory))
        out += GetSeparator(directory);
    return out.append(name);
}

std::u16string CanonicalPath(std::u16string_view path)
{
    const char16_t separator = GetSeparator(path);
    const SPathParts parts = SplitPath(path);
    std::vector<std::u16string_view> elements = SplitElements(parts.directory);
    DropDots(elements);
    std::u16string out(parts.drive);
    out.reserve(path.size() + 1);
    out += separator;
    for (const std::u16string_view element : elements)
        out.append(element) += separator;
    return out.append(parts.name).append(parts.extension);
}

std::u16string JoinCanonical(std::u16string_view base, std::u16string_view value)
{
    return CanonicalPath(JoinPath(base, value));
}

std::u16string ResolvePath(std::u16string_view directory, std::u16string_view value)
{
    return IsAbsolutePath(value) ? std::u16string(value) : ResolveDots(JoinPath(directory, value));
}

std::u16string MakeFileBaseName(std::u16string_view name)
{
    if (name.empty() || name == u"." || name == u"..")
        return u"_";
    std::u16string out(name);
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        if (IsUnsafeUnit(name[i]) || IsLoneSurrogate(name, i))
            out[i] = u'_';
    }
    CutToFileName(out);
    return out;
}
