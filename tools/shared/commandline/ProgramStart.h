// What the programs do with the shell's side of their start.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The arguments behind the program's name. Also sees to it that the three standard streams are open: a build
// machine may start a program without them, and their numbers must not go to the next files that are opened,
// since a message would be written into a database.
[[nodiscard]] std::vector<std::u16string> TakeArguments(int argc, const char* const* argv);

// The full path of a file as a shell or a desktop may hand it over: in quotes, relative to the current
// directory.
[[nodiscard]] std::u16string MakeDocumentPath(std::u16string_view path);
