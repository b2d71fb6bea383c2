// Attribute data of an Integer: its inclusive limits, from "min=" and "max=" of the Data text.
#pragma once

#include "CorvaneSchemaAttribData.h"

#include <cstdint>
#include <limits>

class CCorvaneTypeIntegerData final : public CCorvaneSchemaAttribData
{
public:
    explicit CCorvaneTypeIntegerData(const SAttribDataConstruct& construct);

    void ParseDataToken(std::u16string_view token) override;
    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;

    [[nodiscard]] std::int32_t GetMinimum() const { return m_nMinimum; }
    [[nodiscard]] std::int32_t GetMaximum() const { return m_nMaximum; }
    [[nodiscard]] bool IsInRange(std::int32_t value) const
    {
        return value >= m_nMinimum && value <= m_nMaximum;
    }
    // The nearer limit for a value outside them.
    [[nodiscard]] std::int32_t Clamp(std::int32_t value) const;

private:
    std::int32_t m_nMinimum = std::numeric_limits<std::int32_t>::min();
    std::int32_t m_nMaximum = std::numeric_limits<std::int32_t>::max();
};
