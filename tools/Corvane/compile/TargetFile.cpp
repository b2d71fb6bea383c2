#include "TargetFile.h"

#include "Guid.h"
#include "Path.h"

namespace
{
// In the target's directory, so that the last step is a rename. A name of its own for each run: two compiles
// of one target cannot write into one file. No loader takes the extension.
std::u16string MakeTemporaryName(std::u16string_view target)
{
    std::u16string path(GetDirectoryPart(target));
    return path.append(u".corvane-").append(CGuid::Create().ToText().substr(1, 8)).append(u".corvane-tmp");
}
} // namespace

CTargetFile::CTargetFile(IFileSystem& files, std::u16string_view target)
    : m_Files(files), m_sTarget(target), m_sTemporary(MakeTemporaryName(target))
{
}

CTargetFile::~CTargetFile()
{
    if (m_bWritten)
        static_cast<void>(m_Files.Remove(m_sTemporary));
}

CFileError CTargetFile::Check()
{
    SFileInfo info;
    if (const CFileError error = m_Files.GetInfo(m_sTarget, info); !error.IsOk() || !info.m_bExists)
        return error;
    if (info.m_bDirectory)
        return {EFileError::NotAFile, 0};
    if (info.m_bReadOnly)
        return {EFileError::ReadOnly, 0};
    // A device or a pipe has no size and cannot be read as a file; a rename would put a file in its place.
    CFileBuffer content;
    return info.m_Stamp.m_nSize == 0 ? m_Files.ReadFile(m_sTarget, content, nullptr) : CFileError{};
}

CFileError CTargetFile::Commit()
{
    const CFileError error = m_Files.Rename(m_sTemporary, m_sTarget, true);
    m_bWritten = m_bWritten && !error.IsOk();
    return error;
}
