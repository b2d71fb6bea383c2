// Attribute data of the free-text types: the longest text that a person may type, from "max=" of the Data
// text. Nothing but a Memo's dialog and the override output enforce it.
#pragma once

#include "CorvaneSchemaAttribData.h"

#include <cstdint>

class CCorvaneTypeStringData final : public CCorvaneSchemaAttribData
{
public:
    explicit CCorvaneTypeStringData(const SAttribDataConstruct& construct);

    void ParseDataToken(std::u16string_view token) override;
    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;

    // In UTF-16 units; -1 for no limit.
    [[nodiscard]] std::int32_t GetMaximumLength() const { return m_nMaximumLength; }

private:
    std::int32_t m_nMaximumLength = -1;
};
