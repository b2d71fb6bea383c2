#include "MemoryFileSystem.h"

#include "DirectoryOrder.h"
#include "NameCompare.h"
#include "Path.h"
#include "Unicode.h"
#include "izroutconverter.h"

#include <algorithm>
#include <cstring>

namespace
{
// Times lie well behind 1980 and two seconds apart, so that each write changes the DOS time as well.
constexpr std::int64_t kFirstTime = 1'000'000'000'000'000'000;
constexpr std::int64_t kTimeStep = 2'000'000'000;

class CMemoryStream final : public IZROutStream
{
public:
    explicit CMemoryStream(std::u16string_view path) : m_sPath(path) {}

    [[nodiscard]] bool Write(const void* block, std::size_t size) override
    {
        if (m_Content.size() < m_nCursor + size)
            m_Content.resize(m_nCursor + size);
        if (size != 0)
            std::memcpy(m_Content.data() + m_nCursor, block, size);
        m_nCursor += size;
        return true;
    }
    [[nodiscard]] bool HasFailed() const override { return false; }
    [[nodiscard]] std::uint64_t Tell() const override { return m_nCursor; }
    [[nodiscard]] bool Seek(std::uint64_t offset) override
    {
        m_nCursor = offset;
        return true;
    }

    [[nodiscard]] const std::u16string& GetPath() const { return m_sPath; }
    [[nodiscard]] const std::vector<std::byte>& GetContent() const { return m_Content; }

private:
    std::u16string m_sPath;
    std::vector<std::byte> m_Content;
    std::size_t m_nCursor = 0;
};

// The path with '/' separators, a leading one, no drive, no dots and no last separator; "" is the root.
std::u16string Normalise(std::u16string_view path)
{
    std::u16string whole(u"/");
    whole.append(path.substr(SplitPath(path).drive.size())) += u'/';
    std::replace(whole.begin(), whole.end(), u'\\', u'/');
    return std::u16string(WithoutLastSeparator(CanonicalPath(whole)));
}

std::u16string_view ParentOf(std::u16string_view normal)
{
    return normal.substr(0, normal.rfind(u'/'));
}

bool HasExtension(std::u16string_view name, std::u16string_view extension)
{
    return extension.empty() || EqualNames(GetExtensionPart(name), extension);
}
} // namespace

std::u16string CMemoryFileSystem::MakeKey(std::u16string_view path)
{
    std::u16string key = Normalise(path);
    std::transform(key.begin(), key.end(), key.begin(), FoldUnit);
    return key;
}

const CMemoryFileSystem::SNode* CMemoryFileSystem::FindNode(std::u16string_view path) const
{
    static const SNode root{{}, {}, kFirstTime, true, false};
    const std::u16string key = MakeKey(path);
    if (key.empty())
        return &root;
    const auto found = m_Nodes.find(key);
    return found == m_Nodes.end() ? nullptr : &found->second;
}

CFileError CMemoryFileSystem::CheckParent(std::u16string_view path) const
{
    const SNode* parent = FindNode(ParentOf(Normalise(path)));
    if (parent == nullptr)
        return {EFileError::NotFound, 0};
    return parent->m_bDirectory ? CFileError{} : CFileError{EFileError::NotAFile, 0};
}

std::int64_t CMemoryFileSystem::NextTime()
{
    return kFirstTime + ++m_nClock * kTimeStep;
}

CFileError CMemoryFileSystem::GetInfo(std::u16string_view path, SFileInfo& info)
{
    info = {};
    if (const SNode* node = path.empty() ? nullptr : FindNode(path))
        info = {true, node->m_bDirectory, node->m_bReadOnly, {node->m_nTime, node->m_Content.size()}};
    return {};
}

CFileError CMemoryFileSystem::ReadFile(std::u16string_view path, CFileBuffer& content, SFileInfo* info)
{
    const SNode* node = FindNode(path);
    if (node == nullptr)
        return {EFileError::NotFound, 0};
    if (node->m_bDirectory)
        return {EFileError::NotAFile, 0};
    content.Resize(node->m_Content.size());
    std::copy(node->m_Content.begin(), node->m_Content.end(), content.GetBytes().begin());
    return info != nullptr ? GetInfo(path, *info) : CFileError{};
}

CFileError CMemoryFileSystem::CheckWritable(std::u16string_view path) const
{
    const SNode* node = FindNode(path);
    if (node == nullptr)
        return CheckParent(path);
    if (node->m_bDirectory)
        return {EFileError::NotAFile, 0};
    return node->m_bReadOnly ? CFileError{EFileError::ReadOnly, 0} : CFileError{};
}

CFileError CMemoryFileSystem::WriteFile(std::u16string_view path, std::span<const std::byte> content)
{
    if (const CFileError error = CheckWritable(path); !error.IsOk())
        return error;
    SNode& node = m_Nodes[MakeKey(path)];
    const std::vector<std::byte> bytes(content.begin(), content.end());
    if (node.m_nTime != 0 && node.m_Content == bytes)
        return {};
    if (node.m_sPath.empty())
        node.m_sPath = Normalise(path);
    node.m_Content = bytes;
    node.m_nTime = NextTime();
    return {};
}

std::unique_ptr<IZROutStream> CMemoryFileSystem::OpenStream(std::u16string_view path, CFileError& error)
{
    error = WriteFile(path, {});
    if (!error.IsOk())
        return nullptr;
    return std::make_unique<CMemoryStream>(path);
}

