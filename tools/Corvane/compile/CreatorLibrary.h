// The game's creator library: loaded at its first use and kept for the life of the process, since the
// interfaces that it hands out live that long.
#pragma once

#include <string_view>

class CModuleFinder;
class IDatabaseCreatorMgr;
class IDatabaseCreatorUnpackedMgr;

// Null when the library or its export is missing, when the export gives nothing and when it throws. `path` is
// the locator's. A library that could not be loaded is tried again at the next call.
[[nodiscard]] IDatabaseCreatorMgr* LoadDatabaseCreator(const CModuleFinder& modules,
                                                       std::u16string_view path);
[[nodiscard]] IDatabaseCreatorUnpackedMgr* LoadUnpackedDatabaseCreator(const CModuleFinder& modules,
                                                                       std::u16string_view path);
