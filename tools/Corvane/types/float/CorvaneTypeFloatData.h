// Attribute data of a Float: its inclusive limits, from "min=" and "max=" of the Data text.
#pragma once

#include "CorvaneSchemaAttribData.h"

#include <limits>

class CCorvaneTypeFloatData final : public CCorvaneSchemaAttribData
{
public:
    explicit CCorvaneTypeFloatData(const SAttribDataConstruct& construct);

    void ParseDataToken(std::u16string_view token) override;
    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;

    [[nodiscard]] float GetMinimum() const { return m_fMinimum; }
    [[nodiscard]] float GetMaximum() const { return m_fMaximum; }
    [[nodiscard]] bool IsInRange(float value) const { return value >= m_fMinimum && value <= m_fMaximum; }
    // The nearer limit for a value outside them.
    [[nodiscard]] float Clamp(float value) const;

private:
    float m_fMinimum = std::numeric_limits<float>::lowest();
    float m_fMaximum = std::numeric_limits<float>::max();
};
