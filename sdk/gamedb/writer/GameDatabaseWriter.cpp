#include "GameDatabaseWriter.h"

#include "PackedSerializer.h"
#include "izroutconverter.h"

#include "packeddatabase_generated.h"

#include <bit>
#include <cstring>

namespace
{
bool IsShapeValid(std::int32_t type, std::int32_t kind, std::int32_t count)
{
    const bool isText = type == DBVALUE_TEXT || type == DBVALUE_WIDETEXT;
    return type >= DBVALUE_BOOLEAN && type <= DBVALUE_STRUCT && kind >= DBKIND_PLAIN &&
           kind <= DBKIND_EFFECT && (isText || kind == DBKIND_PLAIN) && count >= 0 &&
           static_cast<std::uint32_t>(count) <= packed::kMaxValues;
}
} // namespace

std::uint32_t CGameDatabaseWriter::AddCategory(std::string_view path, std::string_view schema)
{
    const std::uint32_t pathText = m_Model.texts.Intern(path, m_Budget);
    const std::uint32_t schemaText = m_Model.texts.Intern(schema, m_Budget);
    if (!m_Budget.Take(sizeof(packed::Category)))
        return kNone;
    m_Model.categories.Append({pathText, schemaText});
    return static_cast<std::uint32_t>(m_Model.categories.size() - 1);
}

std::uint32_t CGameDatabaseWriter::AddRecord(std::uint32_t category, std::string_view name)
{
    if (category >= m_Model.categories.size())
        return kNone;
    const std::uint32_t nameText = m_Model.texts.Intern(name, m_Budget);
    if (!m_Budget.Take(sizeof(packed::Record)))
        return kNone;
    m_Model.records.Append({category, nameText});
    return static_cast<std::uint32_t>(m_Model.records.size() - 1);
}

std::uint32_t CGameDatabaseWriter::AddAttribute(std::uint32_t record, std::string_view name,
                                                std::int32_t type, std::int32_t kind, std::int32_t count)
{
    if (record >= m_Model.records.size() || !IsShapeValid(type, kind, count))
        return kNone;
    const auto typeCode = static_cast<std::uint32_t>(type);
    const auto values = static_cast<std::uint32_t>(count);
    const std::uint32_t words = packed::WordCount(typeCode, values);
    const std::uint64_t floats = std::uint64_t{packed::Dimension(typeCode)} * values;
    const std::uint32_t nameText = InternName(record, name);
    if (!m_Budget.Take(sizeof(packed::Attrib) + (words + floats) * sizeof(std::uint32_t)))
        return kNone;
    // Room for everything first, so that a lack of memory leaves the database as it was.
    m_Model.attribs.Reserve(1);
    SDatabaseModel::SAttrib attrib{record, nameText, 0, 0};
    attrib.SetShape(typeCode, static_cast<std::uint32_t>(kind), values);
    if (words != 0)
    {
        attrib.value = static_cast<std::uint32_t>(m_Model.words.size());
        m_Model.words.AppendZeros(words);
    }
    else if (floats != 0)
    {
        attrib.value = static_cast<std::uint32_t>(m_Model.floats.size());
        m_Model.floats.AppendZeros(floats);
    }
    m_Model.attribs.Append(attrib);
    return static_cast<std::uint32_t>(m_Model.attribs.size() - 1);
}

// Neighbouring records mostly have the same attributes in the same order, so that the name at the same place
// of the record before is compared ahead of a search among all names.
std::uint32_t CGameDatabaseWriter::InternName(std::uint32_t record, std::string_view name)
{
    const std::size_t count = m_Model.attribs.size();
    if (count != 0 && m_Model.attribs[count - 1].record != record)
    {
        m_nNamesake = m_nRecordStart;
        m_nRecordStart = count;
    }
    if (m_nNamesake < m_nRecordStart)
    {
        const std::uint32_t known = m_Model.attribs[m_nNamesake++].name;
        if (m_Model.texts[known] == name)
            return known;
    }
    return m_Model.texts.Intern(name, m_Budget);
}

