// The schemas of a generated database: five kinds of records, each with five attributes of a common parent
// schema and fifteen of its own, so that every record has twenty.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

enum class EForm
{
    Integer,
    Float,
    Boolean,
    Time,
    Text,
    Memo,
};

struct SAttributeForm
{
    std::u16string_view m_sName;
    EForm m_Form;
    std::int32_t m_nMin = 0;    // Limits of a number; unused otherwise.
    std::int32_t m_nMax = 0;    // Of a text, its largest length.
    std::int32_t m_nValues = 1; // -1 for a variable count.
    std::uint32_t m_nBuild = 0;
    bool m_bInherit = true;
};

struct SSchemaForm
{
    std::u16string_view m_sName;
    std::u16string_view m_sPlural; // Name of its top category.
    std::span<const SAttributeForm> m_Attributes;
};

inline constexpr std::size_t kAttributesPerRecord = 20;
inline constexpr std::u16string_view kParentSchema = u"Thing";

[[nodiscard]] std::span<const SAttributeForm> GetParentAttributes();
[[nodiscard]] std::span<const SSchemaForm> GetSchemaForms();
