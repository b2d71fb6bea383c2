// Why a line of an override text, or a whole file, was not applied.
#pragma once

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
