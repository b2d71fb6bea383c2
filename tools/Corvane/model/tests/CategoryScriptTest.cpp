// Runs the scripts "*.script" of this folder: golden files whose commands do to the categories of a database
// what a user does. The answer to a command tells whether it was refused, the questions, the events with
// their objects, the files that went to the recycle bin, and the tree when it has changed.
//
//   category <path>;<schema>, record <path>;[<offset>], open, save, keys <file>
//   insert <parent>, insert-record <category>, create <parent>;<name>, delete <path>, bring <name>
//   move <category>;<destination>, move-record <record>;<destination>, rename <category>;<name>
//   clone <category>;<parent>, reference <category>;<parent>, and clone-in, reference-in without a prefix
//   undo, redo, answer <title>;Yes|No, hold, control, refuse, no-bin, silent, closing
// In a tree, "A{b*}" is a system category with a modified record, "V/{}" a virtual one, "<W>{}" a special
// one.
#include "GoldenText.h"
#include "SpecialCategory.h"
#include "TestDatabase.h"
#include "UndoScope.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

namespace
{
class CScript
{
public:
    CScript()
    {
        m_Test.AddSchema("S", "[Attrib.T.0]\nType=Text\nDefault=t\n");
        m_Test.AddSchema("T", "");
        CCorvaneMgr& manager = m_Test.Get();
        manager.AddSpecialCategory(new CSpecialCategory(manager, u"Found", u"", u"", 1));
        ++m_Test.m_nLasting;
    }

    std::string Execute(const std::string& line)
    {
        m_Arguments = std::istringstream(line);
        m_sAnswer.clear();
        m_sEvents.clear();
        m_Test.m_Questions.Clear();
        m_Test.m_Services.m_Calls.clear();
        std::string command;
        m_Arguments >> command >> std::ws;
        if (!m_Commands.at(command)())
            m_sAnswer += "refused\n";
        TellOutcome();
        return m_sAnswer;
    }

private:
    std::string Text()
    {
        std::string text;
        std::getline(m_Arguments, text, ';');
        return text;
    }
    // Null for an empty path, which stands for the root.
    CCorvaneCategory* Category() { return m_Test.Get().FindCategory(ToWide(Text()), nullptr); }
    CCorvaneRecord& Record() { return m_Test.Record(Text()); }

    template <class Command> bool Do(Command command)
    {
        CUndoScope scope(m_Test.m_Undo);
        const bool done = command();
        if (done)
            scope.Accept(u"command");
        return done;
    }
    bool Copy(CCorvaneCategory* (CCorvaneMgr::*copy)(CCorvaneCategory*, CCorvaneCategory*, bool), bool prefix)
    {
        CCorvaneCategory* source = Category();
        CCorvaneCategory* parent = Category();
        return Do([&] { return (m_Test.Get().*copy)(parent, source, prefix) != nullptr; });
    }
    bool Rename()
    {
        CCorvaneCategory& category = *Category();
        const std::u16string name = ToWide(Text());
        CCorvaneMgr& manager = m_Test.Get();
        return Do(
            [&] {
                return manager.CheckCategoryRename(category, name) && manager.RenameCategory(category, name);
            });
    }
    bool Delete()
    {
        const std::string path = Text();
        if (CCorvaneCategory* category = m_Test.Get().FindCategory(ToWide(path), nullptr))
            return Do([&] { return m_Test.Get().DeleteCategory(*category, true); });
        return Do([&] { return m_Test.Get().DeleteRecord(m_Test.Record(path), true); });
    }
    // Puts a record into the special category, as a comparison does.
    bool Bring()
    {
        CCorvaneCategory* special = m_Test.Get().GetSpecialCategory(1);
        const CRef<CCorvaneRecord> record = m_Test.Schema("S").CloneRecordFromTemplate();
        EXPECT_TRUE(record->SetName(ToWide(Text())) && record->SetCategory(special, true));
        return m_Test.Get().ReinsertRecord(*record);
    }
    bool Open()
    {
        m_Test.m_Undo.Clear();
        m_Test.Get().SetDirty(false);
        const bool open = m_Test.Open();
        m_sEvents.clear();
        return open;
    }
    bool Prepare()
    {
        const std::u16string title = ToWide(Text());
        m_Test.m_Questions.Prepare(title, {Text() == "Yes" ? EAnswer::Yes : EAnswer::No});
        return true;
    }
    bool SayKeys()
    {
        std::istringstream file(m_Test.Read(Text()));
        for (std::string line; std::getline(file, line);)
            m_sAnswer += line.starts_with("Name=") || line.starts_with("Virtual") ? line + '\n' : "";
        return true;
    }

    int OnEvent(const CCorvaneEvent& event)
    {
        const CCorvaneCategory* category =
            event.GetCategoryRenamed() ? event.GetCategoryRenamed()->m_pCategory : event.GetCategory();
        if (category || event.GetRecord())
            m_sEvents += " " + std::to_string(static_cast<int>(event.GetCode())) + " " +
                         ToNarrow(category ? category->GetName() : event.GetRecord()->GetName()) + ",";
        return event.GetCode() == ECorvaneEvent::RecordMoving && m_bHeld ? 1 : 0;
    }

