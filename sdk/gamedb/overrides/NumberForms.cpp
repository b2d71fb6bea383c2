#include "NumberForms.h"

#include "DataTokens.h"
#include "OverrideCursor.h"
#include "OverrideError.h"
#include "OverrideNumbers.h"

#include <algorithm>
#include <limits>

namespace
{
using IntegerLimits = std::numeric_limits<std::int32_t>;
using FloatLimits = std::numeric_limits<float>;

struct SBooleanWord
{
    std::string_view word;
    bool value;
};
constexpr SBooleanWord kBooleanWords[] = {{"True", true}, {"False", false}, {"Yes", true}, {"No", false},
                                          {"On", true},   {"Off", false},   {"1", true},   {"0", false}};
} // namespace

void CBooleanForm::Write(const SOverrideValue& value, std::string& out) const
{
    out += value.words[0] != 0 ? "True" : "False";
}

bool CBooleanForm::Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const
{
    const std::string_view text = cursor.TakeBare(",");
    const auto* const word =
        std::find_if(std::begin(kBooleanWords), std::end(kBooleanWords),
                     [&](const SBooleanWord& known) { return EqualAscii(known.word, text); });
    if (word == std::end(kBooleanWords))
        return error.Set(EOverrideCause::BadValue, QuoteForMessage(text) + " is neither True nor False");
    value.words[0] = word->value;
    return true;
}

std::vector<std::string> CBooleanForm::Describe() const
{
    return {"True or False"};
}

CIntegerForm::CIntegerForm(const SOverrideAttribute& attribute)
    : m_nMinimum(IntegerLimits::min()), m_nMaximum(IntegerLimits::max())
{
    if (attribute.limits != EOverrideLimits::Integer)
        return;
    m_nMinimum = AsInteger(attribute.minimum);
    m_nMaximum = AsInteger(attribute.maximum);
}

void CIntegerForm::Write(const SOverrideValue& value, std::string& out) const
{
    out += FormatNumber(AsInteger(value.words[0]));
}

bool CIntegerForm::Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const
{
    std::int32_t number = 0;
    if (!ReadInteger(cursor.TakeBare(","), number, error))
        return false;
    value.words[0] = static_cast<std::uint32_t>(number);
    return true;
}

bool CIntegerForm::Check(const SOverrideValue& value, const IOverrideUse&, SOverrideError& error) const
{
    return CheckLimits(AsInteger(value.words[0]), m_nMinimum, m_nMaximum, error);
}

std::vector<std::string> CIntegerForm::Describe() const
{
    return {"Whole number" +
            DescribeLimits(m_nMinimum, m_nMaximum, IntegerLimits::min(), IntegerLimits::max())};
}

CTimeForm::CTimeForm(const SOverrideAttribute& attribute) : CIntegerForm(attribute)
{
    const std::vector<std::string_view> tokens = SplitData(attribute.data);
    const bool allowsNegative =
        std::any_of(tokens.begin(), tokens.end(),
                    [](std::string_view token) { return EqualAscii(token, "AllowNegative"); });
    if (!allowsNegative)
        m_nMinimum = std::max(m_nMinimum, 0);
}

std::vector<std::string> CTimeForm::Describe() const
{
    return {"Time in milliseconds (1000 are a second, 60000 a minute, 3600000 an hour)" +
            DescribeLimits(m_nMinimum, m_nMaximum, IntegerLimits::min(), IntegerLimits::max())};
}

CFloatForm::CFloatForm(const SOverrideAttribute& attribute)
    : m_fMinimum(FloatLimits::lowest()), m_fMaximum(FloatLimits::max())
{
    if (attribute.limits != EOverrideLimits::Float)
        return;
    m_fMinimum = AsFloat(attribute.minimum);
    m_fMaximum = AsFloat(attribute.maximum);
}

void CFloatForm::Write(const SOverrideValue& value, std::string& out) const
{
    out += FormatNumber(AsFloat(value.words[0]));
}

bool CFloatForm::Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const
{
    float number = 0;
    if (!ReadFloat(cursor.TakeBare(","), number, error))
        return false;
    value.words[0] = std::bit_cast<std::uint32_t>(number);
    return true;
}

bool CFloatForm::Check(const SOverrideValue& value, const IOverrideUse&, SOverrideError& error) const
{
    return CheckLimits(AsFloat(value.words[0]), m_fMinimum, m_fMaximum, error);
}

std::vector<std::string> CFloatForm::Describe() const
{
    return {"Number" + DescribeLimits(m_fMinimum, m_fMaximum, FloatLimits::lowest(), FloatLimits::max())};
}
