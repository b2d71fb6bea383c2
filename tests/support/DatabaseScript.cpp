#include "DatabaseScript.h"

#include "GoldenText.h"
#include "ShowObjects.h"
#include "UndoText.h"
#include "Unicode.h"
#include "recordlink/CorvaneTypeRecordLink.h"
#include "struct/CorvaneTypeStruct.h"

#include <algorithm>
#include <iomanip>
#include <stdexcept>

namespace
{
bool IsNamed(const CCorvaneAttrib& attrib, const std::string& name)
{
    const std::string build = attrib.GetBuild() > 0 ? "@" + std::to_string(attrib.GetBuild()) : "";
    return ToNarrow(attrib.GetName()) + build == name;
}
} // namespace

CDatabaseScript::CDatabaseScript()
    : m_Observer(m_Test.Get().AddObserver([this](const CCorvaneEvent& event) { return OnEvent(event); }))
{
    m_Commands.merge(GetFileCommands());
    m_Commands.merge(GetValueCommands());
    m_Commands.merge(GetOperationCommands());
    m_Commands.merge(GetHostCommands());
}

std::string CDatabaseScript::Execute(const std::string& line)
{
    m_Arguments = std::istringstream(line);
    const auto command = m_Commands.find(Word());
    if (command == m_Commands.end())
    {
        m_sText += line + '\n';
        return m_sFile.empty() && !line.empty() ? "error: unknown command\n" : "";
    }
    if (!m_sFile.empty())
        m_Test.Write(m_sFile, m_sText);
    m_sFile.clear();
    m_sAnswer.clear();
    try
    {
        command->second();
    }
    catch (const std::exception& error)
    {
        Say(std::string("error: ") + error.what());
    }
    TellOutcome();
    return m_sAnswer;
}

std::string CDatabaseScript::Word()
{
    // A backslash is a part of a path, and escapes nothing.
    std::string word;
    m_Arguments >> std::quoted(word, '"', '\0');
    return word;
}

std::u16string CDatabaseScript::Rest()
{
    std::string rest;
    std::getline(m_Arguments >> std::ws, rest);
    return ToWide(rest);
}

CCorvaneCategory* CDatabaseScript::Category()
{
    const std::string path = Word();
    return path.empty() ? nullptr : &m_Test.Category(path);
}

CDatabaseScript::Commands CDatabaseScript::GetFileCommands()
{
    return {
        {"file", [this] { BeginFile(Word(), ""); }},
        {"schema", [this] { BeginSchema(); }},
        {"category", [this] { AddCategory(); }},
        {"record", [this] { BeginRecord(); }},
        {"bytes", [this] { WriteBytes(); }},
        {"print", [this] { Print(); }},
        {"remove-file", [this] { Need(std::filesystem::remove_all(m_Test.GetPath(Word())) > 0); }},
        {"directory", [this] { Need(std::filesystem::create_directory(m_Test.GetPath(Word()))); }},
        {"open", [this] { Open(); }},
        {"close", [this] { Need(m_Test.Get().CloseDatabase()); }},
        {"save", [this] { Save(); }},
        {"save-all", [this] { Need(m_Test.Get().SaveDatabase({}, true)); }},
        {"save-as", [this] { Need(m_Test.Get().SaveDatabase(m_Test.GetText(Word()), true)); }},
        {"load", [this] { Load(); }},
        {"reload-record", [this] { Need(Record().ReloadFromFile()); }},
        {"reload-schema", [this] { Need(m_Test.Schema(Word()).ReloadFromFile()); }},
        {"refresh", [this] { Refresh(); }},
        {"modify-schema", [this] { m_Test.Schema(Word()).SetModified(); }},
        {"schema-flags", [this] { SaySchemaFlags(); }},
        {"reload-struct", [this] { Need(Struct().GetStructFile()->Reload()); }},
    };
}

CDatabaseScript::Commands CDatabaseScript::GetValueCommands()
{
    return {
        {"set", [this] { Set(); }},
        {"add", [this] { AddValue(Attrib(), {}); }},
        {"insert", [this] { Need(Struct().InsertRow(Number())); }},
        {"remove", [this] { Need(Attrib().RemoveValue(Number())); }},
        {"up", [this] { Need(Attrib().MoveValueUp(Number())); }},
        {"down", [this] { Need(Attrib().MoveValueDown(Number())); }},
        {"inherit", [this] { Attrib().SetInherit(true, false); }},
        {"disinherit", [this] { Attrib().SetInherit(false, false); }},
        {"todo", [this] { Attrib().SetTodo(true); }},
        {"edit-inherit", [this] { EditInherit(); }},
        {"comment", [this] { Comment(); }},
        {"defer", [this] { Defer(&CCorvaneMgr::DeferDeprecateAttribute); }},
        {"defer-delete", [this] { Defer(&CCorvaneMgr::DeferDeleteAttribute); }},
        {"erase", [this] { Erase(); }},
        {"clear", [this] { Record().Clear(); }},
        {"show", [this] { Say(ShowAttrib(Attrib())); }},
        {"target", [this] { SayTarget(); }},
        {"available", [this] { SayAvailable(); }},
        {"lists", [this] { SayLists(); }},
        {"deleting", [this] { Ask(ECorvaneEvent::RecordDeleting); }},
        {"moving", [this] { Ask(ECorvaneEvent::RecordMoving); }},
        {"reloaded", [this] { Ask(ECorvaneEvent::RecordReloaded); }},
    };
}

