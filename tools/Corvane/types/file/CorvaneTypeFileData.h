// Attribute data of a File and a Sound: the filter of the browse dialog, which is the whole Data text.
#pragma once

#include "CorvaneSchemaAttribData.h"

class CCorvaneTypeFileData final : public CCorvaneSchemaAttribData
{
public:
    using CCorvaneSchemaAttribData::CCorvaneSchemaAttribData;

    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;

    // Pairs of a label and its patterns, each part ended by a bar, as in "All Files (*.*)|*.*|".
    [[nodiscard]] const std::u16string& GetFilter() const { return GetData(); }
};