CFileError CMemoryFileSystem::CloseStream(std::unique_ptr<IZROutStream> stream)
{
    const auto* own = dynamic_cast<const CMemoryStream*>(stream.get());
    if (own == nullptr)
        return {EFileError::Other, 0};
    return WriteFile(own->GetPath(), own->GetContent());
}

CFileError CMemoryFileSystem::ListDirectory(std::u16string_view path, const SDirectoryFilter& filter,
                                            std::vector<SDirectoryEntry>& entries)
{
    entries.clear();
    const SNode* directory = FindNode(path);
    if (directory == nullptr)
        return {EFileError::NotFound, 0};
    if (!directory->m_bDirectory)
        return {EFileError::NotAFile, 0};
    const std::u16string prefix = MakeKey(path) + u'/';
    for (auto node = m_Nodes.lower_bound(prefix); node != m_Nodes.end(); ++node)
    {
        if (!node->first.starts_with(prefix))
            break;
        if (node->first.find(u'/', prefix.size()) != std::u16string::npos)
            continue;
        const std::u16string_view name = GetFileNamePart(node->second.m_sPath);
        if (node->second.m_bDirectory && filter.m_bDirectories)
            entries.push_back(
                {std::u16string(name), true, 1, reinterpret_cast<std::uintptr_t>(&node->second)});
        if (!node->second.m_bDirectory && filter.m_bFiles && HasExtension(name, filter.m_sExtension))
            entries.push_back({std::u16string(name), false, 0, 0});
    }
    SortDirectoryEntries(entries);
    return {};
}

CFileError CMemoryFileSystem::CreateDirectory(std::u16string_view path)
{
    if (FindNode(path) != nullptr)
        return {EFileError::AlreadyExists, 0};
    if (const CFileError error = CheckParent(path); !error.IsOk())
        return error;
    m_Nodes[MakeKey(path)] = {Normalise(path), {}, NextTime(), true, false};
    return {};
}

CFileError CMemoryFileSystem::CheckRename(const std::u16string& from, const std::u16string& to,
                                          bool replace) const
{
    const SNode* source = from.empty() ? nullptr : FindNode(from);
    if (source == nullptr)
        return {EFileError::NotFound, 0};
    const SNode* target = FindNode(to);
    if (target == source)
        return {};
    if (target == nullptr)
        return CheckParent(to);
    if (!replace)
        return {EFileError::AlreadyExists, 0};
    if (target->m_bDirectory || source->m_bDirectory)
        return {EFileError::NotAFile, 0};
    return {};
}

CFileError CMemoryFileSystem::Rename(std::u16string_view from, std::u16string_view to, bool replace)
{
    const std::u16string newPath = Normalise(to);
    if (const CFileError error = CheckRename(Normalise(from), newPath, replace); !error.IsOk())
        return error;
    const std::u16string oldKey = MakeKey(from);
    const std::u16string newKey = MakeKey(to);
    std::vector<std::u16string> keys;
    for (auto node = m_Nodes.lower_bound(oldKey); node != m_Nodes.end(); ++node)
    {
        if (!node->first.starts_with(oldKey))
            break;
        if (node->first.size() == oldKey.size() || node->first[oldKey.size()] == u'/')
            keys.push_back(node->first);
    }
    for (const std::u16string& key : keys)
    {
        auto node = m_Nodes.extract(key);
        node.key() = newKey + key.substr(oldKey.size());
        node.mapped().m_sPath = newPath + node.mapped().m_sPath.substr(oldKey.size());
        m_Nodes.erase(node.key());
        m_Nodes.insert(std::move(node));
    }
    return {};
}

CFileError CMemoryFileSystem::Remove(std::u16string_view path)
{
    const std::u16string key = MakeKey(path);
    const auto node = m_Nodes.find(key);
    if (node == m_Nodes.end())
        return {EFileError::NotFound, 0};
    const auto below = m_Nodes.lower_bound(key + u'/');
    if (below != m_Nodes.end() && below->first.starts_with(key + u'/'))
        return {EFileError::Other, 0};
    m_Nodes.erase(node);
    return {};
}

CFileError CMemoryFileSystem::SetReadOnly(std::u16string_view path, bool readOnly)
{
    const auto node = m_Nodes.find(MakeKey(path));
    if (node == m_Nodes.end())
        return {EFileError::NotFound, 0};
    node->second.m_bReadOnly = readOnly;
    return {};
}

std::string CMemoryFileSystem::GetNativePath(std::u16string_view path)
{
    const SNode* node = FindNode(path);
    return ToNarrow(node != nullptr && !node->m_sPath.empty() ? node->m_sPath : Normalise(path));
}

void CMemoryFileSystem::AddText(std::u16string_view path, std::u16string_view text)
{
    AddParents(Normalise(path));
    std::u16string content(1, u'\uFEFF');
    content += text;
    SNode& node = m_Nodes[MakeKey(path)];
    if (node.m_sPath.empty())
        node.m_sPath = Normalise(path);
    const auto* bytes = reinterpret_cast<const std::byte*>(content.data());
    node.m_Content.assign(bytes, bytes + content.size() * sizeof(char16_t));
    node.m_nTime = NextTime();
}

void CMemoryFileSystem::AddParents(std::u16string_view path)
{
    const std::u16string_view parent = ParentOf(path);
    if (FindNode(parent) != nullptr)
        return;
    AddParents(parent);
    m_Nodes[MakeKey(parent)] = {std::u16string(parent), {}, NextTime(), true, false};
}
