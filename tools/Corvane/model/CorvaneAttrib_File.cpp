// How an attribute reads and writes its section of a record file.
#include "CorvaneAttrib.h"

#include "CorvaneRecord.h"
#include "CorvaneSchemaAttribData.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "NumberText.h"
#include "UnicodeFileParse_ReadOnly.h"
#include "zrassert.h"

#include <unordered_map>

namespace
{
constexpr std::u16string_view kValuePrefix = u"Value.";

// "Value.0000" upward, without a heap block.
class CValueKey
{
public:
    explicit CValueKey(std::size_t index)
    {
        std::size_t digits = 4;
        for (std::size_t rest = index / 10000; rest != 0; rest /= 10)
            ++digits;
        m_nLength = kValuePrefix.size() + digits;
        kValuePrefix.copy(m_Text, kValuePrefix.size());
        for (std::size_t i = m_nLength; i > kValuePrefix.size(); index /= 10)
            m_Text[--i] = static_cast<char16_t>(u'0' + index % 10);
    }
    operator std::u16string_view() const { return {m_Text, m_nLength}; }

private:
    char16_t m_Text[32];
    std::size_t m_nLength;
};

// The marks of a section, in the bits of a set.
enum EMark : unsigned
{
    MarkInherit = 0x01,
    MarkPlaceHolder = 0x02,
    MarkTodo = 0x04,
    MarkModified = 0x08,
    MarkOverride = 0x10,
    MarkLock = 0x20,
    MarkComment = 0x40,
};

struct SMarkName
{
    std::u16string_view m_sName;
    EMark m_Mark;
};

constexpr SMarkName kMarkNames[] = {
    {u"Inherit", MarkInherit},   {u"PlaceHolder", MarkPlaceHolder}, {u"Todo", MarkTodo},
    {u"Modified", MarkModified}, {u"Override", MarkOverride},       {u"Lock", MarkLock},
    {u"Comment", MarkComment},
};

unsigned FindMark(std::u16string_view name)
{
    for (const SMarkName& mark : kMarkNames)
    {
        if (mark.m_sName.size() == name.size() && EqualNames(mark.m_sName, name))
            return mark.m_Mark;
    }
    return 0;
}
} // namespace

void CCorvaneAttrib::GetSectionName(std::u16string& out, std::u16string_view prefix) const
{
    const std::u16string_view head = prefix.empty() ? u"Attrib" : prefix;
    out = m_nBuild == 0 ? FormatText(u"%s.%s", head, GetName())
                        : FormatText(u"%s.%s.%u", head, GetName(), m_nBuild);
}

bool CCorvaneAttrib::LoadFromFile(CCorvaneRecord& record, CCorvaneAttrib* parentAttrib,
                                  const CUnicodeFileParse_ReadOnly& parser, std::size_t section)
{
    const CRef<CCorvaneRecord> keepAlive(&record);
    Clear();
    ZRASSERT_MSG(!m_pParentRecord, "m_pParentRecord == NULL");
    SetParentRecord(&record);
    SetParentAttrib(parentAttrib);
    LoadMarks(parser, section);
    if (m_pAttribData)
        m_nBuild = m_pAttribData->GetBuild();

    // Files that this program wrote hold the values in order; any other order is looked up.
    std::size_t next = 0;
    bool inOrder = true;
    for (const SSectionKey& key : parser.GetKeys(section))
    {
        if (!BeginsWithName(key.m_sName, kValuePrefix))
            continue;
        inOrder = inOrder && EqualNames(key.m_sName, CValueKey(next));
        if (!inOrder)
            break;
        LoadValue(key.m_sValue, next++);
    }
    if (!inOrder)
        LoadValuesByName(parser, section, next);
    return true;
}

void CCorvaneAttrib::LoadMarks(const CUnicodeFileParse_ReadOnly& parser, std::size_t section)
{
    unsigned seen = 0;
    for (const SSectionKey& key : parser.GetKeys(section))
    {
        const unsigned mark = FindMark(key.m_sName);
        if (mark == 0 || (seen & mark) != 0)
            continue; // The first key of a name counts.
        seen |= mark;
        if (mark == MarkLock)
        {
            m_bLocked = !key.m_sValue.empty();
            if (m_bLocked)
                GetExtra().m_sLockUser = key.m_sValue;
            continue;
        }
        if (mark == MarkComment)
        {
            if (!key.m_sValue.empty())
                GetExtra().m_sComment = DecodeMultiLine(key.m_sValue);
            continue;
        }
        const bool on = ParseBoolean(key.m_sValue);
        switch (mark)
        {
        case MarkInherit:
            m_bInherit = on;
            break;
        case MarkPlaceHolder:
            m_bPlaceHolder = on;
            break;
        case MarkTodo:
            m_bTodo = on;
            break;
        case MarkModified:
            m_bModified = on;
            break;
        default:
            m_bOverride = on;
            break;
        }
    }
}

void CCorvaneAttrib::LoadValue(std::u16string_view text, std::size_t index)
{
    if (index < m_Values.GetCount())
        m_Values.Set(index, text);
    else
        m_Values.Add(text);
}

void CCorvaneAttrib::LoadValuesByName(const CUnicodeFileParse_ReadOnly& parser, std::size_t section,
                                      std::size_t first)
{
    std::unordered_map<std::u16string_view, std::u16string_view, CNameHash, CNameEqual> byName;
    for (const SSectionKey& key : parser.GetKeys(section))
        byName.emplace(key.m_sName, key.m_sValue);
    for (std::size_t i = first;; ++i)
    {
        const auto found = byName.find(CValueKey(i));
        if (found == byName.end())
            return;
        LoadValue(found->second, i);
    }
}

bool CCorvaneAttrib::SaveMarks(IUnicodeFileParse& writer, std::u16string_view section) const
{
    return writer.WriteBoolean(section, u"Inherit", GetInherit()) &&
           writer.WriteBoolean(section, u"PlaceHolder", m_bPlaceHolder) &&
           writer.WriteBoolean(section, u"Todo", m_bTodo) &&
           writer.WriteBoolean(section, u"Modified", m_bModified) &&
           writer.WriteBoolean(section, u"Override", GetOverride()) &&
           writer.WriteString(section, u"Lock", GetLockUser()) &&
           writer.WriteString(section, u"Comment", EncodeMultiLine(GetComment()));
}

bool CCorvaneAttrib::SaveToFile(IUnicodeFileParse& writer, std::u16string_view prefix) const
{
    std::u16string section;
    GetSectionName(section, prefix);
    if (!SaveMarks(writer, section))
        return false;
    const std::size_t count = GetValueList().GetCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        std::u16string_view value = GetValue(i);
        if (value.data() == nullptr)
            value = u"";
        if (!writer.WriteString(section, CValueKey(i), value))
            return false;
    }
    return true;
}
