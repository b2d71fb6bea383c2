// The override text (`MPCustomizations.txt`): a line for each attribute that a server's administrator may
// change, with notes that explain it. See docs/formats/override-text.md.
#pragma once

#include "OverrideAttribute.h"
#include "OverrideError.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The whole text. `limitsFile` is the name by which the text speaks of the limits file.
[[nodiscard]] std::string WriteOverrideText(std::span<const SOverrideAttribute> attributes,
                                            std::string_view limitsFile);

// A line that is more than a note.
struct SOverrideLine
{
    // From 1.
    std::size_t number = 0;
    std::string name;
    // What stands behind the '='.
    std::string_view values;
    // When it has a cause, nothing but the number is known.
    SOverrideError error;
};

// An edited text, taken apart into lines.
class COverrideLines
{
public:
    // Takes UTF-8, with or without its mark, or UTF-16 with its mark, and any kind of line ends. Returns the
    // cause of a refusal, empty when the bytes are text. `bytes` need not live longer.
    [[nodiscard]] std::string Open(std::span<const std::byte> bytes);
    // Goes to the next line that is more than a note; false at the end. The line lives as long as the object.
    [[nodiscard]] bool Next(SOverrideLine& line);

private:
    std::string m_sText;
    std::string_view m_sRest;
    std::size_t m_nNumber = 0;
};
