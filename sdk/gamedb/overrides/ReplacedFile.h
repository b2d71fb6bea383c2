// A file that is written whole beside its target and then takes the target's place, so that a full disk or a
// crash leaves the old file. It can give the old file back as long as the object lives.
#pragma once

#include <string>
#include <string_view>

class CReplacedFile
{
public:
    // `path` is UTF-8, as the operating system spells it. A link is followed.
    explicit CReplacedFile(const std::string& path);
    ~CReplacedFile();
    CReplacedFile(const CReplacedFile&) = delete;
    CReplacedFile& operator=(const CReplacedFile&) = delete;

    // The file that the path leads to.
    const std::string& GetTarget() const { return m_sTarget; }

    // Writes the new file beside the target and brings it to the disk. False when the target is no file or
    // may not be written, or the disk takes no more; nothing is left behind then.
    [[nodiscard]] bool Write(std::string_view content);
    // Puts the new file in the target's place. False leaves the target as it was.
    [[nodiscard]] bool Replace();
    // Undoes Replace as far as the file system can: a target that did not exist is gone again.
    void Restore();

private:
    [[nodiscard]] bool IsWritable();

    std::string m_sTarget;
    std::string m_sNew;
    // Another name of the old file while it may come back.
    std::string m_sOld;
    bool m_bExisted = false;
    unsigned int m_nMode = 0666;
};
