// Reads enum files (docs/formats/enum-files.md): UTF-16 with a mark, in either byte order, one value a line.
#pragma once

#include "FileSystem.h"

#include <memory>
#include <string_view>

class CEnumValueList;

struct SEnumFile
{
    std::shared_ptr<const CEnumValueList> m_pValues;
    SFileStamp m_Stamp;
};

class CEnumFileReader
{
public:
    // `files` is not owned.
    explicit CEnumFileReader(IFileSystem& files) : m_Files(files) {}

    // InvalidData when the file does not begin with a mark. A failure leaves `file` as it was.
    [[nodiscard]] CFileError Read(std::u16string_view path, SEnumFile& file);

private:
    IFileSystem& m_Files;
};
