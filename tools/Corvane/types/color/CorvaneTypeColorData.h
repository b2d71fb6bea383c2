// Attribute data of a Color: the form in which it is compiled, from a token of the Data text that is the
// name of an encoding.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "color/ColorEncoding.h"

class CCorvaneTypeColorData final : public CCorvaneSchemaAttribData
{
public:
    explicit CCorvaneTypeColorData(const SAttribDataConstruct& construct);

    void ParseDataToken(std::u16string_view token) override;
    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;

    [[nodiscard]] EColorEncoding GetEncoding() const { return m_Encoding; }

private:
    EColorEncoding m_Encoding = EColorEncoding::Int_ABGR;
};
