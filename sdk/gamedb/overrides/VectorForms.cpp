#include "VectorForms.h"

#include "DataTokens.h"
#include "OverrideCursor.h"
#include "OverrideError.h"
#include "OverrideNumbers.h"
#include "PackedLayout.h"

#include <cmath>
#include <limits>

namespace
{
using FloatLimits = std::numeric_limits<float>;

constexpr const char* kExamples[] = {"(x, y)", "(x, y, z)", "(x, y, z, w)"};
} // namespace

CVectorForm::CVectorForm(EDatabaseValueType type)
    : m_nDimension(packed::Dimension(static_cast<std::uint32_t>(type)))
{
}

void CVectorForm::Write(const SOverrideValue& value, std::string& out) const
{
    for (std::size_t i = 0; i < m_nDimension; ++i)
    {
        out += i == 0 ? "(" : ", ";
        out += FormatNumber(AsFloat(value.words[i]));
    }
    out += ')';
}

bool CVectorForm::Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const
{
    bool isSound = true;
    for (std::size_t i = 0; i < m_nDimension && isSound; ++i)
    {
        float number = 0;
        isSound = cursor.Take(i == 0 ? '(' : ',');
        if (isSound && !ReadFloat(cursor.TakeBare(",()"), number, error))
            return false;
        value.words[i] = std::bit_cast<std::uint32_t>(number);
    }
    if (!isSound || !cursor.Take(')'))
        return error.Set(EOverrideCause::BadValue, std::string("a value is written ") +
                                                       kExamples[m_nDimension - 2] +
                                                       ", with its parentheses");
    return true;
}

std::vector<std::string> CVectorForm::Describe() const
{
    return {std::to_string(m_nDimension) + " numbers in parentheses " + kExamples[m_nDimension - 2]};
}

CRangeForm::CRangeForm(const SOverrideAttribute& attribute)
    : CVectorForm(attribute.type), m_fMinimum(FloatLimits::lowest()), m_fMaximum(FloatLimits::max())
{
    for (std::string_view token : SplitData(attribute.data))
    {
        if (TakePrefix(token, "min="))
            m_fMinimum = LeadingFloat(token);
        else if (TakePrefix(token, "max="))
            m_fMaximum = LeadingFloat(token);
        else if (EqualAscii(token, "int"))
            m_bIntegerOnly = true;
    }
}

bool CRangeForm::Check(const SOverrideValue& value, const IOverrideUse&, SOverrideError& error) const
{
    const float low = AsFloat(value.words[0]);
    const float high = AsFloat(value.words[1]);
    for (const float number : {low, high})
    {
        if (!CheckLimits(number, m_fMinimum, m_fMaximum, error))
            return false;
        if (m_bIntegerOnly && std::floor(number) != number)
            return error.Set(EOverrideCause::OutOfLimits, FormatNumber(number) + " is not a whole number");
    }
    if (low > high)
        return error.Set(EOverrideCause::OutOfLimits, "the smaller number of a range comes first");
    return true;
}

std::vector<std::string> CRangeForm::Describe() const
{
    return {std::string("Range (smallest, largest) of two ") +
            (m_bIntegerOnly ? "whole numbers" : "numbers") +
            DescribeLimits(m_fMinimum, m_fMaximum, FloatLimits::lowest(), FloatLimits::max())};
}
