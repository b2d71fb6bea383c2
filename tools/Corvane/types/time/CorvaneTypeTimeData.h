// Attribute data of a Time: whether times may be negative, from the token "AllowNegative" of the Data text.
#pragma once

#include "CorvaneSchemaAttribData.h"

class CCorvaneTypeTimeData final : public CCorvaneSchemaAttribData
{
public:
    explicit CCorvaneTypeTimeData(const SAttribDataConstruct& construct);

    void ParseDataToken(std::u16string_view token) override;
    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;

    [[nodiscard]] bool IsNegativeAllowed() const { return m_bAllowNegative; }

private:
    bool m_bAllowNegative = false;
};
