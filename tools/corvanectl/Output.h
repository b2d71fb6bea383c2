// Where a sub-command's result and its words to the user go.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class IFileSystem;
struct CFileError;

// A message on standard error, with the program's name ahead. `text` is UTF-8 without a line end at its end.
void PrintError(std::string_view text);

// A text as part of one line: control characters become blanks, so that a value can neither break the line
// nor drive a terminal.
[[nodiscard]] std::u16string MakeLine(std::u16string_view text);
// "1 record", "2 records".
[[nodiscard]] std::string Count(std::size_t number, std::string_view thing);

// The result on standard output. The status is kStatusOk, or kStatusNotWritten with a message.
[[nodiscard]] int PrintResult(std::string_view text);

// Whether both paths lead to one file that exists.
[[nodiscard]] bool IsSameFile(IFileSystem& files, std::u16string_view a, std::u16string_view b);

// Tells why a file could not be written.
void TellNotWritten(std::u16string_view path, const CFileError& error);

// The result in a file: the file is written whole or keeps what it had, also when the run is ended by a
// signal. False, with a message that names file and cause, when it cannot be written.
[[nodiscard]] bool WriteResult(IFileSystem& files, std::u16string_view path, std::string_view text);
