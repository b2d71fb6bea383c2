#include "CorvaneSchema.h"

#include "AttribSection.h"
#include "CorvaneMgr.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "CorvaneTypeMgr.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "Path.h"
#include "SourceFileWriter.h"
#include "SourceGate.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr std::u16string_view kSection = u"Schema";
} // namespace

// An entry as it stood before a reload, for handing its identity on.
struct CCorvaneSchema::SOldEntry
{
    CRef<CCorvaneAttrib> m_pAttrib;
    std::u16string m_sType;
};

CCorvaneSchema::CCorvaneSchema(CCorvaneMgr& manager, std::u16string_view name, std::u16string_view help,
                               std::u16string_view parent)
    : m_Manager(manager), m_sName(name), m_sHelp(help), m_sParent(parent),
      m_pTemplateRecord(new CCorvaneRecord(manager))
{
}

CCorvaneSchema::~CCorvaneSchema()
{
    m_pTemplateRecord->Clear();
}

CRef<CCorvaneSchema> CCorvaneSchema::CreateFromFile(CCorvaneMgr& manager, std::u16string_view path,
                                                    CCorvaneSchema* existing)
{
    CUnicodeFileParse_ReadOnly& parser = manager.GetLoadParser();
    if (!ImportSourceFile(manager, parser, path, u"Invalid Schema File Format", u"schema"))
        return nullptr;
    std::u16string name, help, parent;
    parser.ReadString(kSection, u"Name", name);
    parser.ReadString(kSection, u"Help", help);
    parser.ReadString(kSection, u"Parent", parent);
    const CCorvaneSchema* taken = manager.FindSchema(name);
    if (taken != nullptr && taken != existing)
    {
        manager.GetContext().m_Questions.Tell(
            u"Schema Duplicates",
            FormatText(
                u"Duplicate schemas have been detected.  A schema called '%s' already exist in the global "
                u"schema namespace.\n\n%s\n\nv.s.\n\n%s",
                name, path, taken->GetFile()));
        return nullptr;
    }
    CRef<CCorvaneSchema> schema(existing ? existing : new CCorvaneSchema(manager, name, help, parent));
    if (existing)
    {
        schema->Clear();
        const std::u16string old = std::exchange(schema->m_sName, name);
        schema->m_sHelp = help;
        schema->m_sParent = parent;
        manager.OnSchemaNamed(*schema, old);
    }
    schema->m_sFile = path;
    schema->m_Stamp = parser.GetFileInfo().m_Stamp;
    SortAttributes(manager, parser, path);
    for (std::size_t section = 0; section < parser.GetSectionCount(); ++section)
        schema->ReadSection(parser, section, path);
    return schema;
}

void CCorvaneSchema::ReadSection(const CUnicodeFileParse_ReadOnly& parser, std::size_t section,
                                 std::u16string_view path)
{
    const CAttribSection name(parser.GetSectionName(section));
    const std::u16string_view type = parser.FindValue(section, u"Type");
    if (!name.IsAttribute() || type.data() == nullptr)
        return;
    const auto read = [&](std::u16string_view key) { return parser.FindValue(section, key); };
    SAttribDataConstruct construct;
    construct.m_sName = name.GetName();
    construct.m_nBuild = name.GetBuild();
    construct.m_sData = read(u"Data");
    construct.m_sHelp = read(u"Help");
    construct.m_sFile = path;
    construct.m_nValues = ParseInteger(read(u"Values"));
    construct.m_bUnicode = ParseBoolean(read(u"Unicode"));
    construct.m_bDeleted = ParseBoolean(read(u"Deleted"));
    construct.m_bInherit = !EqualNames(read(u"Inherit"), u"False");
    construct.m_pManager = &m_Manager;
    construct.m_pSchema = this;
    const CRef<CCorvaneSchemaAttribData> data =
        m_Manager.GetAttribDataTypes().CreateAttribData(type, construct);
    const std::u16string defaultText(read(u"Default"));
    if (data && AddAttribute(construct.m_sName, type, defaultText, *data))
    {
        m_AttribData.push_back(data);
        return;
    }
    m_Manager.GetContext().m_Questions.Tell(
        u"Invalid Attribute",
        FormatText(u"Failed to create attribute of type '%s' in schema '%s'.  The attribute "
                   u"type may be invalid.\n\n%s",
                   type, m_sName, path));
}

