#include "SampleCopy.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace
{
// Where the value of `key` begins and ends in the section that begins at `section`; empty when it has none.
std::pair<std::size_t, std::size_t> FindValue(const std::u16string& text, std::size_t section,
                                              const std::u16string& key)
{
    const std::size_t end = std::min(text.find(u"\r\n[", section), text.size());
    const std::size_t at = text.find(u"\r\n" + key + u"=", section);
    if (at >= end)
        return {};
    const std::size_t begin = at + 2 + key.size() + 1;
    return {begin, text.find(u"\r\n", begin)};
}
} // namespace

CSampleCopy::CSampleCopy()
{
    fs::copy(OUTPOST_DIRECTORY, m_Scratch.GetPath() / "outpost", fs::copy_options::recursive);
    // What somebody packed in the source tree is no part of the sample.
    fs::remove(PathOf("outpost/Game/Outpost.Gamdb00p"));
    fs::remove(PathOf("outpost/Game/Outpost.manifest"));
}

int CSampleCopy::RunShell(const std::string& command) const
{
    const std::string line = command + " >'" + PathOf("output") + "' 2>'" + PathOf("error") + "' </dev/null";
    const int status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void CSampleCopy::SetValue(const std::string& file, const std::u16string& section, const std::u16string& key,
                           const std::u16string& value) const
{
    const std::string path = "outpost/Database/" + file;
    std::u16string text = m_Scratch.ReadUtf16(path);
    const std::size_t at = text.find(u"[" + section + u"]\r\n");
    ASSERT_NE(at, std::u16string::npos) << file;
    const auto [begin, end] = FindValue(text, at, key);
    ASSERT_NE(begin, 0U) << file;
    text.replace(begin, end - begin, value);
    if (const auto [from, to] = FindValue(text, at, u"Inherit"); from != 0 && key != u"Inherit")
        text.replace(from, to - from, u"False");
    m_Scratch.WriteUtf16(path, text);
}
