// How an attribute reads and writes its section of a record file.
#include "CorvaneAttrib.h"

#include "CorvaneRecord.h"
#include "CorvaneSchemaAttribData.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "NumberText.h"
#include "UnicodeFileParse_ReadOnly.h"
#include "zrassert.h"

#include <cstring>
#include <iterator>
#include <unordered_map>

namespace
{
constexpr std::u16string_view kValuePrefix = u"Value.";
constexpr std::u16string_view kTrue = u"True";
constexpr std::u16string_view kFalse = u"False";

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

inline std::uint64_t LoadFour(const char16_t* units)
{
    std::uint64_t four = 0;
    std::memcpy(&four, units, sizeof four);
    return four;
}

// Same units, exactly. Names and flags are compared a few million times in a load, and all of them are short.
inline bool IsSameText(std::u16string_view a, std::u16string_view b)
{
    const std::size_t size = a.size();
    if (size != b.size())
        return false;
    if (size < 4)
        return a == b;
    for (std::size_t i = 0; i + 4 < size; i += 4)
    {
        if (LoadFour(a.data() + i) != LoadFour(b.data() + i))
            return false;
    }
    return LoadFour(a.data() + size - 4) == LoadFour(b.data() + size - 4);
}

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

// Tells the marks of a section, each once: the first key of a name counts.
class CMarkReader
{
public:
    // 0 for a key that is no mark, or one that was seen.
    unsigned Next(std::u16string_view name)
    {
        // Files that this program wrote hold the marks in this order, ahead of everything else.
        if (m_nNext < std::size(kMarkNames) && IsSameText(name, kMarkNames[m_nNext].m_sName))
            return Take(kMarkNames[m_nNext++].m_Mark);
        for (const SMarkName& mark : kMarkNames)
        {
            if (mark.m_sName.size() == name.size() && EqualNames(mark.m_sName, name))
                return Take(mark.m_Mark);
        }
        return 0;
    }

private:
    unsigned Take(unsigned mark)
    {
        const bool seen = (m_nSeen & mark) != 0;
        m_nSeen |= mark;
        return seen ? 0 : mark;
    }

    std::size_t m_nNext = 0;
    unsigned m_nSeen = 0;
};

bool IsValueKey(std::u16string_view name)
{
    return IsSameText(name.substr(0, kValuePrefix.size()), kValuePrefix) ||
           BeginsWithName(name, kValuePrefix);
}

// True for the key of value `index` in the form that this program writes.
bool IsPlainValueKey(std::u16string_view name, std::size_t index)
{
    if (name.size() != kValuePrefix.size() + 4 ||
        !IsSameText(name.substr(0, kValuePrefix.size()), kValuePrefix))
        return false;
    std::size_t number = 0;
    for (const char16_t digit : name.substr(kValuePrefix.size()))
        number = digit >= u'0' && digit <= u'9' ? number * 10 + (digit - u'0') : index + 1;
    return number == index;
}

bool IsTrue(std::u16string_view text)
{
    return IsSameText(text, kTrue) || (!IsSameText(text, kFalse) && ParseBoolean(text));
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
    ClearMarks();
    ZRASSERT_MSG(!m_pParentRecord, "m_pParentRecord == NULL");
    SetParentRecord(&record);
    SetParentAttrib(parentAttrib);
    if (m_pAttribData)
        m_nBuild = m_pAttribData->GetBuild();

    m_Values.Clear();
    CMarkReader marks;
    bool inOrder = true;
    for (const SSectionKey& key : parser.GetKeys(section))
    {
        if (const unsigned mark = marks.Next(key.m_sName))
            LoadMark(mark, key.m_sValue);
        else if (inOrder && IsValueKey(key.m_sName))
            inOrder = LoadNextValue(key);
    }
    // Files that this program wrote hold the values in order; any other order is looked up.
    if (!inOrder)
        LoadValuesByName(parser, section);
    FillDefaultValues();
    OnOwnValuesChanged();
    return true;
}

void CCorvaneAttrib::LoadMarks(const CUnicodeFileParse_ReadOnly& parser, std::size_t section)
{
    CMarkReader marks;
    for (const SSectionKey& key : parser.GetKeys(section))
    {
        if (const unsigned mark = marks.Next(key.m_sName))
            LoadMark(mark, key.m_sValue);
    }
}

void CCorvaneAttrib::LoadMark(unsigned mark, std::u16string_view value)
{
    switch (mark)
    {
    case MarkInherit:
        m_bInherit = IsTrue(value);
        break;
    case MarkPlaceHolder:
        m_bPlaceHolder = IsTrue(value);
        break;
    case MarkTodo:
        m_bTodo = IsTrue(value);
        break;
    case MarkModified:
        m_bModified = IsTrue(value);
        break;
    case MarkOverride:
        m_bOverride = IsTrue(value);
        break;
    case MarkLock:
        m_bLocked = !value.empty();
        if (m_bLocked)
            GetExtra().m_sLockUser = value;
        break;
    default:
        if (!value.empty())
            GetExtra().m_sComment = DecodeMultiLine(value);
        break;
    }
}

// False when the key is not that of the value after the last.
bool CCorvaneAttrib::LoadNextValue(const SSectionKey& key)
{
    const std::size_t next = m_Values.GetCount();
    if (!IsPlainValueKey(key.m_sName, next) && !EqualNames(key.m_sName, CValueKey(next)))
        return false;
    m_Values.Add(key.m_sValue);
    return true;
}

void CCorvaneAttrib::LoadValuesByName(const CUnicodeFileParse_ReadOnly& parser, std::size_t section)
{
    std::unordered_map<std::u16string_view, std::u16string_view, CNameHash, CNameEqual> byName;
    for (const SSectionKey& key : parser.GetKeys(section))
        byName.emplace(key.m_sName, key.m_sValue);
    m_Values.Clear();
    for (auto found = byName.find(CValueKey(0)); found != byName.end();
         found = byName.find(CValueKey(m_Values.GetCount())))
        m_Values.Add(found->second);
}

// A fixed list keeps the default in the places that the file does not name.
void CCorvaneAttrib::FillDefaultValues()
{
    if (!m_pAttribData)
        return;
    const auto count = static_cast<std::ptrdiff_t>(m_pAttribData->GetValues());
    for (auto i = static_cast<std::ptrdiff_t>(m_Values.GetCount()); i < count; ++i)
        m_Values.Add(GetDefaultText());
}

bool CCorvaneAttrib::SaveMarks(IUnicodeFileParse& writer, std::u16string_view section) const
{
    return writer.WriteBoolean(section, u"Inherit", m_bInherit) &&
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
