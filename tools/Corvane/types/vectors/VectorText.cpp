#include "vectors/VectorText.h"

#include "FormatText.h"
#include "common/NumberList.h"

VectorValue ParseVector(std::u16string_view text)
{
    VectorValue value{};
    ScanFloats(text, value);
    return value;
}

std::u16string FormatVector(const VectorValue& value)
{
    return FormatText(u"%f, %f, %f, %f", value[0], value[1], value[2], value[3]);
}