bool CCorvaneSchema::AddAttribute(std::u16string_view name, std::u16string_view type,
                                  std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    ZRASSERT(m_pTemplateRecord);
    const CRef<CCorvaneType> attrib =
        m_Manager.GetTypes().CreateType(type, defaultText, data, m_pTemplateRecord.Get());
    if (!attrib)
        return false;
    attrib->SetName(name);
    m_pTemplateRecord->AppendAttribute(attrib);
    return true;
}

CRef<CCorvaneRecord> CCorvaneSchema::CloneRecordFromTemplate() const
{
    ZRASSERT(m_pTemplateRecord);
    return m_pTemplateRecord->Clone();
}

bool CCorvaneSchema::IsOnCycle() const
{
    const CCorvaneSchema* above = this;
    for (std::size_t steps = 0; steps <= m_Manager.GetSchemas().size(); ++steps)
    {
        above = above->m_sParent.empty() ? nullptr : m_Manager.FindSchema(above->m_sParent);
        if (above == nullptr || above == this)
            return above == this;
    }
    return false;
}

bool CCorvaneSchema::ConnectParent()
{
    if (m_Connect != EConnect::None)
        return m_Connect == EConnect::Connected;
    m_Connect = EConnect::Connected;
    if (m_sParent.empty())
        return true;
    CCorvaneSchema* parent = m_Manager.FindSchema(m_sParent);
    if (parent == nullptr || IsOnCycle())
    {
        m_Connect = EConnect::Failed;
        return false;
    }
    // The parent's own parent first, so that attributes arrive from every ancestor. Whether that worked is
    // told when its own turn comes.
    static_cast<void>(parent->ConnectParent());
    m_pParent = parent;
    m_pTemplateRecord->InheritAttributes(*parent->m_pTemplateRecord);
    return true;
}

void CCorvaneSchema::Clear()
{
    m_AttribData.clear();
    m_Stamp = {};
    m_pParent = nullptr;
    m_Connect = EConnect::None;
    m_pTemplateRecord->Clear();
}

bool CCorvaneSchema::IsDerivedFrom(const CCorvaneSchema& ancestor) const
{
    const CCorvaneSchema* schema = this;
    while (schema != nullptr && schema != &ancestor)
        schema = schema->m_pParent;
    return schema != nullptr;
}

void CCorvaneSchema::SetModified()
{
    SetFlag(SCHEMA_FLAG_MODIFIED, true);
    m_Manager.SetDirty(true);
}

std::ptrdiff_t CCorvaneSchema::FindAttribData(const CCorvaneSchemaAttribData& data) const
{
    const auto found = std::find(m_AttribData.begin(), m_AttribData.end(), &data);
    return found == m_AttribData.end() ? -1 : found - m_AttribData.begin();
}

std::size_t CCorvaneSchema::GetFirstOwnAttribute() const
{
    const auto list = m_pTemplateRecord->GetAttributeList();
    const auto own = std::find_if(list.begin(), list.end(),
                                  [this](const CRef<CCorvaneAttrib>& attrib)
                                  { return attrib->GetParentRecord() == m_pTemplateRecord.Get(); });
    return static_cast<std::size_t>(own - list.begin());
}

