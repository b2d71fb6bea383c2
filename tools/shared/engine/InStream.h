// The system's side of IZRInStream: a file as it stood when it was opened.
//
// The content is read and not mapped: tools that compile string tables write their output in place, and a
// mapping of a file that another program shortens ends the process at the next access.
#pragma once

#include "FileSystem.h"
#include "izrinstream.h"

#include <memory>
#include <string_view>

struct CInStreamRelease
{
    void operator()(IZRInStream* stream) const { stream->Release(); }
};
using CInStreamRef = std::unique_ptr<IZRInStream, CInStreamRelease>;

// Null with `error` set on failure. The stream may outlive `files`.
[[nodiscard]] CInStreamRef OpenInStream(IFileSystem& files, std::u16string_view path, CFileError& error);
