// One run of the random driver: a small database, lines of the script language, and what has to hold after
// each of them. The same lines give the same run.
#pragma once

#include "DatabaseScript.h"

#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

class COperationRun
{
public:
    // Two checks join the commands of the language: the last groups are undone and saved, which gives the
    // bytes back that the run began with; and a save and a load give what is in memory.
    static constexpr const char* kCheckUndo = "check-undo";
    static constexpr const char* kCheckReload = "check-reload";

    COperationRun();

    // Runs a line; the answer is what does not hold, or empty.
    [[nodiscard]] std::string Execute(const std::string& line);
    // Let records move and go that others link to or inherit from, which no undo brings back whole.
    static constexpr const char* kFree[] = {"answer Record Dependencies;Yes", "answer Record References;Yes"};
    // A line that fits the state. `whole` leaves out what the undo does not bring back.
    [[nodiscard]] std::string Choose(std::mt19937& random, bool whole);

private:
    using Bytes = std::map<std::string, std::string>;
    using Records = std::vector<CRef<CCorvaneRecord>>;

    [[nodiscard]] CCorvaneMgr& Manager() { return m_Script.GetDatabase().Get(); }
    [[nodiscard]] Bytes ReadFiles();
    [[nodiscard]] Records GetRecords();
    [[nodiscard]] std::vector<CCorvaneCategory*> GetCategories();
    [[nodiscard]] std::string Show();

    [[nodiscard]] std::string Run(const std::string& line);
    [[nodiscard]] std::string CheckUndo();
    [[nodiscard]] std::string CheckReload();
    [[nodiscard]] std::string CheckFiles();
    [[nodiscard]] std::string CheckLookUps();
    // As a key: the same file in any letter case.
    [[nodiscard]] std::string GetFoldedPath(const std::string& name);
    // Of what the objects held before a command, files may stay that nobody holds any more only where the
    // operation says so.
    [[nodiscard]] std::string CheckLeft(const std::map<std::string, CRef<CCorvaneRecord>>& before);
    [[nodiscard]] std::map<std::string, CRef<CCorvaneRecord>> GetHeldFiles();
    [[nodiscard]] static bool MayLeave(const CCorvaneRecord& record, std::u16string_view directory);
    void LeaveUnheld();
    [[nodiscard]] bool IsAnyBroken();
    [[nodiscard]] std::string RemoveLeft();
    [[nodiscard]] std::string Fill(char mark, std::mt19937& random);
    [[nodiscard]] std::string ChooseCategory(std::mt19937& random,
                                             const std::function<bool(CCorvaneCategory&)>& fits);
    [[nodiscard]] std::string ChooseRecord(std::mt19937& random,
                                           const std::function<bool(const CCorvaneRecord&)>& fits);

    CDatabaseScript m_Script;
    Bytes m_First;
    std::set<std::string> m_Left;    // Files that an operation leaves behind.
    std::set<std::string> m_Foreign; // Files that are no object's.
    CCorvaneRecord* m_pChosen = nullptr;
    int m_nNames = 0;
};
