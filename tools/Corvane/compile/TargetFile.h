// A file that an output replaces: it grows under a temporary name in the target's directory and takes the
// target's place only when it is complete. Until then, and after any failure, the old file stays as it was.
#pragma once

#include "FileSystem.h"

#include <string>
#include <string_view>

class CTargetFile
{
public:
    // `files` is not owned.
    CTargetFile(IFileSystem& files, std::u16string_view target);
    // Removes the temporary file of an output that was not committed.
    ~CTargetFile();
    CTargetFile(const CTargetFile&) = delete;
    CTargetFile& operator=(const CTargetFile&) = delete;

    // Refuses a target that a plain write could not open, such as a directory or a read-only file.
    [[nodiscard]] CFileError Check();
    [[nodiscard]] const std::u16string& GetTemporary() const { return m_sTemporary; }
    // The temporary file is about to be made by a writer.
    void SetWritten() { m_bWritten = true; }
    // Puts the written and closed temporary file in the target's place.
    [[nodiscard]] CFileError Commit();

private:
    IFileSystem& m_Files;
    std::u16string m_sTarget;
    std::u16string m_sTemporary;
    bool m_bWritten = false;
};
