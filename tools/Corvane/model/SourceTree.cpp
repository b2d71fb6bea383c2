#include "SourceTree.h"

#include "FileSystem.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "Path.h"
#include "host/Questions.h"

#include <algorithm>
#include <utility>

namespace
{
class CSourceWalk
{
public:
    CSourceWalk(IFileSystem& files, IQuestions& questions) : m_Files(files), m_Questions(questions) {}

    std::unique_ptr<SSourceDirectory> ReadRoot(std::u16string_view root)
    {
        SFileInfo info;
        if (m_Files.GetInfo(root, info).IsOk())
            m_Above.emplace_back(info.m_nDevice, info.m_nNode);
        return Read(root);
    }

private:
    std::unique_ptr<SSourceDirectory> Read(std::u16string_view path)
    {
        auto directory = std::make_unique<SSourceDirectory>();
        std::vector<SDirectoryEntry> entries;
        const CFileError error = m_Files.ListDirectory(path, {}, entries);
        if (!error.IsOk())
            m_Questions.Tell(
                u"Directory Error",
                FormatText(u"The following directory could not be read: %s.\n\n%s", error.GetText(), path));
        for (SDirectoryEntry& entry : entries)
        {
            // Also a directory of that name: what cannot be read is told when it is tried.
            directory->m_bCategory = directory->m_bCategory || EqualNames(entry.m_sName, u"cvd.category");
            if (entry.m_bDirectory)
                AddDirectory(*directory, entry, JoinPath(path, entry.m_sName));
            else
                AddFile(*directory, entry, path);
        }
        return directory;
    }

    void AddFile(SSourceDirectory& directory, SDirectoryEntry& entry, std::u16string_view path)
    {
        const std::u16string_view extension = GetExtensionPart(entry.m_sName);
        if (EqualNames(extension, u"record"))
            directory.m_Records.push_back(std::move(entry.m_sName));
        else if (EqualNames(extension, u"schema"))
            directory.m_Entries.push_back({JoinPath(path, entry.m_sName), nullptr});
    }

    void AddDirectory(SSourceDirectory& directory, const SDirectoryEntry& entry, std::u16string path)
    {
        const std::pair identity(entry.m_nDevice, entry.m_nNode);
        if (std::find(m_Above.begin(), m_Above.end(), identity) != m_Above.end())
        {
            m_Questions.Tell(u"Directory Loop",
                             FormatText(u"The following directory leads back to a directory above it and is "
                                        u"left out.\n\n%s",
                                        path));
            return;
        }
        m_Above.push_back(identity);
        std::unique_ptr<SSourceDirectory> below = Read(path);
        m_Above.pop_back();
        directory.m_Entries.push_back({std::move(path), std::move(below)});
    }

    IFileSystem& m_Files;
    IQuestions& m_Questions;
    // Identities of the directories from the root to the one that is being read.
    std::vector<std::pair<std::uint64_t, std::uint64_t>> m_Above;
};
} // namespace

std::unique_ptr<SSourceDirectory> ReadSourceTree(IFileSystem& files, IQuestions& questions,
                                                 std::u16string_view root)
{
    return CSourceWalk(files, questions).ReadRoot(root);
}
