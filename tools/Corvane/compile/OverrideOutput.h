// The two files by which the administrator of a game server changes values without the packed database: a
// text of the attributes that are marked for it, and the data file of their limits. The game's creator
// library writes both; here it is decided which attributes it gets, and where the files go.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneMgr;
class IWorkerRunner;

// Both are full path texts.
struct SOverridePaths
{
    std::u16string m_sDatabase;
    std::u16string m_sConstraints;
};

class COverrideOutput
{
public:
    // `manager` is not owned, nor is `runner`; without one the host shows the progress.
    explicit COverrideOutput(CCorvaneMgr& manager, IWorkerRunner* runner = nullptr)
        : m_Manager(manager), m_pRunner(runner)
    {
    }

    // What a choice begins with: the paths of the root file.
    [[nodiscard]] SOverridePaths GetDefaultPaths() const;
    // What was chosen last, newest first.
    [[nodiscard]] std::vector<std::u16string> GetRecentDatabases() const;
    [[nodiscard]] std::vector<std::u16string> GetRecentConstraints() const;
    // The end of a choice: makes sure that each file can be a target, which leaves an empty one behind where
    // there was none, and keeps the paths as the newest. False has told which path it is, except in a silent
    // run, and keeps nothing.
    [[nodiscard]] bool AcceptPaths(const SOverridePaths& paths);

    // Writes the files for a build, which must be the active one: the members of structs know no other.
    // A target that is read-only is made writable. False has told of the failure; a cancel is one too.
    [[nodiscard]] bool CreateOverrideOutput(const SOverridePaths& paths, std::uint32_t build);

private:
    [[nodiscard]] bool CanBeTarget(std::u16string_view path, std::u16string_view title);
    void MakeWritable(std::u16string_view path);

    CCorvaneMgr& m_Manager;
    IWorkerRunner* m_pRunner;
};
