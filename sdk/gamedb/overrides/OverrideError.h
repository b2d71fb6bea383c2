// Why a line of an override text, or a whole file, was not applied.
#pragma once

#include <string>
#include <utility>

enum class EOverrideCause
{
    None,
    // The file as a whole: it cannot be read, is no limits file or no text, or describes another database.
    UnreadableFile,
    DamagedLimits,
    ForeignDatabase,
    // One line.
    BrokenLine,
    UnknownName,
    RepeatedName,
    WrongCount,
    BadValue,
    OutOfLimits,
};

struct SOverrideError
{
    EOverrideCause cause = EOverrideCause::None;
    // A sentence without its point.
    std::string message;

    // False, so that a reader can end with it.
    [[nodiscard]] bool Set(EOverrideCause why, std::string text)
    {
        cause = why;
        message = std::move(text);
        return false;
    }
};
