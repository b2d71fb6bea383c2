// Runs the scripts "*.records" of this folder: golden files whose commands do to the records of a database
// what a user does. The answer to a command tells whether it was refused, the questions, the events, the
// record files that it changed, and the records when they have changed.
//
//   insert <category>, delete <record>, rename <record>;<name>, move <record>;<category>
//   clone <record>;<category>, reference <record>;<category>, refresh-move <record>;<category>
//   undo, redo, save, set <record>;<text>, write <record>;<text> (its file), load <record>, window <record>
//   directory <file>, fail <number of a file operation, or 0>, no-bin, answer <title>;<Yes|No>...
//   grants <number of check-outs that source control grants>, disconnect
// A record is told as its path, '*' when it is modified, its text and its link, '<' and its parent.
#include "CorvaneType.h"
#include "GoldenText.h"
#include "RecordDocument.h"
#include "TestDatabase.h"
#include "UndoScope.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <sstream>

namespace fs = std::filesystem;

namespace
{
class CScript : CTestDatabase, IRecordDocument
{
public:
    CScript()
    {
        AddSchema("S", "[Attrib.T.0]\nType=Text\nInherit=True\n\n[Attrib.L.0]\nType=RecordLink\nData=S\n\n");
        AddSchema("Other", "");
        AddCategory("X", "Other");
        for (const char* category : {"C", "C/D", "E"})
            AddCategory(category, "S");
        AddRecord("C/Top", "S", "[Attrib.T]\nValue.0000=top\n", "Comment=c\n");
        AddRecord("C/Kid", "S", "[Hierarchy]\nRecord=C/Top\n[Attrib.T]\nInherit=True\nValue.0000=top\n");
        AddRecord("C/Far", "S", "[Attrib.L]\nValue.0000=C/Top\n", "VirtualRelativeCategory=V\n");
        AddRecord("E/End", "S");
        EXPECT_TRUE(Open() && Get().SaveDatabase({}, true));
        m_sRecords = Show();
    }

    std::string Execute(const std::string& line)
    {
        m_Arguments = std::istringstream(line);
        m_Questions.Clear();
        m_Events.clear();
        m_sAnswer.clear();
        const Snapshot before = TakeSnapshot();
        std::string command;
        m_Arguments >> command >> std::ws;
        if (!m_Commands.at(command)())
            m_sAnswer += "refused\n";
        for (const CQuestion& question : m_Questions.GetQuestions())
            m_sAnswer +=
                ToNarrow(question.m_sTitle) + ": " +
                ReplaceAll(ReplaceAll(ToNarrow(question.m_sText), "\n", "|"), GetPath("").string(), "~") +
                '\n';
        std::string events = command == "save" ? "" : "events";
        for (const int event : m_Events)
            events += command == "save" ? "" : " " + std::to_string(event);
        const std::string changes = ReplaceAll(GetChanges(before), "Game/Database/", " ");
        const std::string records = Show();
        m_sAnswer += (events.size() > 6 ? events + '\n' : "") +
                     (changes.empty() ? "" : "files" + changes + '\n') +
                     (records == m_sRecords ? "" : records + '\n');
        m_sRecords = records;
        return m_sAnswer;
    }

private:
    std::string Text()
    {
        std::string text;
        std::getline(m_Arguments, text, ';');
        return text;
    }
    CCorvaneRecord& NextRecord() { return Record(Text()); }
    CCorvaneCategory* NextCategory() { return &Category(Text()); }
    template <class Command> bool Do(Command command)
    {
        CUndoScope scope(m_Undo);
        const bool done = command();
        if (done)
            scope.Accept(u"command");
        return done;
    }
    bool Rename()
    {
        CCorvaneRecord& record = NextRecord();
        const std::u16string name = ToWide(Text());
        return Do([&] { return Get().CheckRecordRename(record, name) && Get().RenameRecord(record, name); });
    }
    template <class Operation> bool WithPlace(Operation operation)
    {
        CCorvaneRecord& record = NextRecord();
        CCorvaneCategory* category = NextCategory();
        return Do([&] { return operation(record, category); });
    }
    bool Write()
    {
        const std::string path = Text();
        return AddRecord(path, "S", "[Attrib.T]\nValue.0000=" + Text() + "\n"), true;
    }
    bool Load()
    {
        const fs::path path = Text();
        return Get().AddRecordFile(GetText(path.string() + ".record"), Category(path.parent_path().string()));
    }
    bool Prepare()
    {
        const std::u16string title = ToWide(Text());
        std::vector<EAnswer> answers;
        while (m_Arguments.good())
            answers.push_back(Text() == "Yes" ? EAnswer::Yes : EAnswer::No);
        return m_Questions.Prepare(title, answers), true;
    }
    bool Fail()
    {
        const auto failing = static_cast<EFileOperation>(std::stoi(Text()));
        m_Failure = [failing](EFileOperation operation, std::u16string_view) {
            return failing != EFileOperation{} && operation == failing ? EFileError::DiskFull
                                                                       : EFileError::None;
        };
        return true;
    }
    bool Connect(bool connected)
    {
        m_Gate.m_bConnected = connected;
        m_Gate.m_nGrants = connected ? std::stoi(Text()) : -1;
        return true;
    }
    void OnRecordGone(CCorvaneRecord&) override { m_sAnswer += "window closed\n"; }
    void UpdateViews(ERecordUpdate) override {}

