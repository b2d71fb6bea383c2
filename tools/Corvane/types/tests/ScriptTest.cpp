// Runs the scripts "*.script" of all types: golden files whose commands do to a whole database what a user
// does. The answer to a command is what came of it: that it was refused, what the user was told, which
// assertions fired, the events of struct members, and the records that show something else than before.
//
//   file <path>, record <path> <schema>     begin a file, whose text ends at the next command
//   bytes <path> <text>, open, save [<record>], print <file>, clear <record>
//   reload-record <record>, reload-schema <schema>, reload-struct <attribute>
//   set <attribute> <index> <text>, and add, insert, remove, up and down for values and rows
//   inherit, disinherit, todo, show <attribute>
//   defer, defer-delete <attribute> <build>; erase <struct attribute> <index of the member>
//   available <struct attribute> <build>    the members of its first row that the build has
//   target, lists <link>                    the record that it names and the findings; what it may name
//   deleting, moving, reloaded <record>     the event alone
//   rename <record> <name>, refuse          for every check-out from here on
//   answer <title>;<answer>...
// An attribute is named "<record>:<name>[@<build>][.<row>.<member>[@<build>]]...", that of a template by the
// schema in place of the record.
#include "GoldenText.h"
#include "TestAttribute.h"
#include "Unicode.h"
#include "recordlink/CorvaneTypeRecordLink.h"
#include "struct/CorvaneTypeStruct.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <stdexcept>

namespace
{
class CScript
{
public:
    std::string Execute(const std::string& line)
    {
        m_Arguments = std::istringstream(line);
        const auto command = m_Commands.find(Word());
        if (command == m_Commands.end())
        {
            m_sText += line + '\n';
            return "";
        }
        if (!m_sFile.empty())
            m_Test.Write(m_sFile, m_sText);
        m_sFile.clear();
        m_sAnswer.clear();
        m_Test.m_Events.clear();
        m_Test.m_Questions.Clear();
        command->second();
        TellQuestions();
        TellAsserts();
        TellMemberEvents();
        TellChanges();
        return m_sAnswer;
    }

private:
    std::string Word()
    {
        std::string word;
        m_Arguments >> word;
        return word;
    }
    std::size_t Number() { return std::stoul(Word()); }
    std::uint32_t Build() { return static_cast<std::uint32_t>(Number()); }
    std::u16string Rest()
    {
        std::string rest;
        std::getline(m_Arguments >> std::ws, rest);
        return ToWide(rest);
    }
    CCorvaneRecord& Record() { return m_Test.Record(Word()); }
    static bool IsNamed(const CCorvaneAttrib& attrib, const std::string& name)
    {
        const std::string build = attrib.GetBuild() > 0 ? "@" + std::to_string(attrib.GetBuild()) : "";
        return ToNarrow(attrib.GetName()) + build == name;
    }
    CCorvaneAttrib& Attrib()
    {
        const std::string word = Word();
        const std::string owner = word.substr(0, word.find(':'));
        const CCorvaneSchema* schema = m_Test.Get().FindSchema(ToWide(owner));
        const auto list = (schema ? *schema->GetTemplate() : m_Test.Record(owner)).GetAttributeList();
        std::istringstream path(word.substr(owner.size() + 1));
        std::string name, row;
        std::getline(path, name, '.');
        const auto found = std::find_if(list.begin(), list.end(),
                                        [&](const auto& attrib) { return IsNamed(*attrib, name); });
        CCorvaneAttrib* attrib = found != list.end() ? found->Get() : nullptr;
        while (attrib && std::getline(path, row, '.') && std::getline(path, name, '.'))
        {
            const CCorvaneAttrib& parent = *attrib;
            std::size_t member = 0;
            do
                attrib = parent.GetChildAttributeAt(std::stoul(row), member++);
            while (attrib && !IsNamed(*attrib, name));
        }
        if (attrib == nullptr)
            throw std::runtime_error("There is no attribute " + word);
        return *attrib;
    }
    CCorvaneTypeStruct& Struct() { return dynamic_cast<CCorvaneTypeStruct&>(Attrib()); }

    void Say(const std::string& text) { m_sAnswer += text + '\n'; }
    void Need(bool done) { m_sAnswer += done ? "" : "refused\n"; }

