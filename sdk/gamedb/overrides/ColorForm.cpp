#include "ColorForm.h"

#include "DataTokens.h"
#include "OverrideCursor.h"
#include "OverrideError.h"
#include "OverrideNumbers.h"

#include <algorithm>
#include <cmath>

namespace
{
struct SEncoding
{
    std::string_view name;
    EDatabaseValueType type;

    std::string_view GetLetters() const { return name.substr(name.find('_') + 1); }
};

constexpr SEncoding kEncodings[] = {
    {"Int_ABGR", DBVALUE_INTEGER},   {"Float_RGB", DBVALUE_VECTOR3}, {"Float_ARGB", DBVALUE_VECTOR4},
    {"Float_RGBA", DBVALUE_VECTOR4}, {"Int_XRGB", DBVALUE_INTEGER},  {"Int_ARGB", DBVALUE_INTEGER},
    {"Int_RGBA", DBVALUE_INTEGER},   {"Int_RGBX", DBVALUE_INTEGER},  {"Int_XBGR", DBVALUE_INTEGER},
    {"Int_BGRA", DBVALUE_INTEGER},   {"Int_BGRX", DBVALUE_INTEGER}};

constexpr std::string_view kParts = "RGBA";
// Not 1/255 but the constant that games know; product and constant are rounded to 32 bits.
constexpr float kScale = 0.003921569F;

// Of several names the last counts; without one it is the first of the table.
const SEncoding& FindEncoding(std::string_view data)
{
    const SEncoding* found = kEncodings;
    for (const std::string_view token : SplitData(data))
    {
        const auto* const named = std::find_if(std::begin(kEncodings), std::end(kEncodings),
                                               [&](const SEncoding& e) { return EqualAscii(e.name, token); });
        if (named != std::end(kEncodings))
            found = named;
    }
    return *found;
}

// The nearest part, whatever the bits of the float are.
std::uint32_t PartOf(float value)
{
    const float scaled = value / kScale;
    return scaled >= 0 ? static_cast<std::uint32_t>(std::lround(std::min(scaled, 255.0F))) : 0;
}
} // namespace

CColorForm::CColorForm(const SOverrideAttribute& attribute)
    : m_sLetters(FindEncoding(attribute.data).GetLetters()), m_bInteger(attribute.type == DBVALUE_INTEGER)
{
}

bool CColorForm::Fits(const SOverrideAttribute& attribute)
{
    return FindEncoding(attribute.data).type == attribute.type;
}

std::size_t CColorForm::GetPartCount() const
{
    return m_sLetters.find('A') != std::string_view::npos ? 4 : 3;
}

CColorForm::Parts CColorForm::Decode(const SOverrideValue& value) const
{
    Parts parts{};
    for (std::size_t i = 0; i < m_sLetters.size(); ++i)
    {
        const std::size_t part = kParts.find(m_sLetters[i]);
        if (part != std::string_view::npos)
            parts[part] =
                m_bInteger ? value.words[0] >> (24 - 8 * i) & 0xFF : PartOf(AsFloat(value.words[i]));
    }
    return parts;
}

SOverrideValue CColorForm::Encode(const Parts& parts) const
{
    SOverrideValue value;
    for (std::size_t i = 0; i < m_sLetters.size(); ++i)
    {
        const std::size_t place = kParts.find(m_sLetters[i]);
        const std::uint32_t part = place == std::string_view::npos ? 0 : parts[place];
        if (m_bInteger)
            value.words[0] |= part << (24 - 8 * i);
        else
            value.words[i] = std::bit_cast<std::uint32_t>(static_cast<float>(part) * kScale);
    }
    return value;
}

void CColorForm::Write(const SOverrideValue& value, std::string& out) const
{
    const Parts parts = Decode(value);
    for (std::size_t i = 0; i < GetPartCount(); ++i)
        (out += i == 0 ? "(" : ", ") += std::to_string(parts[i]);
    out += ')';
}

bool CColorForm::Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const
{
    Parts parts{};
    bool isSound = true;
    for (std::size_t i = 0; i < GetPartCount() && isSound; ++i)
    {
        std::int32_t part = 0;
        isSound = cursor.Take(i == 0 ? '(' : ',');
        if (isSound &&
            (!ReadInteger(cursor.TakeBare(",()"), part, error) || !CheckLimits(part, 0, 255, error)))
            return false;
        parts[i] = static_cast<std::uint32_t>(part);
    }
    if (!isSound || !cursor.Take(')'))
        return error.Set(EOverrideCause::BadValue, GetPartCount() == 4
                                                       ? "a colour is written (red, green, blue, alpha)"
                                                       : "a colour is written (red, green, blue)");
    value = Encode(parts);
    return true;
}

std::vector<std::string> CColorForm::Describe() const
{
    return {GetPartCount() == 4 ? "Colour (red, green, blue, alpha), each from 0 to 255"
                                : "Colour (red, green, blue), each from 0 to 255"};
}