    static std::string Show(std::span<const CRef<CCorvaneCategory>> categories)
    {
        std::string text;
        for (const CRef<CCorvaneCategory>& category : categories)
        {
            const std::string name = ToNarrow(category->GetName());
            text += category->GetCategoryType() != 0 ? "<" + name + ">{"
                                                     : name + (category->IsSystem() ? "{" : "/{");
            for (const CRef<CCorvaneRecord>& record : category->GetRecords())
                text += ToNarrow(record->GetName()) + (record->TestFlag(RECORD_FLAG_MODIFIED) ? "* " : " ");
            text += Show(category->GetChildren());
            text.erase(text.find_last_not_of(' ') + 1);
            text += "} ";
        }
        return text;
    }
    void TellOutcome()
    {
        for (const CQuestion& question : m_Test.m_Questions.GetQuestions())
        {
            std::u16string text = question.m_sTitle + u": " + question.m_sText;
            std::replace(text.begin(), text.end(), u'\n', u'|');
            if (const std::size_t at = text.find(m_Test.GetText("")); at != std::u16string::npos)
                text.replace(at, m_Test.GetText("").size(), u"~");
            m_sAnswer += ToNarrow(text) + '\n';
        }
        for (; m_Test.m_nExpectedAsserts < m_Test.m_Asserts.GetEntries().size(); ++m_Test.m_nExpectedAsserts)
            m_sAnswer +=
                "assertion: " + m_Test.m_Asserts.GetEntries()[m_Test.m_nExpectedAsserts].expression + '\n';
        if (!m_sEvents.empty())
            m_sAnswer += "events" + m_sEvents.substr(0, m_sEvents.size() - 1) + '\n';
        for (const std::u16string& call : m_Test.m_Services.m_Calls)
            m_sAnswer += "bin " + ToNarrow(call).substr(4 + m_Test.GetPath("").string().size()) + '\n';
        std::string tree = Show(m_Test.Get().GetRootCategories());
        tree.erase(tree.find_last_not_of(' ') + 1);
        if (tree != m_sTree)
            m_sAnswer += "tree " + tree + '\n';
        m_sTree = std::move(tree);
    }

    CTestDatabase m_Test;
    CObserverHandle m_Observer =
        m_Test.Get().AddObserver([this](const CCorvaneEvent& event) { return OnEvent(event); });
    bool m_bHeld = false; // Something depends on every record that moves.
    std::istringstream m_Arguments;
    std::string m_sAnswer;
    std::string m_sEvents;
    std::string m_sTree;

    const std::map<std::string, std::function<bool()>> m_Commands{
        {"category",
         [this]
         {
             const std::string path = Text();
             return m_Test.AddCategory(path, Text()), true;
         }},
        {"record",
         [this]
         {
             const std::string path = Text();
             return m_Test.AddRecord(path, "S", "", "VirtualRelativeCategory=" + Text() + "\n"), true;
         }},
        {"open", [this] { return Open(); }},
        {"save", [this] { return m_Test.Get().SaveDatabase({}, false); }},
        {"keys", [this] { return SayKeys(); }},
        {"insert",
         [this] { return m_Test.Get().InsertCategory(Category(), &m_Test.Schema("S")) != nullptr; }},
        {"insert-record",
         [this] { return Do([&] { return m_Test.Get().InsertRecord(Category()) != nullptr; }); }},
        {"create",
         [this]
         {
             CCorvaneCategory* parent = Category();
             return m_Test.Get().CreateVirtualRelativeCategory(parent, ToWide(Text())) != nullptr;
         }},
        {"delete", [this] { return Delete(); }},
        {"bring", [this] { return Bring(); }},
        {"move",
         [this]
         {
             CCorvaneCategory* category = Category();
             CCorvaneCategory* parent = Category();
             return Do([&] { return m_Test.Get().MoveCategory(parent, category); });
         }},
        {"move-record",
         [this]
         {
             CCorvaneRecord& record = Record();
             return m_Test.Get().MoveRecordVirtual(Category(), &record, false);
         }},
        {"rename", [this] { return Rename(); }},
        {"clone", [this] { return Copy(&CCorvaneMgr::CopyCategory_Clone, true); }},
        {"clone-in", [this] { return Copy(&CCorvaneMgr::CopyCategory_Clone, false); }},
        {"reference", [this] { return Copy(&CCorvaneMgr::CopyCategory_Reference, true); }},
        {"reference-in", [this] { return Copy(&CCorvaneMgr::CopyCategory_Reference, false); }},
        {"undo", [this] { return m_Test.m_Undo.Undo(1); }},
        {"redo", [this] { return m_Test.m_Undo.Redo(1); }},
        {"answer", [this] { return Prepare(); }},
        {"hold", [this] { return m_bHeld = true; }},
        {"control", [this] { return m_Test.m_Gate.m_bConnected = true; }},
        {"refuse", [this] { return !(m_Test.m_Gate.m_bGrant = false); }},
        {"no-bin", [this] { return !(m_Test.m_Services.m_bBin = false); }},
        {"silent", [this] { return m_Test.m_Run.m_bSilent = true; }},
        {"closing", [this] { return m_Test.m_Run.Set(APP_CLOSING), true; }},
    };
};
} // namespace

class CategoryScript : public testing::TestWithParam<std::filesystem::path>
{
};

TEST_P(CategoryScript, SaysWhatTheFileSays)
{
    CScript script;
    CheckGolden(GetParam(), [&](const std::string& line) { return script.Execute(line); });
}

INSTANTIATE_TEST_SUITE_P(Model, CategoryScript, testing::ValuesIn(FindGoldenFiles(MODEL_FOLDER, ".script")),
                         [](const auto& entry) { return entry.param.stem().string(); });
