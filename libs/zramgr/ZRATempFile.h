// A file of a unique name that is gone when the object goes, unless it has taken another file's place by
// then. Names are the operating system's, in UTF-8.
#pragma once

#include <cstdio>
#include <string>

class CZRATempFile
{
public:
    CZRATempFile() = default;
    ~CZRATempFile();
    CZRATempFile(const CZRATempFile&) = delete;
    CZRATempFile& operator=(const CZRATempFile&) = delete;

    // A file "zraXXXXXX" in the system's temporary directory, readable by its owner only. Its name is dropped
    // at once, so that not even a killed program leaves it behind.
    [[nodiscard]] bool CreateScratch();
    // A file in the directory of `sTarget`, with a name that no loader takes.
    [[nodiscard]] bool CreateBeside(const std::string& sTarget);

    // For reading and writing; the object's own. Null before a creation and after ReplaceFile.
    [[nodiscard]] std::FILE* GetStream() const { return m_pStream; }

    // Brings what was written to the disk and renames the file over `sTarget`, whose access mode it takes.
    // After a failure `sTarget` is as it was.
    [[nodiscard]] bool ReplaceFile(const std::string& sTarget);
    // The system's error number of the operation that failed.
    [[nodiscard]] int GetError() const { return m_nError; }

private:
    [[nodiscard]] bool Create(std::string sPattern);
    // Keeps the cause; always false.
    bool Fail();

    std::string m_sName; // Empty when there is no name to remove.
    std::FILE* m_pStream = nullptr;
    int m_nError = 0;
};