void CCorvaneSchema::DropUnfinishedEntries()
{
    const std::size_t firstOwn = GetFirstOwnAttribute();
    for (std::size_t i = m_pTemplateRecord->GetAttributeList().size(); i-- > firstOwn;)
    {
        const CCorvaneAttrib& attrib = *m_pTemplateRecord->GetAttributeList()[i];
        if (attrib.GetAttribData()->GetBuild() != attrib.GetBuild())
            m_pTemplateRecord->RemoveAttribute(i);
    }
}

void CCorvaneSchema::RefreshInherited()
{
    if (m_pParent == nullptr)
        return;
    const auto inherited = m_pParent->m_pTemplateRecord->GetAttributeList();
    std::vector<CRef<CCorvaneAttrib>> list(inherited.begin(), inherited.end());
    const auto before = m_pTemplateRecord->GetAttributeList();
    list.insert(list.end(), before.begin() + static_cast<std::ptrdiff_t>(GetFirstOwnAttribute()),
                before.end());
    m_pTemplateRecord->SetAttributes(std::move(list));
}

void CCorvaneSchema::InsertAttribData(std::size_t index, CRef<CCorvaneSchemaAttribData> data)
{
    m_AttribData.insert(m_AttribData.begin() + static_cast<std::ptrdiff_t>(index), std::move(data));
}

void CCorvaneSchema::RemoveAttribData(std::size_t index)
{
    m_AttribData.erase(m_AttribData.begin() + static_cast<std::ptrdiff_t>(index));
}

bool CCorvaneSchema::ReloadFromFile()
{
    if (m_sFile.empty())
        return false;
    const CRef<CCorvaneSchema> keepAlive(this);
    std::vector<SOldEntry> before;
    for (const CRef<CCorvaneAttrib>& attrib : m_pTemplateRecord->GetAttributeList())
    {
        if (attrib->GetParentRecord() == m_pTemplateRecord.Get())
            before.push_back(
                {attrib, std::u16string(static_cast<CCorvaneType&>(*attrib).GetSchemaTypeName())});
    }
    const std::u16string path = m_sFile;
    if (!CreateFromFile(m_Manager, path, this))
        return false;
    SetFlag(SCHEMA_FLAG_MODIFIED, false);
    for (const CRef<CCorvaneAttrib>& attrib : m_pTemplateRecord->GetAttributeList())
    {
        for (const SOldEntry& old : before)
        {
            if (attrib->GetBuild() == old.m_pAttrib->GetBuild() &&
                EqualNames(attrib->GetName(), old.m_pAttrib->GetName()) &&
                EqualNames(static_cast<CCorvaneType&>(*attrib).GetSchemaTypeName(), old.m_sType))
                attrib->AdoptIdentity(*old.m_pAttrib);
        }
    }
    Reconnect();
    return true;
}

void CCorvaneSchema::Reconnect()
{
    // This schema's own name may have changed, so that any schema may have gained or lost it as an ancestor.
    for (const CRef<CCorvaneSchema>& schema : m_Manager.GetSchemas())
    {
        schema->DropInherited();
        schema->DropUnfinishedEntries();
    }
    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::SchemasLoadBegin));
    m_Manager.ConnectSchemaParents();
    // Attribute data that looks schemas up does it at the end of a load, when all are connected.
    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::SchemasLoadEnd));
    for (const CRef<CCorvaneSchema>& schema : m_Manager.GetSchemas())
        m_Manager.FixRecords(*schema, false);
}

void CCorvaneSchema::DropInherited()
{
    const auto list = m_pTemplateRecord->GetAttributeList();
    for (std::size_t i = list.size(); i-- > 0;)
    {
        if (m_pTemplateRecord->GetAttributeList()[i]->GetParentRecord() != m_pTemplateRecord.Get())
            m_pTemplateRecord->RemoveAttribute(i);
    }
    m_pParent = nullptr;
    m_Connect = EConnect::None;
}

