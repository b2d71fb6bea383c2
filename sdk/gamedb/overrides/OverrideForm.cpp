#include "OverrideForm.h"

#include "ColorForm.h"
#include "FlagsForm.h"
#include "NumberForms.h"
#include "OverrideCursor.h"
#include "OverrideError.h"
#include "TextForms.h"
#include "VectorForms.h"

namespace
{
std::unique_ptr<IOverrideForm> MakeIntegerForm(const SOverrideAttribute& attribute)
{
    if (attribute.typeWord == "Time")
        return std::make_unique<CTimeForm>(attribute);
    if (attribute.typeWord == "Flags")
        return std::make_unique<CFlagsForm>(attribute);
    return std::make_unique<CIntegerForm>(attribute);
}

std::unique_ptr<IOverrideForm> MakeTextForm(const SOverrideAttribute& attribute)
{
    if (attribute.typeWord == "Enum")
        return std::make_unique<CEnumForm>(attribute);
    return std::make_unique<CTextForm>(attribute);
}

std::unique_ptr<IOverrideForm> MakeVectorForm(const SOverrideAttribute& attribute)
{
    if (attribute.typeWord == "Range" && attribute.type == DBVALUE_VECTOR2)
        return std::make_unique<CRangeForm>(attribute);
    return std::make_unique<CVectorForm>(attribute.type);
}
} // namespace

std::unique_ptr<IOverrideForm> MakeOverrideForm(const SOverrideAttribute& attribute)
{
    if (attribute.typeWord == "Color" && CColorForm::Fits(attribute))
        return std::make_unique<CColorForm>(attribute);
    switch (attribute.type)
    {
    case DBVALUE_BOOLEAN:
        return std::make_unique<CBooleanForm>();
    case DBVALUE_FLOAT:
        return std::make_unique<CFloatForm>(attribute);
    case DBVALUE_INTEGER:
        return MakeIntegerForm(attribute);
    case DBVALUE_RECORDLINK:
        return std::make_unique<CLinkForm>(attribute);
    case DBVALUE_VECTOR2:
    case DBVALUE_VECTOR3:
    case DBVALUE_VECTOR4:
        return MakeVectorForm(attribute);
    default:
        return MakeTextForm(attribute);
    }
}

std::string WriteOverrideValues(const IOverrideForm& form, std::span<const SOverrideValue> values)
{
    std::string text;
    for (const SOverrideValue& value : values)
    {
        if (&value != values.data())
            text += ", ";
        form.Write(value, text);
    }
    return text;
}

bool ReadOverrideValues(const IOverrideForm& form, COverrideCursor& cursor,
                        std::vector<SOverrideValue>& values, SOverrideError& error)
{
    values.clear();
    if (cursor.IsAtEnd())
        return true;
    do
    {
        if (values.size() == kMaxOverrideValues)
            return error.Set(EOverrideCause::WrongCount,
                             "it has more than " + std::to_string(kMaxOverrideValues) + " values");
        if (!form.Read(cursor, values.emplace_back(), error))
            return false;
    } while (cursor.Take(','));
    if (!cursor.IsAtEnd())
        return error.Set(EOverrideCause::BrokenLine,
                         "a comma or the end of the line is missing ahead of " + cursor.GetRest());
    return true;
}
