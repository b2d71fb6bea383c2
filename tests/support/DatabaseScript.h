// The language of the scripts that do to a whole database what a user does; docs/operation-scripts.md
// describes its commands. A line is one command; its answer is what came of it, a line for each: that it was
// refused, what the user was told, which assertions fired, what went to the recycle bin, and what the script
// watches.
//
// A script has a database of its own, whose end closes it and looks for objects that outlive it.
#pragma once

#include "RecordDocument.h"
#include "TestDatabase.h"

#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>

class CCorvaneTypeStruct;

class CDatabaseScript : private IRecordDocument
{
public:
    CDatabaseScript();
    ~CDatabaseScript() override = default;

    // A line that begins with no command is one of the text of the file that the last `file` or `record`
    // began. A name of something that is not there answers with an error.
    [[nodiscard]] std::string Execute(const std::string& line);
    [[nodiscard]] CTestDatabase& GetDatabase() { return m_Test; }

private:
    using Commands = std::map<std::string, std::function<void()>>;
    [[nodiscard]] Commands GetFileCommands();
    [[nodiscard]] Commands GetValueCommands();
    [[nodiscard]] Commands GetOperationCommands();
    [[nodiscard]] Commands GetHostCommands();

    // Arguments: words, those with blanks in double quotes.
    [[nodiscard]] std::string Word();
    [[nodiscard]] std::size_t Number() { return std::stoul(Word()); }
    [[nodiscard]] std::uint32_t Build() { return static_cast<std::uint32_t>(Number()); }
    [[nodiscard]] std::u16string Rest();
    [[nodiscard]] CCorvaneRecord& Record() { return m_Test.Record(Word()); }
    // Null for "", which is the root.
    [[nodiscard]] CCorvaneCategory* Category();
    [[nodiscard]] CCorvaneAttrib& Attrib();
    [[nodiscard]] CCorvaneTypeStruct& Struct();

    void BeginFile(const std::string& path, const std::string& head);
    void BeginSchema();
    void BeginRecord();
    void AddCategory();
    void WriteBytes();
    void Print();
    void Open();
    void Save();
    void Load();
    void Refresh();
    void SaySchemaFlags();

    // Runs a command in an undo group, as the views do; it becomes a part of the one that the script has
    // open.
    void Do(std::u16string_view text, const std::function<bool()>& command);
    void Set();
    void AddValue(CCorvaneAttrib& attrib, std::u16string_view value);
    void EditInherit();
    void Comment();
    void Defer(bool (CCorvaneMgr::*defer)(CCorvaneAttrib*, std::uint32_t));
    void Erase();
    void Ask(ECorvaneEvent code);
    void SayAvailable();
    void SayTarget();
    void SayLists();

    using RecordCopy = CCorvaneRecord* (CCorvaneMgr::*)(CCorvaneCategory*, CCorvaneRecord*, bool);
    using RecordMove = bool (CCorvaneMgr::*)(CCorvaneCategory*, CCorvaneRecord&, bool);
    void InsertRecord();
    void CopyRecord(RecordCopy copy);
    void DeleteRecord();
    void MoveRecord(RecordMove move, bool silent);
    void MoveVirtual();
    void RenameRecord();
    void InsertCategory();
    void CreateVirtual();
    using CategoryCopy = CCorvaneCategory* (CCorvaneMgr::*)(CCorvaneCategory*, CCorvaneCategory*, bool);
    void CopyCategory(CategoryCopy copy);
    void DeleteCategory();
    void AddSpecial();
    // Puts a record into the special category, as a comparison does.
    void Bring();
    void MoveCategory();
    void RenameCategory();
    // The number that the command may end with; otherwise 1.
    [[nodiscard]] std::size_t Count();

    void Watch();
    void Prepare();
    void Fail();
    void Connect(int grants);
    void OnRecordGone(CCorvaneRecord&) override { Say("window closed"); }
    void UpdateViews(ERecordUpdate) override { Say("window redrawn"); }

    int OnEvent(const CCorvaneEvent& event);
    [[nodiscard]] std::string GetEventObject(const CCorvaneEvent& event) const;
    void Say(const std::string& text) { m_sAnswer += text + '\n'; }
    void Need(bool done) { m_sAnswer += done ? "" : "refused\n"; }
    void TellOutcome();
    void TellQuestions();
    void TellAsserts();
    void TellChange(const std::string& kind, const std::string& now);
    void TellRecords();
    void TellFiles();
    // How many groups there are to undo and to redo, and the next ones.
    [[nodiscard]] std::string GetGroups() const;
    // Names of files without the directory of the database, line ends as "\n".
    [[nodiscard]] std::string Shorten(const std::string& text) const;

    CTestDatabase m_Test;
    Commands m_Commands;
    std::istringstream m_Arguments;
    std::string m_sFile;
    std::string m_sText;
    std::string m_sAnswer;
    std::set<std::string> m_Watched{"members", "values"};
    std::string m_sEvents;
    std::map<std::string, std::string> m_Told;    // What is watched -> as it was told last.
    std::map<std::string, std::string> m_Records; // Record -> its attributes.
    CTestDatabase::Snapshot m_Files;
    bool m_bHeld = false; // Something depends on every record.
    CObserverHandle m_Observer;
};
