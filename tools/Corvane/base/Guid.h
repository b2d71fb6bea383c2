// A 16-byte identity. Its text form is the registry's: 32 hexadecimal digits in groups of 8-4-4-4-12, in
// braces. The first three groups are numbers kept in the machine's order, as the text shows them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class CGuid
{
public:
    constexpr CGuid() = default;
    explicit constexpr CGuid(const std::array<std::uint8_t, 16>& bytes) : m_Bytes(bytes) {}

    // A new random identity.
    [[nodiscard]] static CGuid Create();
    // Only the braced form is accepted.
    [[nodiscard]] static std::optional<CGuid> Parse(std::u16string_view text);
    // Braced, upper case.
    [[nodiscard]] std::u16string ToText() const;
    [[nodiscard]] bool IsNull() const { return *this == CGuid(); }
    // Bytes in the order in which the text shows them.
    [[nodiscard]] const std::array<std::uint8_t, 16>& GetBytes() const { return m_Bytes; }

    constexpr bool operator==(const CGuid&) const = default;

private:
    std::array<std::uint8_t, 16> m_Bytes{};
};
