// Writes the resource database of the loaded database: every record as a resource, and every file, sound,
// effect, string and record that its attributes name as a dependency of the record.
//
// The file is in the compressed form when its name ends in 'c' or 'C', else plain text. The same database
// gives the same bytes. Only attributes that are in force for the active build count.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

class CCorvaneMgr;
class IWorkerRunner;
struct CFileError;

class CDependencyOutput
{
public:
    // `manager` is not owned; its database does not change during a save. Nor is `runner`; without one the
    // host shows the progress.
    explicit CDependencyOutput(const CCorvaneMgr& manager, IWorkerRunner* runner = nullptr)
        : m_Manager(manager), m_pRunner(runner)
    {
    }

    // Runs under a progress. 0; kResultCancelled; kExitFailed, with the cause in GetFailure.
    // Whatever fails, an old file keeps its bytes. Nothing is told: a failure only closes the progress.
    [[nodiscard]] std::int32_t SaveDependencies(std::u16string_view file);

    // Why the last save failed, for a sentence that ends in it; empty when it did not.
    [[nodiscard]] const std::u16string& GetFailure() const { return m_sFailure; }
    // Of the last save: names that a reader of the file does not get back as they are, since the form has no
    // way to write a double quote or a control character. UTF-8. They are written all the same.
    [[nodiscard]] const std::set<std::string>& GetInexactNames() const { return m_InexactNames; }

private:
    [[nodiscard]] std::int32_t Fail(const CFileError& error);

    const CCorvaneMgr& m_Manager;
    IWorkerRunner* m_pRunner;
    std::u16string m_sFailure;
    std::set<std::string> m_InexactNames;
};
