#include "PackedOutput.h"

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

// Refuses what must not be replaced by a file.
CFileError CheckTarget(IFileSystem& files, std::u16string_view target)
{
    SFileInfo info;
    if (const CFileError error = files.GetInfo(target, info); !error.IsOk() || !info.m_bExists)
        return error;
    if (info.m_bDirectory)
        return {EFileError::NotAFile, 0};
    if (info.m_bReadOnly)
        return {EFileError::ReadOnly, 0};
    // A device or a pipe has no size and cannot be read as a file; a rename would put a file in its place.
    CFileBuffer content;
    return info.m_Stamp.m_nSize == 0 ? files.ReadFile(target, content, nullptr) : CFileError{};
}
} // namespace

CPackedOutput::CPackedOutput(IFileSystem& files, std::u16string_view target)
    : m_Files(files), m_sTarget(target), m_sTemporary(MakeTemporaryName(target))
{
}

CPackedOutput::~CPackedOutput()
{
    if (m_pStream)
        static_cast<void>(m_Files.CloseStream(std::move(m_pStream)));
    if (m_bExists)
        static_cast<void>(m_Files.Remove(m_sTemporary));
}

CFileError CPackedOutput::Open()
{
    if (const CFileError refusal = CheckTarget(m_Files, m_sTarget); !refusal.IsOk())
        return refusal;
    CFileError error;
    m_pStream = m_Files.OpenStream(m_sTemporary, error);
    m_bExists = m_pStream != nullptr;
    return error;
}

bool CPackedOutput::Commit()
{
    const bool complete = !m_pStream->HasFailed();
    // Closing comes first in any case: it releases the file.
    const bool closed = m_Files.CloseStream(std::move(m_pStream)).IsOk();
    if (!complete || !closed || !m_Files.Rename(m_sTemporary, m_sTarget, true).IsOk())
        return false;
    m_bExists = false;
    return true;
}
