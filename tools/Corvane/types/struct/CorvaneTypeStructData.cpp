#include "struct/CorvaneTypeStructData.h"

#include "CorvaneMgr.h"
#include "CorvaneSchema.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "Path.h"
#include "host/Questions.h"
#include "struct/StructFileRegistry.h"
#include "zrassert.h"

CCorvaneTypeStructData::CCorvaneTypeStructData(const SAttribDataConstruct& construct)
    : CCorvaneSchemaAttribData(construct), m_pStructFile(OpenFile(construct))
{
}

CRef<CStructFile> CCorvaneTypeStructData::OpenFile(const SAttribDataConstruct& construct) const
{
    IQuestions& questions = GetManager().GetContext().m_Questions;
    // A struct file stands for the schema that a member of it does not have.
    const std::u16string owner(GetSchema() ? std::u16string_view(GetSchema()->GetName())
                                           : GetFileNamePart(construct.m_sFile));
    if (!EqualNames(GetExtensionPart(GetData()), u"struct"))
    {
        questions.Tell(
            u"Invalid Data Field",
            FormatText(u"The data field of the following 'Struct' attribute is invalid.\n\nAttribute:\t "
                       u"%s\nData:\t %s\nSchema:\t %s",
                       GetName(), GetData(), owner));
        return nullptr;
    }
    const std::u16string path = JoinCanonical(GetDirectoryPart(construct.m_sFile), GetData());
    if (!GetManager().GetContext().m_Files.Exists(path))
    {
        questions.Tell(
            u"Invalid Struct Path",
            FormatText(
                u"Cannot locate the following struct file specified in schema '%s', attribute '%s':\n\n%s",
                owner, GetName(), path));
        return nullptr;
    }
    return GetManager().GetTypeState<CStructFileRegistry>().Open(path, owner, GetName());
}

CRef<CCorvaneSchemaAttribData> CCorvaneTypeStructData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeStructData(*this));
}

void CCorvaneTypeStructData::SynchronizeStructAttributes()
{
    ZRASSERT(m_pStructFile);
    if (m_pStructFile)
        m_pStructFile->SynchronizeStructAttributes();
}

std::size_t CCorvaneTypeStructData::GetMemberCount() const
{
    return m_pStructFile ? m_pStructFile->GetMembers().size() : 0;
}

CCorvaneSchemaAttribData& CCorvaneTypeStructData::GetMemberData(std::size_t index) const
{
    return *m_pStructFile->GetMembers()[index].m_pData;
}

const std::u16string& CCorvaneTypeStructData::GetFile() const
{
    static const std::u16string none;
    return m_pStructFile ? m_pStructFile->GetPath() : none;
}

void CCorvaneTypeStructData::RemoveMember(std::size_t index)
{
    ZRASSERT(m_pStructFile);
    if (index >= GetMemberCount())
        return;
    m_pStructFile->RemoveMember(index);
    m_pStructFile->SynchronizeStructAttributes();
}
