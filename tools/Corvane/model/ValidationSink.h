// Where attributes report values that are not usable.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

class CCorvaneAttrib;

enum class ESeverity : int
{
    Warning = 0,
    Critical = 1,
};

class IValidationSink
{
public:
    virtual ~IValidationSink() = default;
    // `type` is a short label, `description` the whole message, `attrib` may be null. `valueIndex` counts
    // from 0. Texts are copied.
    virtual void AddError(ESeverity severity, std::u16string_view type, std::u16string_view description,
                          CCorvaneAttrib* attrib, std::size_t valueIndex) = 0;
    // The build under test.
    [[nodiscard]] virtual std::uint32_t GetBuild() const = 0;
};
