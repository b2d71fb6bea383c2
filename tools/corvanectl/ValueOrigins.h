// Where the values that an attribute shows are stored: which record along the chain of inheritance holds
// them, and whether that record's file has them or the schema's default stands in.
//
// The model does not keep what a file left out, so that the files of the records concerned are read once
// more.
#pragma once

#include "UnicodeFileParse_ReadOnly.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CCorvaneAttrib;
class CCorvaneRecord;

struct SValueOrigin
{
    // The records above the attribute's own through which it inherits, the nearest first.
    std::vector<const CCorvaneRecord*> m_Chain;
    // The attribute of the last of them, or the attribute itself.
    const CCorvaneAttrib* m_pHolder = nullptr;
    // How many values the holder's file has: those behind are the default's. Of a struct: 1 when the file
    // has any row or mark of it.
    std::size_t m_nStored = 0;
    // The file does not know this entry of the attribute, so that the values of an older one were taken over.
    std::optional<std::uint32_t> m_nOlderBuild;
};

class CValueOrigins
{
public:
    // `files` is not owned.
    explicit CValueOrigins(IFileSystem& files) : m_Files(files) {}

    [[nodiscard]] SValueOrigin Find(const CCorvaneAttrib& attrib);

private:
    [[nodiscard]] const CUnicodeFileParse_ReadOnly& Open(const CCorvaneRecord& record);

    IFileSystem& m_Files;
    std::map<const CCorvaneRecord*, std::unique_ptr<CUnicodeFileParse_ReadOnly>> m_Parsers;
};
