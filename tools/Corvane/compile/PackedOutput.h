// The file that a compile writes: it grows under a temporary name in the target's directory and takes the
// target's place only when it is complete. Until then, and after any failure, the old file stays as it was.
#pragma once

#include "FileSystem.h"
#include "izroutconverter.h"

#include <memory>
#include <string>
#include <string_view>

class CPackedOutput
{
public:
    // `files` is not owned.
    CPackedOutput(IFileSystem& files, std::u16string_view target);
    // Removes the temporary file of an output that was not committed.
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
    std::u16string m_sTarget;
    std::u16string m_sTemporary;
    std::unique_ptr<IZROutStream> m_pStream;
    bool m_bExists = false; // There is a temporary file.
};
