// How a struct file is read and written, and what it is as a file under source control.
#include "struct/StructFile.h"

#include "AttribSection.h"
#include "CorvaneMgr.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneTypeMgr.h"
#include "FormatText.h"
#include "Path.h"
#include "SourceFileWriter.h"
#include "SourceGate.h"
#include "host/Questions.h"
#include "struct/CorvaneTypeStruct.h"
#include "struct/StructFileRegistry.h"

#include <unordered_map>

// A section that declares a member.
struct CStructFile::SDeclaration
{
    std::size_t m_nSection = 0;
    CAttribSection m_Name;
};

namespace
{
using MemberIndex = std::unordered_map<std::u16string, std::size_t, CNameHash, CNameEqual>;

std::u16string MakeKey(std::u16string_view name, std::uint32_t build)
{
    return FormatText(u"%s.%u", name, build);
}

void TellDuplicate(CCorvaneMgr& manager, std::u16string_view a, std::u16string_view b,
                   std::u16string_view path)
{
    manager.GetContext().m_Questions.Tell(
        u"Duplicate Attributes",
        FormatText(u"The following struct file contains duplicate attributes.\n\nAttribute A: %s\nAttribute "
                   u"B: %s\n\n%s",
                   a, b, path));
}
} // namespace

bool CStructFile::Load(std::u16string_view owner)
{
    CUnicodeFileParse_ReadOnly parser(m_Manager.GetContext().m_Files);
    if (!parser.Import(m_sPath, 0))
    {
        TellUnreadable(parser.GetLastError().m_Code == EFileError::InvalidData);
        return false;
    }
    std::vector<SStructMember> members;
    for (const SDeclaration& declaration : FindDeclarations(parser))
        AddMember(members, parser, declaration, owner);
    TakeMembers(std::move(members));
    m_Stamp = parser.GetFileInfo().m_Stamp;
    m_bOpen = true;
    m_bModified = false;
    return true;
}

void CStructFile::TellUnreadable(bool wrongFormat) const
{
    IQuestions& questions = m_Manager.GetContext().m_Questions;
    if (wrongFormat)
        questions.Tell(
            u"Invalid Struct File Format",
            FormatText(u"The following struct file is not in Unicode format and cannot be parsed:\n\n%s",
                       m_sPath));
    else
        questions.Tell(
            u"Unexpected Struct File Error",
            FormatText(u"An unexpected error occurred when parsing the following struct file:\n\n%s",
                       m_sPath));
}

// Of two sections for one name and build the one with the number wins; of two in the same form the first.
std::vector<CStructFile::SDeclaration>
CStructFile::FindDeclarations(const CUnicodeFileParse_ReadOnly& parser) const
{
    std::vector<SDeclaration> declarations;
    MemberIndex known;
    for (std::size_t section = 0; section < parser.GetSectionCount(); ++section)
    {
        const CAttribSection name(parser.GetSectionName(section));
        if (!name.IsAttribute() || parser.FindValue(section, u"Type").data() == nullptr)
            continue;
        const auto [entry, added] =
            known.emplace(MakeKey(name.GetName(), name.GetBuild()), declarations.size());
        if (added)
        {
            declarations.push_back({section, name});
            continue;
        }
        SDeclaration& first = declarations[entry->second];
        if (first.m_Name.HasSuffix() == name.HasSuffix())
            TellDuplicate(m_Manager, parser.GetSectionName(first.m_nSection), parser.GetSectionName(section),
                          m_sPath);
        else if (name.HasSuffix())
            first = {section, name};
    }
    return declarations;
}

void CStructFile::AddMember(std::vector<SStructMember>& members, const CUnicodeFileParse_ReadOnly& parser,
                            const SDeclaration& declaration, std::u16string_view owner) const
{
    const auto read = [&](std::u16string_view key) { return parser.FindValue(declaration.m_nSection, key); };
    const std::u16string_view type = read(u"Type");
    SAttribDataConstruct construct;
    construct.m_sName = declaration.m_Name.GetName();
    construct.m_nBuild = declaration.m_Name.GetBuild();
    construct.m_sData = read(u"Data");
    construct.m_sHelp = read(u"Help");
    construct.m_sFile = m_sPath;
    construct.m_nValues = ParseInteger(read(u"Values"));
    construct.m_bUnicode = ParseBoolean(read(u"Unicode"));
    construct.m_bDeleted = ParseBoolean(read(u"Deleted"));
    construct.m_pManager = &m_Manager;
    SStructMember member;
    member.m_pData = m_Manager.GetAttribDataTypes().CreateAttribData(type, construct);
    if (member.m_pData)
        member.m_pDefault = m_Manager.GetTypes().CreateType(type, read(u"Default"), *member.m_pData, nullptr);
    if (!member.m_pDefault)
    {
        m_Manager.GetContext().m_Questions.Tell(
            u"Invalid Attribute",
            FormatText(u"Failed to create attribute of type '%s' in schema '%s'.  The attribute "
                       u"type may be invalid.\n\n%s",
                       type, owner, m_sPath));
        return;
    }
    member.m_pDefault->SetName(construct.m_sName);
    members.push_back(std::move(member));
}

