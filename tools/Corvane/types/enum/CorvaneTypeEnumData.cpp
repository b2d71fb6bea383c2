#include "enum/CorvaneTypeEnumData.h"

#include "CorvaneMgr.h"
#include "FileSystem.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "Path.h"
#include "common/SchemaName.h"
#include "host/Questions.h"

CCorvaneTypeEnumData::CCorvaneTypeEnumData(const SAttribDataConstruct& construct)
    : CCorvaneSchemaAttribData(construct)
{
    if (EqualNames(GetExtensionPart(GetData()), u"enum"))
        ReadEnumFile(JoinCanonical(GetDirectoryPart(construct.m_sFile), GetData()));
    else
        m_pValues = CEnumValueList::FromData(GetData());
    Join();
}

CCorvaneTypeEnumData::CCorvaneTypeEnumData(const CCorvaneTypeEnumData& other)
    : CCorvaneSchemaAttribData(other), m_pValues(other.m_pValues)
{
    Join();
}

CCorvaneTypeEnumData::~CCorvaneTypeEnumData()
{
    m_pAll->erase(m_Place);
}

CRef<CCorvaneSchemaAttribData> CCorvaneTypeEnumData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeEnumData(*this));
}

void CCorvaneTypeEnumData::Join()
{
    m_pAll = GetManager().GetTypeState<CEnumState>().GetData();
    m_Place = m_pAll->insert(m_pAll->end(), this);
}

void CCorvaneTypeEnumData::ReadEnumFile(const std::u16string& path)
{
    m_pValues = CEnumValueList::FromData({});
    CCorvaneMgr& manager = GetManager();
    if (!manager.GetContext().m_Files.Exists(path))
        return TellMissingFile(path);
    const CFileError error = manager.GetTypeState<CEnumState>().GetFileValues(path, m_pValues);
    if (error.m_Code == EFileError::InvalidData)
        Tell(u"Invalid Enum File Format",
             u"The following enum file is not in Unicode format and cannot be parsed:\n\n%s", path);
    else if (!error.IsOk())
        Tell(u"Unexpected Enum File Error",
             u"An unexpected error occurred when parsing the following enum file:\n\n%s", path);
}

void CCorvaneTypeEnumData::Tell(std::u16string_view title, std::u16string_view format,
                                const std::u16string& path) const
{
    GetManager().GetContext().m_Questions.Tell(title, FormatText(format, path));
}

void CCorvaneTypeEnumData::TellMissingFile(const std::u16string& path) const
{
    const std::u16string text =
        GetSchema() == nullptr
            ? FormatText(u"Cannot locate the following enum file declared as a struct attribute '%s':\n\n%s",
                         GetName(), path)
            : FormatText(u"Cannot locate the following enum file specified in schema '%s', attribute "
                         u"'%s':\n\n%s",
                         GetSchemaName(*this), GetName(), path);
    GetManager().GetContext().m_Questions.Tell(u"Invalid Enum Path", text);
}
