// The walk that hands every overridable attribute to the game's creator library, and the save of the two
// files. For RunWorker: it only reads the database.
#pragma once

#include <cstdint>
#include <string>

class CCorvaneMgr;
class IDatabaseCreatorUnpackedMgr;
class IWorkerEvents;

// Nothing is owned.
struct SOverrideParameters
{
    const CCorvaneMgr* m_pManager = nullptr;
    IDatabaseCreatorUnpackedMgr* m_pCreator = nullptr; // Null when the library has none, which is a failure.
    std::string m_sDatabase;                           // The operating system's paths, in UTF-8.
    std::string m_sConstraints;
    std::uint32_t m_nBuild = 0;
};

// 0, or kResultNoParameters for null, kExitFailed when the library refuses anything, kResultCancelled.
[[nodiscard]] std::int32_t SaveOverrides(const SOverrideParameters* parameters, IWorkerEvents& events);
