// What a restore point of a record or a category stands for.
#pragma once

enum class ERestoreAction : int
{
    Moved = 0,
    Cloned = 1,
    Referenced = 2,
    Inserted = 3,
    Deleted = 4,
    Renamed = 5,
};