    void BeginFile(const std::string& path, const std::string& head)
    {
        m_sFile = path;
        m_sText = head;
    }
    void BeginRecord()
    {
        const std::string path = Word();
        BeginFile(path + ".record",
                  "[Record]\nSchema=" + Word() + "\nName=" + path.substr(path.rfind('/') + 1) + "\n");
    }
    void WriteBytes()
    {
        const std::string path = Word();
        m_Test.WriteBytes(path, ToNarrow(Rest()));
    }
    void Open()
    {
        m_Test.Get().SetDirty(false);
        Need(m_Test.Open());
    }
    void Save()
    {
        const std::string name = Word();
        Need(name.empty() ? m_Test.Get().SaveDatabase({}, false) : m_Test.Record(name).SaveToFile(true));
    }
    void Set()
    {
        CCorvaneAttrib& attrib = Attrib();
        const std::size_t index = Number();
        Need(index < attrib.GetValueCount() ? attrib.SetValue(index, Rest()) : attrib.AddValue(Rest()));
    }
    void Defer(bool (CCorvaneMgr::*defer)(CCorvaneAttrib*, std::uint32_t))
    {
        CCorvaneAttrib& attrib = Attrib();
        Need((m_Test.Get().*defer)(&attrib, Build()));
    }
    void Erase()
    {
        CCorvaneSchemaAttribData* data = Attrib().GetAttribData();
        Need(m_Test.Get().DeleteDeferredAttribute(data, Number()));
    }
    // Yes, No or any other word for the answer of a run that nobody attends.
    void Prepare()
    {
        std::string title, word;
        std::getline(m_Arguments >> std::ws, title, ';');
        std::vector<EAnswer> answers;
        while (std::getline(m_Arguments, word, ';'))
            answers.push_back(word == "Yes" ? EAnswer::Yes : word == "No" ? EAnswer::No : EAnswer::Abort);
        m_Test.m_Questions.Prepare(ToWide(title), answers);
    }
    void Rename()
    {
        CCorvaneRecord& record = Record();
        std::u16string before, after;
        m_Test.Get().GetRecordDisplayPath(&record, before);
        Need(record.SetName(Rest()));
        m_Test.Get().GetRecordDisplayPath(&record, after);
        const SRecordRenamed renamed{&record, before, after};
        m_Test.Get().Notify(CCorvaneEvent(ECorvaneEvent::RecordRenamed, renamed));
    }
    void Ask(ECorvaneEvent code) { Need(m_Test.Get().Notify(CCorvaneEvent(code, &Record())) == 0); }

    void SayAvailable()
    {
        const CStructRows rows = Struct().GetAttributePointerList();
        const std::uint32_t build = Build();
        std::string members;
        for (const CRef<CCorvaneType>& member : rows[0])
        {
            if (m_Test.Get().IsAttributeAvailableForBuild(member.Get(), build))
                members += (members.empty() ? "" : " ") + ShowAttrib(*member);
        }
        Say(members);
    }
    void SayTarget()
    {
        auto& link = dynamic_cast<CCorvaneTypeRecordLink&>(Attrib());
        std::u16string path, name;
        if (const CCorvaneRecord* record = link.GetRecord(0))
            m_Test.Get().GetRecordDisplayPath(record, path);
        link.GetRecordName(0, name);
        CRecordingSink sink;
        link.Validate(&sink);
        m_sAnswer += ToNarrow(name) + " (" + ToNarrow(path) + ")\n" + sink.m_sLines;
    }
    void SayLists()
    {
        const auto& data = static_cast<CCorvaneTypeRecordLinkData&>(*Attrib().GetAttribData());
        std::string lists;
        for (const CCorvaneSchema* schema : data.GetSchemaList())
            lists += ToNarrow(schema->GetName()) + ' ';
        lists += '|';
        for (const CCorvaneCategory* category : data.GetCategoryList())
        {
            std::u16string path;
            m_Test.Get().GetCategoryPath(category, path);
            lists += ' ' + ToNarrow(path);
        }
        Say(lists);
    }

