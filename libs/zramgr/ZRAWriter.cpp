#include "ZRAWriter.h"

#include "ZRAFile.h"
#include "zrassert.h"

#include <cstring>

CZRAWriter::CZRAWriter() : m_pFile(std::make_unique<CZRAFile>()) {}

CZRAWriter::~CZRAWriter() = default;

bool CZRAWriter::Open(const char* pszFilename, bool bCompress, bool bAppend)
{
    m_nDepth = 0;
    m_bJustClosed = false;
    m_bNewLine = true;
    return m_pFile->Open(pszFilename, false, bCompress, bAppend);
}

bool CZRAWriter::BeginNode()
{
    ZRASSERT(IsValid());
    if (!IsValid())
        return false;
    if (m_bNewLine && !(WriteText("\n") && WriteTabs(m_nDepth)))
        return false;
    if (m_bJustClosed && !WriteText("\t"))
        return false;
    ++m_nDepth;
    m_bJustClosed = false;
    m_bNewLine = true;
    return WriteText("(");
}

bool CZRAWriter::EndNode()
{
    ZRASSERT(IsValid());
    if (!IsValid())
        return false;
    if (m_nDepth == 0)
    {
        ZRASSERT(false);
        return false;
    }
    --m_nDepth;
    m_bJustClosed = true;
    m_bNewLine = false;
    return WriteText(")\n") && WriteTabs(m_nDepth == 0 ? 0 : m_nDepth - 1);
}

bool CZRAWriter::Write(const void* pData, std::size_t nLength, bool bQuoted)
{
    ZRASSERT(IsValid());
    ZRASSERT(pData);
    if (!IsValid() || pData == nullptr)
        return false;
    if (m_bJustClosed && !WriteText("\t"))
        return false;
    m_bJustClosed = false;
    m_bNewLine = true;
    const std::string_view quote = bQuoted ? "\"" : "";
    return WriteText(quote) && m_pFile->WriteBlock(pData, nLength) && WriteText(quote) && WriteText(" ");
}

bool CZRAWriter::Write(const char* pszText, bool bQuoted)
{
    ZRASSERT(pszText);
    return pszText != nullptr && Write(pszText, std::strlen(pszText), bQuoted);
}

bool CZRAWriter::Close()
{
    m_nDepth = 0;
    return m_pFile->Close();
}

bool CZRAWriter::IsValid() const
{
    return m_pFile->IsOpen();
}

int CZRAWriter::GetError() const
{
    return m_pFile->GetError();
}

bool CZRAWriter::WriteText(std::string_view sText)
{
    return m_pFile->WriteBlock(sText.data(), sText.size());
}

bool CZRAWriter::WriteTabs(std::uint32_t nCount)
{
    for (std::uint32_t i = 0; i < nCount; ++i)
    {
        if (!WriteText("\t"))
            return false;
    }
    return true;
}