void CStructFile::TakeMembers(std::vector<SStructMember> members)
{
    MemberIndex before;
    for (std::size_t i = 0; i < m_Members.size(); ++i)
        before.emplace(MakeKey(m_Members[i].m_pDefault->GetName(), m_Members[i].m_pData->GetBuild()), i);
    for (const SStructMember& member : members)
    {
        const auto old = before.find(MakeKey(member.m_pDefault->GetName(), member.m_pData->GetBuild()));
        if (old != before.end() && EqualNames(m_Members[old->second].m_pDefault->GetSchemaTypeName(),
                                              member.m_pDefault->GetSchemaTypeName()))
            member.m_pDefault->AdoptIdentity(*m_Members[old->second].m_pDefault);
    }
    m_Members = std::move(members);
    Index();
}

void CStructFile::SetModified(bool modified)
{
    m_bModified = modified;
    if (modified)
        m_Manager.SetDirty(true);
}

bool CStructFile::Save()
{
    CUnicodeFileParse_ReadWrite writer(m_Manager.GetContext().m_Files);
    FillWriter(writer);
    const EWriteResult result = WriteSourceFile(m_Manager, writer, m_sPath, m_Stamp);
    if (result == EWriteResult::Written)
        m_bModified = false;
    return result != EWriteResult::Aborted;
}

void CStructFile::FillWriter(IUnicodeFileParse& writer) const
{
    for (const SStructMember& member : m_Members)
    {
        const CCorvaneSchemaAttribData& data = *member.m_pData;
        const CCorvaneValueList& values = member.m_pDefault->GetOwnValues();
        const std::u16string& section = data.GetBuildSection().m_sName;
        writer.WriteString(section, u"Type", member.m_pDefault->GetSchemaTypeName());
        writer.WriteString(section, u"Data", data.GetData());
        writer.WriteString(section, u"Default",
                           values.GetCount() > 0 ? values.Get(0) : std::u16string_view(u""));
        writer.WriteBoolean(section, u"Unicode", data.TestFlag(ATTRIB_FLAG_UNICODE));
        writer.WriteBoolean(section, u"Deleted", data.TestFlag(ATTRIB_FLAG_DELETED));
        writer.WriteInteger(section, u"Values", data.GetValues());
        writer.WriteString(section, u"Help", data.GetHelp());
    }
}

bool CStructFile::Reload()
{
    const CRef<CStructFile> keepAlive(this);
    if (!m_Manager.GetTypeState<CStructFileRegistry>().Read(*this, GetFileNamePart(m_sPath)))
        return false;
    SynchronizeStructAttributes();
    return true;
}

std::uint32_t CStructFile::GetSourceControlFlags()
{
    switch (m_Manager.GetGate().GetFileStatus(m_sPath))
    {
    case EControlledFileStatus::CheckedOutHere:
        return CUSTOMFILE_LISTED | CUSTOMFILE_CHECKED_OUT;
    case EControlledFileStatus::CheckedIn:
        return CUSTOMFILE_LISTED | CUSTOMFILE_CHECKED_IN;
    default:
        return CUSTOMFILE_LISTED;
    }
}

bool CStructFile::AddToSourceControl()
{
    CSourceGate& gate = m_Manager.GetGate();
    return !gate.IsConnected() || gate.IsControlled(m_sPath) || gate.AddFile(m_sPath);
}

bool CStructFile::Submit()
{
    CSourceGate& gate = m_Manager.GetGate();
    const std::uint32_t flags = GetSourceControlFlags();
    if (!gate.IsConnected() || (flags & CUSTOMFILE_CHECKED_IN) != 0)
        return true;
    return (flags & CUSTOMFILE_CHECKED_OUT) != 0 && gate.CheckIn(m_sPath);
}

bool CStructFile::CheckOut()
{
    CSourceGate& gate = m_Manager.GetGate();
    const std::uint32_t flags = GetSourceControlFlags();
    if (!gate.IsConnected() || (flags & CUSTOMFILE_CHECKED_OUT) != 0)
        return true;
    return (flags & CUSTOMFILE_CHECKED_IN) != 0 && gate.CheckOutForEdit(m_sPath);
}

bool CStructFile::UndoCheckOut()
{
    CSourceGate& gate = m_Manager.GetGate();
    const std::uint32_t flags = GetSourceControlFlags();
    if (!gate.IsConnected() || (flags & CUSTOMFILE_CHECKED_IN) != 0)
        return true;
    return (flags & CUSTOMFILE_CHECKED_OUT) != 0 && gate.UndoCheckOut(m_sPath) && Reload();
}

bool CStructFile::SaveAndSubmit()
{
    if (!Save())
        return false;
    return (GetSourceControlFlags() & CUSTOMFILE_CHECKED_OUT) == 0 || Submit();
}

bool CStructFile::Revert()
{
    return (GetSourceControlFlags() & CUSTOMFILE_CHECKED_OUT) == 0 || UndoCheckOut();
}

void CStructFile::GetDisplayName(std::u16string& out) const
{
    out = SplitPath(m_sPath).name;
}

void CStructFile::GetFilePath(std::u16string& out) const
{
    out = m_sPath;
}

void CStructFile::GetTypeName(std::u16string& out) const
{
    out = u"Struct";
}