    void TellQuestions()
    {
        for (const CQuestion& question : m_Test.m_Questions.GetQuestions())
        {
            for (const char unit : ToNarrow(question.m_sTitle + u": " + question.m_sText))
                m_sAnswer += unit == '\n' ? "\\n" : unit == '\t' ? "\\t" : std::string(1, unit);
            m_sAnswer += '\n';
        }
        const std::string root = m_Test.GetPath("").string();
        for (std::size_t at = 0; (at = m_sAnswer.find(root)) != std::string::npos;)
            m_sAnswer.replace(at, root.size(), "~/");
    }
    void TellAsserts()
    {
        const auto& entries = m_Test.m_Asserts.GetEntries();
        for (; m_Test.m_nExpectedAsserts < entries.size(); ++m_Test.m_nExpectedAsserts)
        {
            const CAssertCapture::SEntry& entry = entries[m_Test.m_nExpectedAsserts];
            Say("assertion: " + (entry.message.empty() ? entry.expression : entry.message));
        }
    }
    void TellMemberEvents()
    {
        std::string events;
        for (const int code : m_Test.m_Events)
            events += code >= 58 && code <= 60 ? " " + std::to_string(code) : "";
        if (!events.empty())
            Say("events" + events);
    }
    void TellChanges()
    {
        std::map<std::string, std::string> shown;
        m_Test.Get().EnumerateRecords(
            [&](CCorvaneRecord& record)
            {
                std::u16string path;
                m_Test.Get().GetRecordDisplayPath(&record, path);
                std::string& text = shown[ToNarrow(path)];
                for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
                    text += ' ' + ShowAttrib(*attrib);
                if (const auto old = m_Shown.find(ToNarrow(path));
                    old == m_Shown.end() || old->second != text)
                    Say(ToNarrow(path) + ":" + text);
                return true;
            });
        m_Shown = std::move(shown);
    }

    CTestDatabase m_Test;
    std::istringstream m_Arguments;
    std::string m_sFile;
    std::string m_sText;
    std::string m_sAnswer;
    std::map<std::string, std::string> m_Shown; // Record -> its attributes.

    const std::map<std::string, std::function<void()>> m_Commands{
        {"file", [this] { BeginFile(Word(), ""); }},
        {"record", [this] { BeginRecord(); }},
        {"bytes", [this] { WriteBytes(); }},
        {"open", [this] { Open(); }},
        {"save", [this] { Save(); }},
        {"print", [this] { m_sAnswer += MarkLines(m_Test.Read(Word())); }},
        {"reload-record", [this] { Need(Record().ReloadFromFile()); }},
        {"reload-schema", [this] { Need(m_Test.Schema(Word()).ReloadFromFile()); }},
        {"reload-struct", [this] { Need(Struct().GetStructFile()->Reload()); }},
        {"set", [this] { Set(); }},
        {"add", [this] { Need(Attrib().AddValue({})); }},
        {"insert", [this] { Need(Struct().InsertRow(Number())); }},
        {"remove", [this] { Need(Attrib().RemoveValue(Number())); }},
        {"up", [this] { Need(Attrib().MoveValueUp(Number())); }},
        {"down", [this] { Need(Attrib().MoveValueDown(Number())); }},
        {"inherit", [this] { Attrib().SetInherit(true, false); }},
        {"disinherit", [this] { Attrib().SetInherit(false, false); }},
        {"todo", [this] { Attrib().SetTodo(true); }},
        {"defer", [this] { Defer(&CCorvaneMgr::DeferDeprecateAttribute); }},
        {"defer-delete", [this] { Defer(&CCorvaneMgr::DeferDeleteAttribute); }},
        {"erase", [this] { Erase(); }},
        {"show", [this] { Say(ShowAttrib(Attrib())); }},
        {"target", [this] { SayTarget(); }},
        {"available", [this] { SayAvailable(); }},
        {"lists", [this] { SayLists(); }},
        {"deleting", [this] { Ask(ECorvaneEvent::RecordDeleting); }},
        {"moving", [this] { Ask(ECorvaneEvent::RecordMoving); }},
        {"reloaded", [this] { Ask(ECorvaneEvent::RecordReloaded); }},
        {"rename", [this] { Rename(); }},
        {"clear", [this] { Record().Clear(); }},
        {"refuse", [this] { m_Test.m_Gate.m_bGrant = !(m_Test.m_Gate.m_bConnected = true); }},
        {"answer", [this] { Prepare(); }},
    };
};
} // namespace

class TypeScript : public testing::TestWithParam<std::filesystem::path>
{
};

TEST_P(TypeScript, SaysWhatTheFileSays)
{
    CScript script;
    CheckGolden(GetParam(), [&](const std::string& line) { return script.Execute(line); });
}

INSTANTIATE_TEST_SUITE_P(Types, TypeScript, testing::ValuesIn(FindGoldenFiles(TYPES_FOLDER, ".script")),
                         [](const auto& entry) { return entry.param.stem().string(); });
