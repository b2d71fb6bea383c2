// printf-like formatting into UTF-16, for the system's messages and names.
//
// Directives: %s (text), %d (integer), %u, %f (six decimals), %x and %X, each with optional width and
// precision as printf has them ("%.4d", "%3d"), "%1!s!" to "%9!s!" for the numbered argument, and "%%". A
// directive without an argument, or with one of another kind, fires an assertion and writes nothing.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

class CFormatArg
{
public:
    CFormatArg(std::u16string_view text) : m_Kind(EKind::Text), m_sText(text) {}
    CFormatArg(const std::u16string& text) : m_Kind(EKind::Text), m_sText(text) {}
    CFormatArg(const char16_t* text) : m_Kind(EKind::Text), m_sText(text) {}
    CFormatArg(int value) : m_Kind(EKind::Integer), m_nValue(value) {}
    CFormatArg(unsigned value) : m_Kind(EKind::Integer), m_nValue(value) {}
    CFormatArg(long value) : m_Kind(EKind::Integer), m_nValue(value) {}
    CFormatArg(unsigned long value) : m_Kind(EKind::Integer), m_nValue(static_cast<std::int64_t>(value)) {}
    CFormatArg(double value) : m_Kind(EKind::Float), m_fValue(value) {}

    enum class EKind
    {
        Text,
        Integer,
        Float
    };
    EKind GetKind() const { return m_Kind; }
    std::u16string_view GetText() const { return m_sText; }
    std::int64_t GetInteger() const { return m_nValue; }
    double GetFloat() const { return m_fValue; }

private:
    EKind m_Kind;
    std::u16string_view m_sText;
    std::int64_t m_nValue = 0;
    double m_fValue = 0;
};

[[nodiscard]] std::u16string FormatTextList(std::u16string_view format,
                                            std::initializer_list<CFormatArg> arguments);

// Text arguments are read during the call only.
template <class... Args>
[[nodiscard]] std::u16string FormatText(std::u16string_view format, const Args&... arguments)
{
    return FormatTextList(format, {CFormatArg(arguments)...});
}
