#include "PackedOutput.h"

CPackedOutput::CPackedOutput(IFileSystem& files, std::u16string_view target)
    : m_Files(files), m_Target(files, target)
{
}

CPackedOutput::~CPackedOutput()
{
    if (m_pStream)
        static_cast<void>(m_Files.CloseStream(std::move(m_pStream)));
}

CFileError CPackedOutput::Open()
{
    if (const CFileError refusal = m_Target.Check(); !refusal.IsOk())
        return refusal;
    CFileError error;
    m_pStream = m_Files.OpenStream(m_Target.GetTemporary(), error);
    if (m_pStream)
        m_Target.SetWritten();
    return error;
}

bool CPackedOutput::Commit()
{
    const bool complete = !m_pStream->HasFailed();
    // Closing comes first in any case: it releases the file.
    const bool closed = m_Files.CloseStream(std::move(m_pStream)).IsOk();
    return complete && closed && m_Target.Commit().IsOk();
}
