// A node file in either of its forms, plain or compressed, written or read from start to end.
//
// A compressed stream cannot go on behind its end. To append to one, its text is expanded into a temporary
// file, the new text goes there, and `Close` compresses the whole back: into a file beside the old one, which
// then takes its place. Whatever fails, or when the object goes without a `Close`, the old file stays.
//
// File names are UTF-8, as the operating system spells them. One object for one thread; some 30 KB large.
#pragma once

#include "ZRACompressedFile.h"
#include "ZRAFileBuffer.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

class CZRATempFile;

class CZRAFile
{
public:
    CZRAFile();
    ~CZRAFile();
    CZRAFile(const CZRAFile&) = delete;
    CZRAFile& operator=(const CZRAFile&) = delete;

    // Appending while reading is refused, and so is appending to a compressed file that is not there or is no
    // such file. An open object is refused.
    [[nodiscard]] bool Open(const char* pszFilename, bool bRead, bool bCompressed, bool bAppend);
    // False at the end of the file and after a read error, which `GetError` tells apart.
    [[nodiscard]] bool ReadByte(std::uint8_t& nOut);
    [[nodiscard]] bool WriteByte(std::uint8_t nValue);
    [[nodiscard]] bool WriteBlock(const void* pData, std::size_t nLength);
    // True when everything since `Open` went well and the file has it. True when not open.
    [[nodiscard]] bool Close();

    [[nodiscard]] bool IsOpen() const { return m_Plain.IsOpen() || m_Compressed.IsOpen(); }
    // The system's error number of the first failure since `Open`; 0 without one, and for a file that is not
    // of the compressed form.
    [[nodiscard]] int GetError() const { return m_nError; }

private:
    [[nodiscard]] bool OpenAppend(const char* pszFilename);
    [[nodiscard]] bool Expand();
    [[nodiscard]] bool CloseAppend();
    [[nodiscard]] bool CompressInto(CZRATempFile& target);
    // Takes over the causes of the two files; hands `bDone` through.
    [[nodiscard]] bool Note(bool bDone);

    CZRAFileBuffer m_Plain;
    CZRACompressedFile m_Compressed;
    std::unique_ptr<CZRATempFile> m_pExpanded; // What is appended to; null otherwise.
    std::string m_sTarget; // The compressed file that is appended to, at the end of its links.
    int m_nError = 0;
};
