// Texts on their way into an output, which wants them terminated and mostly narrow.
//
// A compile sends millions of short texts. The objects here convert those in place, without the heap, and
// are meant to be made once for all values of an attribute.
#pragma once

#include "idatabasecreator.h"

#include <cstddef>
#include <string>
#include <string_view>

class CCorvaneSchemaAttribData;

// UTF-8 with a terminator.
class CNarrowText
{
public:
    // The result lives until the next call. A lone surrogate becomes U+FFFD.
    [[nodiscard]] const char* Convert(std::u16string_view text);

private:
    [[nodiscard]] bool ConvertShort(std::u16string_view text);

    static constexpr std::size_t kShortUnits = 127;
    char m_Short[kShortUnits + 1];
    std::string m_sLong;
};

// UTF-16 with a terminator, which the texts of a value list lack.
class CWideText
{
public:
    // The result lives until the next call.
    [[nodiscard]] const char16_t* Convert(std::u16string_view text);

private:
    static constexpr std::size_t kShortUnits = 127;
    char16_t m_Short[kShortUnits + 1];
    std::u16string m_sLong;
};

// True when the attribute's texts are compiled wide; data may be missing.
[[nodiscard]] bool IsWideText(const CCorvaneSchemaAttribData* data);

// The texts of one attribute, sent in the one width or the other.
class CTextSender
{
public:
    explicit CTextSender(bool wide) : m_bWide(wide) {}

    [[nodiscard]] EDatabaseValueType GetValueType() const
    {
        return m_bWide ? DBVALUE_WIDETEXT : DBVALUE_TEXT;
    }
    void Send(IDatabaseCreatorMgr& creator, CreatorHandle attribute, std::size_t index,
              std::u16string_view text);

private:
    bool m_bWide;
    CNarrowText m_Narrow;
    CWideText m_Wide;
};