CCorvaneAttrib& CDatabaseScript::Attrib()
{
    const std::string word = Word();
    const std::string owner = word.substr(0, word.find(':'));
    const CCorvaneSchema* schema = m_Test.Get().FindSchema(ToWide(owner));
    const auto list = (schema ? *schema->GetTemplate() : m_Test.Record(owner)).GetAttributeList();
    std::istringstream path(word.substr(owner.size() + 1));
    std::string name, row;
    std::getline(path, name, '.');
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const auto& attrib) { return IsNamed(*attrib, name); });
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

CCorvaneTypeStruct& CDatabaseScript::Struct()
{
    return dynamic_cast<CCorvaneTypeStruct&>(Attrib());
}

void CDatabaseScript::BeginFile(const std::string& path, const std::string& head)
{
    m_sFile = path;
    m_sText = head;
}

void CDatabaseScript::BeginSchema()
{
    const std::string name = Word();
    BeginFile("Schemas/" + name + ".schema", "[Schema]\nName=" + name + "\nParent=" + Word() + "\n");
}

void CDatabaseScript::AddCategory()
{
    const std::string path = Word();
    m_Test.AddCategory(path, Word());
}

void CDatabaseScript::BeginRecord()
{
    const std::string path = Word();
    BeginFile(path + ".record",
              "[Record]\nSchema=" + Word() + "\nName=" + path.substr(path.rfind('/') + 1) + "\n");
}

void CDatabaseScript::WriteBytes()
{
    const std::string path = Word();
    m_Test.WriteBytes(path, ToNarrow(Rest()));
}

void CDatabaseScript::Print()
{
    std::istringstream lines(m_Test.Read(Word()));
    const std::string part = Word();
    for (std::string line; std::getline(lines, line);)
        m_sAnswer += line.empty() || line.find(part) == std::string::npos ? "" : line + '\n';
}

void CDatabaseScript::Open()
{
    m_Test.Get().SetDirty(false);
    m_Test.m_Undo.Clear();
    Need(m_Test.Open());
}

void CDatabaseScript::Save()
{
    const std::string name = Word();
    Need(name.empty() ? m_Test.Get().SaveDatabase({}, false) : m_Test.Record(name).SaveToFile(true));
}

void CDatabaseScript::Load()
{
    const std::filesystem::path path = Word();
    Need(m_Test.Get().AddRecordFile(m_Test.GetText(path.string() + ".record"),
                                    m_Test.Category(path.parent_path().string())));
}

void CDatabaseScript::Refresh()
{
    const std::string path = Word();
    CCorvaneMgr& manager = m_Test.Get();
    CCorvaneCategory* category = manager.FindCategory(ToWide(path), nullptr);
    Need(path.empty() ? manager.RefreshDatabase()
         : category   ? manager.RefreshCategory(*category)
                      : manager.RefreshRecord(m_Test.Record(path)));
}

void CDatabaseScript::SaySchemaFlags()
{
    const CCorvaneSchema& schema = m_Test.Schema(Word());
    Say(std::string(schema.TestFlag(SCHEMA_FLAG_MODIFIED) ? "modified " : "saved ") +
        (schema.TestFlag(SCHEMA_FLAG_MISSING) ? "missing" : "there"));
}

void CDatabaseScript::Set()
{
    CCorvaneAttrib& attrib = Attrib();
    const std::size_t index = Number();
    const std::u16string value = Rest();
    if (index >= attrib.GetValueCount())
        return AddValue(attrib, value);
    Do(GetValueUndoText(kUndoValueModified, attrib.GetName(), value),
       [&] { return attrib.SetValue(index, value); });
}

void CDatabaseScript::AddValue(CCorvaneAttrib& attrib, std::u16string_view value)
{
    Do(GetValueUndoText(kUndoValueAdded, attrib.GetName(), value), [&] { return attrib.AddValue(value); });
}

void CDatabaseScript::EditInherit()
{
    auto& attrib = dynamic_cast<CCorvaneType&>(Attrib());
    Need(attrib.EditInherit(Word() == "yes"));
}

void CDatabaseScript::Comment()
{
    CCorvaneRecord& record = Record();
    Need(record.SetComment(Rest()));
}

void CDatabaseScript::Defer(bool (CCorvaneMgr::*defer)(CCorvaneAttrib*, std::uint32_t))
{
    CCorvaneAttrib& attrib = Attrib();
    Need((m_Test.Get().*defer)(&attrib, Build()));
}

void CDatabaseScript::Erase()
{
    CCorvaneSchemaAttribData* data = Attrib().GetAttribData();
    Need(m_Test.Get().DeleteDeferredAttribute(data, Number()));
}

void CDatabaseScript::Ask(ECorvaneEvent code)
{
    Need(m_Test.Get().Notify(CCorvaneEvent(code, &Record())) == 0);
}

void CDatabaseScript::SayAvailable()
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

void CDatabaseScript::SayTarget()
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

void CDatabaseScript::SayLists()
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