SDatabaseModel::SAttrib* CGameDatabaseWriter::FindValue(std::uint32_t attribute, std::int32_t index,
                                                        EDatabaseValueType type)
{
    if (attribute >= m_Model.attribs.size() || index < 0)
        return nullptr;
    SDatabaseModel::SAttrib& attrib = m_Model.attribs[attribute];
    if (attrib.GetType() != static_cast<std::uint32_t>(type) ||
        static_cast<std::uint32_t>(index) >= attrib.GetCount())
        return nullptr;
    return &attrib;
}

bool CGameDatabaseWriter::SetWord(std::uint32_t attribute, std::int32_t index, EDatabaseValueType type,
                                  std::uint32_t word)
{
    SDatabaseModel::SAttrib* attrib = FindValue(attribute, index, type);
    if (attrib == nullptr)
        return false;
    if (attrib->GetCount() == 1)
        attrib->value = word;
    else
        m_Model.words[attrib->value + static_cast<std::uint32_t>(index)] = word;
    return true;
}

bool CGameDatabaseWriter::SetBoolean(std::uint32_t attribute, std::int32_t index, bool value)
{
    return SetWord(attribute, index, DBVALUE_BOOLEAN, value ? 1 : 0);
}

bool CGameDatabaseWriter::SetInteger(std::uint32_t attribute, std::int32_t index, std::int32_t value)
{
    return SetWord(attribute, index, DBVALUE_INTEGER, static_cast<std::uint32_t>(value));
}

bool CGameDatabaseWriter::SetFloat(std::uint32_t attribute, std::int32_t index, float value)
{
    return SetWord(attribute, index, DBVALUE_FLOAT, std::bit_cast<std::uint32_t>(value));
}

bool CGameDatabaseWriter::SetText(std::uint32_t attribute, std::int32_t index, std::string_view value)
{
    if (FindValue(attribute, index, DBVALUE_TEXT) == nullptr)
        return false;
    const std::uint32_t text = m_Model.texts.Intern(value, m_Budget);
    return text != kNone && SetWord(attribute, index, DBVALUE_TEXT, text);
}

bool CGameDatabaseWriter::SetWideText(std::uint32_t attribute, std::int32_t index, std::u16string_view value)
{
    if (FindValue(attribute, index, DBVALUE_WIDETEXT) == nullptr)
        return false;
    const std::uint32_t text = m_Model.wideTexts.Intern(value, m_Budget);
    return text != kNone && SetWord(attribute, index, DBVALUE_WIDETEXT, text);
}

bool CGameDatabaseWriter::SetVector(std::uint32_t attribute, std::int32_t index, EDatabaseValueType type,
                                    const float* value)
{
    const std::uint32_t dimension = packed::Dimension(static_cast<std::uint32_t>(type));
    const SDatabaseModel::SAttrib* attrib = FindValue(attribute, index, type);
    if (attrib == nullptr || dimension == 0)
        return false;
    float* target = &m_Model.floats[attrib->value + static_cast<std::uint32_t>(index) * dimension];
    std::memcpy(target, value, dimension * sizeof(float));
    return true;
}

bool CGameDatabaseWriter::SetRecordLink(std::uint32_t attribute, std::int32_t index, std::uint32_t record)
{
    if (record != kNone && record >= m_Model.records.size())
        return false;
    // A link is stored as the record's index plus 1, so that kNone wraps to the 0 of "no link".
    return SetWord(attribute, index, DBVALUE_RECORDLINK, record + 1);
}

bool CGameDatabaseWriter::Save(IZROutConverter& out) const
{
    if (m_Budget.IsExceeded())
        return false;
    CPackedSerializer serializer(m_Model, m_Budget.GetLimit());
    return serializer.Build() && serializer.Write(out);
}
