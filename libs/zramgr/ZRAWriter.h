// Writes node text: lists in parentheses, atoms with a blank behind them, indented by tabs.
// docs/formats/node-text.md tells the form.
//
// Texts are UTF-8 and are written as they are: see CZRAUtil::IsTextExact for those that a reader does not get
// back. A false result is a failed write, or a call on a writer that is not open; what was written is in the
// file only when `Close` has returned true.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

class CZRAFile;

class CZRAWriter
{
public:
    CZRAWriter();
    // Closes a plain or a newly written file; an append to a compressed one is given up. See CZRAFile.
    ~CZRAWriter();
    CZRAWriter(const CZRAWriter&) = delete;
    CZRAWriter& operator=(const CZRAWriter&) = delete;

    // The file name is UTF-8. See CZRAFile for appending.
    [[nodiscard]] bool Open(const char* pszFilename, bool bCompress, bool bAppend);
    [[nodiscard]] bool BeginNode();
    // False, with an assertion, when no list is open.
    [[nodiscard]] bool EndNode();
    [[nodiscard]] bool Write(const void* pData, std::size_t nLength, bool bQuoted);
    [[nodiscard]] bool Write(const char* pszText, bool bQuoted);
    // True when the whole text is in the file; true when not open.
    [[nodiscard]] bool Close();

    [[nodiscard]] bool IsValid() const;
    // The system's error number of the first failure since `Open`, 0 without one.
    [[nodiscard]] int GetError() const;

private:
    [[nodiscard]] bool WriteText(std::string_view sText);
    [[nodiscard]] bool WriteTabs(std::uint32_t nCount);

    std::unique_ptr<CZRAFile> m_pFile;
    std::uint32_t m_nDepth = 0;
    bool m_bJustClosed = false;
    bool m_bNewLine = true; // Before the next list.
};
