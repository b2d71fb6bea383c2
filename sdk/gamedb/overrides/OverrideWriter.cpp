#include "OverrideWriter.h"

#include "OverrideLimitsFile.h"
#include "OverrideTextFile.h"
#include "PackedLayout.h"
#include "ReplacedFile.h"
#include "Utf8.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <unordered_set>

namespace
{
std::string_view NameOf(std::string_view path)
{
    return path.substr(path.rfind('/') + 1);
}
} // namespace

std::uint32_t COverrideWriter::AddAttribute(std::string_view help, std::int32_t type, std::string_view name,
                                            std::string_view data, std::string_view typeWord,
                                            std::int32_t valueCount)
{
    const bool isType = type >= DBVALUE_BOOLEAN && type <= DBVALUE_RECORDLINK && type != DBVALUE_WIDETEXT;
    if (!isType || name.empty() || valueCount < -1 || m_Attributes.size() == kNone)
        return kNone;
    SOverrideAttribute attribute;
    attribute.name = CleanUtf8(name);
    attribute.help = CleanUtf8(help);
    attribute.data = CleanUtf8(data);
    attribute.typeWord = CleanUtf8(typeWord);
    attribute.type = static_cast<EDatabaseValueType>(type);
    attribute.valueCount = valueCount;
    m_Attributes.push_back(std::move(attribute));
    return static_cast<std::uint32_t>(m_Attributes.size() - 1);
}

SOverrideAttribute* COverrideWriter::Find(std::uint32_t index, EDatabaseValueType type)
{
    if (index >= m_Attributes.size() || m_Attributes[index].type != type)
        return nullptr;
    return &m_Attributes[index];
}

bool COverrideWriter::SetLimits(std::uint32_t index, EDatabaseValueType type, EOverrideLimits limits,
                                std::uint32_t minimum, std::uint32_t maximum)
{
    SOverrideAttribute* const attribute = Find(index, type);
    if (attribute == nullptr)
        return false;
    attribute->limits = limits;
    attribute->minimum = minimum;
    attribute->maximum = maximum;
    return true;
}

bool COverrideWriter::SetIntegerLimits(std::uint32_t index, std::int32_t minimum, std::int32_t maximum)
{
    return SetLimits(index, DBVALUE_INTEGER, EOverrideLimits::Integer, static_cast<std::uint32_t>(minimum),
                     static_cast<std::uint32_t>(maximum));
}

bool COverrideWriter::SetFloatLimits(std::uint32_t index, float minimum, float maximum)
{
    return std::isfinite(minimum) && std::isfinite(maximum) &&
           SetLimits(index, DBVALUE_FLOAT, EOverrideLimits::Float, std::bit_cast<std::uint32_t>(minimum),
                     std::bit_cast<std::uint32_t>(maximum));
}

bool COverrideWriter::SetTextLimits(std::uint32_t index, std::int32_t minimum, std::int32_t maximum)
{
    return SetLimits(index, DBVALUE_TEXT, EOverrideLimits::Text, static_cast<std::uint32_t>(minimum),
                     static_cast<std::uint32_t>(maximum));
}

bool COverrideWriter::Append(SOverrideAttribute* attribute, SOverrideValue value)
{
    if (attribute == nullptr || attribute->values.size() >= kMaxOverrideValues)
        return false;
    attribute->values.push_back(std::move(value));
    return true;
}

bool COverrideWriter::AddInteger(std::uint32_t index, std::int32_t value)
{
    return Append(Find(index, DBVALUE_INTEGER), {{static_cast<std::uint32_t>(value)}, {}});
}

bool COverrideWriter::AddFloat(std::uint32_t index, float value)
{
    return std::isfinite(value) &&
           Append(Find(index, DBVALUE_FLOAT), {{std::bit_cast<std::uint32_t>(value)}, {}});
}

bool COverrideWriter::AddBoolean(std::uint32_t index, bool value)
{
    return Append(Find(index, DBVALUE_BOOLEAN), {{value ? 1U : 0U}, {}});
}

bool COverrideWriter::AddText(std::uint32_t index, std::string_view value)
{
    SOverrideAttribute* const text = Find(index, DBVALUE_TEXT);
    return Append(text ? text : Find(index, DBVALUE_RECORDLINK), {{}, CleanUtf8(value)});
}

bool COverrideWriter::AddVector(std::uint32_t index, EDatabaseValueType type, const float* value)
{
    SOverrideValue vector;
    for (std::size_t i = 0; i < packed::Dimension(static_cast<std::uint32_t>(type)); ++i)
    {
        if (!std::isfinite(value[i]))
            return false;
        vector.words[i] = std::bit_cast<std::uint32_t>(value[i]);
    }
    return Append(Find(index, type), std::move(vector));
}

bool COverrideWriter::Save(const std::string& textPath, const std::string& limitsPath) const
{
    // A game finds only the first attribute of a name.
    std::vector<SOverrideAttribute> first;
    std::unordered_set<std::string_view> names;
    std::copy_if(m_Attributes.begin(), m_Attributes.end(), std::back_inserter(first),
                 [&](const SOverrideAttribute& attribute) { return names.insert(attribute.name).second; });
    CReplacedFile text(textPath);
    CReplacedFile limits(limitsPath);
    if (text.GetTarget() == limits.GetTarget() || !text.Write(WriteOverrideText(first, NameOf(limitsPath))) ||
        !limits.Write(WriteOverrideLimits(first)) || !text.Replace())
        return false;
    if (limits.Replace())
        return true;
    text.Restore();
    return false;
}
