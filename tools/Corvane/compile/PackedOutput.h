// The stream that a compile writes its file through; see CTargetFile for what becomes of the old file.
#pragma once

#include "TargetFile.h"
#include "izroutconverter.h"

#include <memory>
#include <string_view>

class CPackedOutput
{
public:
    // `files` is not owned.
    CPackedOutput(IFileSystem& files, std::u16string_view target);
    ~CPackedOutput();
    CPackedOutput(const CPackedOutput&) = delete;
    CPackedOutput& operator=(const CPackedOutput&) = delete;

    // Refuses a target that a plain write could not open, such as a directory or a read-only file.
    [[nodiscard]] CFileError Open();
    // Only after a good Open and before Commit.
    [[nodiscard]] IZROutStream& GetStream() { return *m_pStream; }
    // Brings the file to the disk and puts it in the target's place. False leaves the target as it was.
    [[nodiscard]] bool Commit();

private:
    IFileSystem& m_Files;
    CTargetFile m_Target;
    std::unique_ptr<IZROutStream> m_pStream;
};
