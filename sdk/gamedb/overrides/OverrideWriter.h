// Collects what may be overridden and writes the two files of it: the text that an administrator edits and
// the limits. A creator library uses it.
//
// Attributes are indexes from 0. Texts are UTF-8; a byte that belongs to no character becomes U+FFFD. What
// does not fit the attribute's type is refused and changes nothing.
#pragma once

#include "OverrideAttribute.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class COverrideWriter
{
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    // kNone for a type that an override text cannot hold, an empty name, or a count below -1.
    std::uint32_t AddAttribute(std::string_view help, std::int32_t type, std::string_view name,
                               std::string_view data, std::string_view typeWord, std::int32_t valueCount);

    // A limit that is no finite number is refused.
    [[nodiscard]] bool SetIntegerLimits(std::uint32_t index, std::int32_t minimum, std::int32_t maximum);
    [[nodiscard]] bool SetFloatLimits(std::uint32_t index, float minimum, float maximum);
    [[nodiscard]] bool SetTextLimits(std::uint32_t index, std::int32_t minimum, std::int32_t maximum);

    // Each appends a value. A number that is not finite is refused.
    [[nodiscard]] bool AddInteger(std::uint32_t index, std::int32_t value);
    [[nodiscard]] bool AddFloat(std::uint32_t index, float value);
    [[nodiscard]] bool AddBoolean(std::uint32_t index, bool value);
    // Also for a link, as the path of its record.
    [[nodiscard]] bool AddText(std::uint32_t index, std::string_view value);
    // Reads as many numbers as the type, one of the vectors, has.
    [[nodiscard]] bool AddVector(std::uint32_t index, EDatabaseValueType type, const float* value);

    // Writes both files whole (paths are UTF-8): each takes its target's place only when both are on the
    // disk. False when one could not be written; then both old files are as they were, but for a limits file
    // that could not take its place on a file system without hard links, where the text may be the new one.
    [[nodiscard]] bool Save(const std::string& textPath, const std::string& limitsPath) const;

private:
    // Null when there is no such attribute, or it is of another type.
    SOverrideAttribute* Find(std::uint32_t index, EDatabaseValueType type);
    [[nodiscard]] bool SetLimits(std::uint32_t index, EDatabaseValueType type, EOverrideLimits limits,
                                 std::uint32_t minimum, std::uint32_t maximum);
    [[nodiscard]] static bool Append(SOverrideAttribute* attribute, SOverrideValue value);

    std::vector<SOverrideAttribute> m_Attributes;
};
