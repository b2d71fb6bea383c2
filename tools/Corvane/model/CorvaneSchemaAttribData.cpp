#include "CorvaneSchemaAttribData.h"

#include "FormatText.h"
#include "NameCompare.h"

namespace
{
CCorvaneSchemaAttribData::SSection MakeSection(std::u16string name)
{
    const std::size_t hash = HashName(name);
    return {std::move(name), hash};
}

// A list of no values at all is not a shape that a schema can ask for.
std::int32_t NormalizeCount(std::int32_t values)
{
    return values == kVariableValues || values >= 1 ? values : 1;
}
} // namespace

CCorvaneSchemaAttribData::CCorvaneSchemaAttribData(const SAttribDataConstruct& construct)
    : m_sName(construct.m_sName), m_sData(construct.m_sData), m_sHelp(construct.m_sHelp),
      m_nValues(NormalizeCount(construct.m_nValues)), m_pManager(construct.m_pManager),
      m_pSchema(construct.m_pSchema)
{
    SetFlag(ATTRIB_FLAG_UNICODE, construct.m_bUnicode);
    SetFlag(ATTRIB_FLAG_DELETED, construct.m_bDeleted);
    SetFlag(ATTRIB_FLAG_INHERIT, construct.m_bInherit);
    m_PlainSection = MakeSection(FormatText(u"Attrib.%s", m_sName));
    SetBuild(construct.m_nBuild);
}

CCorvaneSchemaAttribData::CCorvaneSchemaAttribData(const CCorvaneSchemaAttribData& other)
    : m_dwFlags(other.m_dwFlags), m_sName(other.m_sName), m_sData(other.m_sData), m_sHelp(other.m_sHelp),
      m_nValues(other.m_nValues), m_nBuild(other.m_nBuild), m_pManager(other.m_pManager),
      m_pSchema(other.m_pSchema), m_BuildSection(other.m_BuildSection), m_PlainSection(other.m_PlainSection)
{
}

void CCorvaneSchemaAttribData::ParseDataToken(std::u16string_view) {}

CRef<CCorvaneSchemaAttribData> CCorvaneSchemaAttribData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneSchemaAttribData(*this));
}

void CCorvaneSchemaAttribData::SetBuild(std::uint32_t build)
{
    m_nBuild = build;
    m_BuildSection = MakeSection(FormatText(u"Attrib.%s.%u", m_sName, build));
}

void CCorvaneSchemaAttribData::ParseData()
{
    std::u16string_view rest = m_sData;
    while (!rest.empty())
    {
        const std::size_t end = rest.find(u';');
        ParseDataToken(rest.substr(0, end));
        rest = end == std::u16string_view::npos ? std::u16string_view() : rest.substr(end + 1);
    }
}
