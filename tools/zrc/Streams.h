// The files and standard streams that the commands read and write, and their messages.
#pragma once

#include "FileSystem.h"

#include <string>
#include <string_view>

// The name of the standard input or output among the arguments.
inline constexpr std::u16string_view kStandardStream = u"-";

// A message on standard error, with the program's name ahead. UTF-8, without a line end.
void TellError(std::string_view text);
// A path in quotes for a message, with its control characters escaped.
[[nodiscard]] std::string Quote(std::u16string_view path);
// "The file 'x'", or what stands for it.
[[nodiscard]] std::string Describe(std::u16string_view path);
// "The file 'x' could not be read: CAUSE." `what` is the middle, such as "could not be read".
void TellFailure(std::u16string_view path, std::string_view what, const CFileError& error);

// The whole of a file or of the standard input. False with a message.
[[nodiscard]] bool ReadInput(IFileSystem& files, std::u16string_view path, CFileBuffer& content);
// Writes everything to a descriptor; false with errno.
[[nodiscard]] bool WriteDescriptor(int descriptor, std::string_view text);
