// Writes a dependency file beside every root file below a directory: the dependency run of the program.
//
// What fails is told and the walk goes on: a root that does not load keeps its old dependency file. Each file
// that is written is told too. A cancel ends the walk.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

class CCorvaneMgr;
class IQuestions;
struct SDirectoryEntry;

class CDependencyUpdate
{
public:
    // Loads a root file in place of the open database; false has told why.
    using FOpen = std::function<bool(std::u16string_view rootFile)>;

    // `manager` is the one that `open` loads into. `failures` hears of what fails, in a silent run too: the
    // run's status says nothing of it. Neither is owned.
    CDependencyUpdate(CCorvaneMgr& manager, FOpen open, IQuestions& failures)
        : m_Manager(manager), m_Open(std::move(open)), m_Failures(failures)
    {
    }

    // Entries of a directory come in the order of their names, the content of a directory in its place. A
    // directory that several links lead to is walked once. False when it was cancelled.
    bool Run(std::u16string_view directory);

private:
    using DirectoryId = std::pair<std::uint64_t, std::uint64_t>;

    [[nodiscard]] bool WalkDirectory(std::u16string_view directory, const DirectoryId& id);
    [[nodiscard]] bool Visit(std::u16string_view directory, const SDirectoryEntry& entry);
    // False when it was cancelled.
    [[nodiscard]] bool UpdateRoot(std::u16string_view rootFile);
    [[nodiscard]] bool TellCancel() const;

    CCorvaneMgr& m_Manager;
    FOpen m_Open;
    IQuestions& m_Failures;
    std::set<DirectoryId> m_Walked;
};
