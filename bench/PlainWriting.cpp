#include "PlainWriting.h"

#include "Descriptor.h"

#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <unistd.h>

namespace
{
constexpr char16_t kMark = 0xFEFF;

SPlainFile ReadFileLines(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::u16string text(bytes.size() / 2, u'\0');
    bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * 2);
    if (text.empty() || text.front() != kMark)
        throw std::runtime_error(path + " is no UTF-16 text.");
    SPlainFile file{path, {}};
    std::size_t begin = 1;
    for (std::size_t end = 0; (end = text.find(u"\r\n", begin)) != std::u16string::npos; begin = end + 2)
        file.m_Lines.push_back(text.substr(begin, end - begin));
    return file;
}

bool ReplaceOne(const SPlainFile& file)
{
    std::u16string text(1, kMark);
    for (const std::u16string& line : file.m_Lines)
        text.append(line).append(u"\r\n");
    const std::string temporary = file.m_sPath + ".plain-tmp";
    CDescriptor out;
    out.Reset(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    const auto size = static_cast<ssize_t>(text.size() * 2);
    return out.IsOpen() && ::write(out.Get(), text.data(), static_cast<std::size_t>(size)) == size &&
           ::fsync(out.Get()) == 0 && out.Close().IsOk() &&
           std::rename(temporary.c_str(), file.m_sPath.c_str()) == 0;
}
} // namespace

std::vector<SPlainFile> ReadLines(std::span<const std::string> paths)
{
    std::vector<SPlainFile> files;
    for (const std::string& path : paths)
        files.push_back(ReadFileLines(path));
    return files;
}

bool ReplacePlainly(const std::vector<SPlainFile>& files)
{
    for (const SPlainFile& file : files)
    {
        if (!ReplaceOne(file))
            return false;
    }
    return true;
}
