#include "Streams.h"

#include "NodeView.h"
#include "Unicode.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <new>
#include <unistd.h>

namespace
{
CFileError ReadStandardInput(CFileBuffer& content)
{
    std::string text;
    std::array<char, 64 * 1024> block;
    for (;;)
    {
        const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return CFileError::FromErrno(errno);
        if (count == 0)
            break;
        text.append(block.data(), static_cast<std::size_t>(count));
    }
    content.Resize(text.size());
    std::copy(text.begin(), text.end(), reinterpret_cast<char*>(content.GetBytes().data()));
    return {};
}

CFileError ReadAny(IFileSystem& files, std::u16string_view path, CFileBuffer& content)
try
{
    return path == kStandardStream ? ReadStandardInput(content) : files.ReadFile(path, content, nullptr);
}
catch (const std::bad_alloc&)
{
    return {EFileError::OutOfMemory, ENOMEM};
}
} // namespace

void TellError(std::string_view text)
{
    const std::string line = "zrc: " + std::string(text) + '\n';
    std::fputs(line.c_str(), stderr);
}

std::string Quote(std::u16string_view path)
{
    return '\'' + EscapeControls(ToNarrow(path)) + '\'';
}

std::string Describe(std::u16string_view path)
{
    return path == kStandardStream ? "The standard stream" : "The file " + Quote(path);
}

void TellFailure(std::u16string_view path, std::string_view what, const CFileError& error)
{
    TellError(Describe(path) + ' ' + std::string(what) + ": " + ToNarrow(error.GetText()) + '.');
}

bool ReadInput(IFileSystem& files, std::u16string_view path, CFileBuffer& content)
{
    const CFileError error = ReadAny(files, path, content);
    if (!error.IsOk())
        TellFailure(path, "could not be read", error);
    return error.IsOk();
}

bool WriteDescriptor(int descriptor, std::string_view text)
{
    while (!text.empty())
    {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}