std::u16string CCorvaneSchema::MakeFilePath(std::u16string_view path) const
{
    const auto isOwn = [this](std::u16string_view file) { return EqualNames(file, m_sFile); };
    const auto isTaken = [](std::u16string_view) { return false; };
    if (m_sFile.empty())
    {
        ZRASSERT_MSG(EndsInSeparator(path),
                     "(szPath[_tcsclen(szPath)-1] == '/') || (szPath[_tcsclen(szPath)-1] == '\\\\')");
        return MakeFreePath(m_Manager, path, MakeFileBaseName(m_sName), u".schema", isOwn, isTaken);
    }
    // The disk's own spelling, ".SCHEMA" perhaps, names the same file.
    if (path.empty() || EqualNames(path, m_sFile))
        return m_sFile;
    // A rename of a schema never renames its file.
    return MakeFreePath(m_Manager, GetDirectoryPart(path), SplitPath(m_sFile).name, u".schema", isOwn,
                        isTaken);
}

CCorvaneType* CCorvaneSchema::FindTemplateAttribute(const CCorvaneSchemaAttribData& data) const
{
    for (const CRef<CCorvaneAttrib>& attrib : m_pTemplateRecord->GetAttributeList())
    {
        // A deferral that was refused left a copy of the entry with another build.
        if (attrib->GetAttribData() == &data && attrib->GetBuild() == data.GetBuild())
            return static_cast<CCorvaneType*>(attrib.Get());
    }
    return nullptr;
}

bool CCorvaneSchema::SaveToFile(std::u16string_view path, bool force)
{
    ZRASSERT(m_pTemplateRecord);
    if (!force && !TestFlag(SCHEMA_FLAG_MODIFIED))
        return true;
    const std::u16string file = MakeFilePath(path);
    if (file.empty())
        return false;
    CUnicodeFileParse_ReadWrite writer(m_Manager.GetContext().m_Files);
    FillWriter(writer);
    CSourceGate& gate = m_Manager.GetGate();
    if (gate.IsConnected() && !gate.CheckOutForEdit(*this))
    {
        m_Manager.GetContext().m_Questions.Tell(
            u"Schema Check Out Failed",
            FormatText(u"Failed to check the following file out.  The file cannot be saved.\n\n%s", file),
            EIcon::Stop);
        return false;
    }
    const EWriteResult result = WriteSourceFile(m_Manager, writer, file, m_Stamp);
    if (result == EWriteResult::Written)
    {
        m_sFile = file;
        SetFlag(SCHEMA_FLAG_MODIFIED, false);
    }
    return result != EWriteResult::Aborted;
}

void CCorvaneSchema::FillWriter(IUnicodeFileParse& writer) const
{
    writer.WriteString(kSection, u"Name", m_sName);
    writer.WriteString(kSection, u"Help", m_sHelp);
    writer.WriteString(kSection, u"Parent", m_pParent ? m_pParent->m_sName : std::u16string());
    for (const CRef<CCorvaneSchemaAttribData>& data : m_AttribData)
    {
        const std::u16string& section = data->GetBuildSection().m_sName;
        const CCorvaneType* attrib = FindTemplateAttribute(*data);
        if (attrib == nullptr)
            continue;
        writer.WriteString(section, u"Type", attrib->GetSchemaTypeName());
        writer.WriteString(section, u"Data", data->GetData());
        writer.WriteString(section, u"Default",
                           attrib->GetOwnValues().GetCount() > 0 ? attrib->GetOwnValues().Get(0)
                                                                 : std::u16string_view(u""));
        writer.WriteBoolean(section, u"Unicode", data->TestFlag(ATTRIB_FLAG_UNICODE));
        writer.WriteBoolean(section, u"Deleted", data->TestFlag(ATTRIB_FLAG_DELETED));
        writer.WriteBoolean(section, u"Inherit", data->TestFlag(ATTRIB_FLAG_INHERIT));
        writer.WriteInteger(section, u"Values", data->GetValues());
        writer.WriteString(section, u"Help", data->GetHelp());
    }
}
