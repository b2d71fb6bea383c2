// What the two override files say about one attribute: the limits file holds all of it but the help, the text
// shows all of it to a person.
#pragma once

#include "idatabasecreator.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// One value of any type. Numbers lie in the words by their bits: a boolean, an integer or a float in the
// first, a vector in as many as it has dimensions; unused words are 0. A text, and the path of a linked
// record, is well-formed UTF-8.
struct SOverrideValue
{
    std::array<std::uint32_t, 4> words{};
    std::string text;
};

enum class EOverrideLimits : std::uint32_t
{
    None = 0,
    Integer = 1,
    Float = 2,
    // Of the length in UTF-16 units; a maximum of -1 is none.
    Text = 3,
};

struct SOverrideAttribute
{
    // The path of the record, a '/' and the name by which the record finds the attribute.
    std::string name;
    std::string help;
    // The schema's type-specific text and the type's word.
    std::string data;
    std::string typeWord;
    EDatabaseValueType type = DBVALUE_INTEGER;
    // -1 for a list of any length; of every other attribute the number of values counts.
    std::int32_t valueCount = 1;
    EOverrideLimits limits = EOverrideLimits::None;
    // By their bits.
    std::uint32_t minimum = 0;
    std::uint32_t maximum = 0;
    std::vector<SOverrideValue> values;

    bool IsList() const { return valueCount == -1; }
};

// Values that one attribute can have in an override text.
inline constexpr std::size_t kMaxOverrideValues = 0x100000;
