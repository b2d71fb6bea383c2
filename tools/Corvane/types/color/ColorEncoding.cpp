#include "color/ColorEncoding.h"

#include "NameCompare.h"

#include <cstddef>

namespace
{
struct SEncoding
{
    std::u16string_view m_sName;
    EDatabaseValueType m_Type;
};

// In the order of the enumeration.
constexpr SEncoding kEncodings[] = {
    {u"Float_RGB", DBVALUE_VECTOR3}, {u"Float_ARGB", DBVALUE_VECTOR4}, {u"Float_RGBA", DBVALUE_VECTOR4},
    {u"Int_XRGB", DBVALUE_INTEGER},  {u"Int_ARGB", DBVALUE_INTEGER},   {u"Int_RGBA", DBVALUE_INTEGER},
    {u"Int_RGBX", DBVALUE_INTEGER},  {u"Int_XBGR", DBVALUE_INTEGER},   {u"Int_ABGR", DBVALUE_INTEGER},
    {u"Int_BGRA", DBVALUE_INTEGER},  {u"Int_BGRX", DBVALUE_INTEGER},
};

const SEncoding& GetEncoding(EColorEncoding encoding)
{
    return kEncodings[static_cast<std::size_t>(encoding)];
}

std::u16string_view GetLetters(EColorEncoding encoding)
{
    const std::u16string_view name = GetEncoding(encoding).m_sName;
    return name.substr(name.find(u'_') + 1);
}

std::uint32_t GetPart(std::uint32_t color, char16_t letter)
{
    switch (letter)
    {
    case u'R':
        return color & 0xFFU;
    case u'G':
        return color >> 8U & 0xFFU;
    case u'B':
        return color >> 16U & 0xFFU;
    case u'A':
        return color >> 24U;
    default:
        return 0;
    }
}
} // namespace

std::optional<EColorEncoding> FindColorEncoding(std::u16string_view name)
{
    std::uint8_t number = 0;
    for (const SEncoding& encoding : kEncodings)
    {
        if (EqualNames(encoding.m_sName, name))
            return static_cast<EColorEncoding>(number);
        ++number;
    }
    return std::nullopt;
}

EDatabaseValueType GetColorValueType(EColorEncoding encoding)
{
    return GetEncoding(encoding).m_Type;
}

std::int32_t EncodeColorInteger(EColorEncoding encoding, std::uint32_t color)
{
    std::uint32_t value = 0;
    for (const char16_t letter : GetLetters(encoding))
        value = value << 8U | GetPart(color, letter);
    return static_cast<std::int32_t>(value);
}

std::array<float, 4> EncodeColorVector(EColorEncoding encoding, std::uint32_t color)
{
    // Not 1/255 but the constant that games know; product and constant are rounded to 32 bits.
    constexpr float kScale = 0.003921569F;
    std::array<float, 4> value{};
    std::size_t place = 0;
    for (const char16_t letter : GetLetters(encoding))
        value[place++] = static_cast<float>(GetPart(color, letter)) * kScale;
    return value;
}