    std::string Show() const
    {
        std::string text;
        Get().EnumerateRecords(
            [&](CCorvaneRecord& record)
            {
                std::u16string path;
                Get().GetRecordDisplayPath(&record, path);
                text += (text.empty() ? "" : " ") + ToNarrow(path) +
                        (record.TestFlag(RECORD_FLAG_MODIFIED) ? "*(" : "(");
                for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
                    text += ToNarrow(attrib->GetValue(0)) + (attrib->GetName() == u"T" ? "," : "");
                text += (record.GetParent() ? "<" + ToNarrow(record.GetParent()->GetName()) : "") + ")";
                return true;
            });
        return ReplaceAll(text, "<none>", "");
    }

    std::istringstream m_Arguments;
    std::string m_sAnswer;
    std::string m_sRecords;
    const std::map<std::string, std::function<bool()>> m_Commands{
        {"insert", [this] { return Do([&] { return Get().InsertRecord(NextCategory()) != nullptr; }); }},
        {"delete", [this] { return Do([&] { return Get().DeleteRecord(NextRecord(), true); }); }},
        {"rename", [this] { return Rename(); }},
        {"move",
         [this] { return WithPlace([&](auto& r, auto* c) { return Get().MoveRecord(c, r, false); }); }},
        {"refresh-move", [this]
         { return WithPlace([&](auto& r, auto* c) { return Get().MoveRecordUnchecked(c, r, true); }); }},
        {"clone",
         [this] { return WithPlace([&](auto& r, auto* c) { return Get().CopyRecord_Clone(c, &r, true); }); }},
        {"reference", [this]
         { return WithPlace([&](auto& r, auto* c) { return Get().CopyRecord_Reference(c, &r, true); }); }},
        {"undo", [this] { return m_Undo.Undo(1); }},
        {"redo", [this] { return m_Undo.Redo(1); }},
        {"save", [this] { return Get().SaveDatabase({}, false); }},
        {"set",
         [this]
         {
             const std::string path = Text();
             return Attrib(path, "T").SetValue(0, ToWide(Text()));
         }},
        {"write", [this] { return Write(); }},
        {"load", [this] { return Load(); }},
        {"window", [this] { return NextRecord().SetDocument(this), true; }},
        {"directory",
         [this]
         {
             const fs::path path = GetPath(Text());
             return fs::remove(path) && fs::create_directory(path);
         }},
        {"fail", [this] { return Fail(); }},
        {"no-bin", [this] { return !(m_Services.m_bBin = false); }},
        {"answer", [this] { return Prepare(); }},
        {"grants", [this] { return Connect(true); }},
        {"disconnect", [this] { return Connect(false); }},
    };
};
} // namespace

class RecordScript : public testing::TestWithParam<fs::path>
{
};

TEST_P(RecordScript, SaysWhatTheFileSays)
{
    CScript script;
    CheckGolden(GetParam(), [&](const std::string& line) { return script.Execute(line); });
}

INSTANTIATE_TEST_SUITE_P(Model, RecordScript, testing::ValuesIn(FindGoldenFiles(MODEL_FOLDER, ".records")),
                         [](const auto& entry) { return entry.param.stem().string(); });
