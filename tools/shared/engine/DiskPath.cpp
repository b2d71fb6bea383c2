#include "DiskPath.h"

#include "NameCompare.h"
#include "Path.h"
#include "Unicode.h"

#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace
{
struct SDirectoryCloser
{
    void operator()(DIR* directory) const { ::closedir(directory); }
};
using CDirectory = std::unique_ptr<DIR, SDirectoryCloser>;

bool IsThere(const std::string& path)
{
    struct stat info
    {
    };
    return ::lstat(path.c_str(), &info) == 0;
}

// The entry of `directory` that equals `name` without regard to case; empty when there is none.
std::string FindEntry(const std::string& directory, std::string_view name)
{
    const CDirectory handle(::opendir(directory.empty() ? "." : directory.c_str()));
    if (handle == nullptr)
        return {};
    const std::u16string wanted = ToWide(name);
    std::u16string best;
    std::u16string entryName;
    while (const dirent* entry = ::readdir(handle.get()))
    {
        if (!FromDiskName(entry->d_name, entryName) || !EqualNames(entryName, wanted))
            continue;
        if (best.empty() || NameOrder(entryName, best))
            best.swap(entryName);
    }
    return ToNarrow(best);
}
} // namespace

std::string ToDiskPath(std::u16string_view path)
{
    path.remove_prefix(SplitPath(path).drive.size());
    std::string out;
    ToNarrow(path, out);
    std::replace(out.begin(), out.end(), '\\', '/');
    for (std::size_t zero = out.find('\0'); zero != std::string::npos; zero = out.find('\0', zero))
        out.replace(zero, 1, "\xEF\xBF\xBD");
    return out;
}

bool MatchDiskCase(std::string& path)
{
    bool changed = false;
    std::string done;
    for (std::size_t start = 0; start < path.size();)
    {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string_view element = std::string_view(path).substr(start, end - start);
        std::string candidate = done + std::string(element);
        if (!element.empty() && !IsThere(candidate))
        {
            const std::string entry = FindEntry(done, element);
            if (entry.empty())
                break;
            candidate = done + entry;
            path.replace(start, element.size(), entry);
            changed = true;
        }
        start = candidate.size() + 1;
        done = candidate + '/';
    }
    return changed;
}

bool FromDiskName(std::string_view name, std::u16string& out)
{
    if (name.find('\\') != std::string_view::npos)
        return false;
    out = ToWide(name);
    // A replacement stands for a bad byte, unless the name holds the replacement character itself.
    return out.find(u'\uFFFD') == std::u16string::npos || ToNarrow(out) == name;
}

std::string FindDiskPath(std::u16string_view path)
{
    std::string out = ToDiskPath(path);
    if (!IsThere(out))
        MatchDiskCase(out);
    return out;
}
