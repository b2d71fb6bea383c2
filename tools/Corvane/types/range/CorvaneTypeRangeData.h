// Attribute data of a Range: the inclusive limits of both its numbers, from "min=" and "max=" of the Data
// text, and from the token "int" whether people may enter whole numbers only.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "range/RangeText.h"

#include <limits>

class CCorvaneTypeRangeData final : public CCorvaneSchemaAttribData
{
public:
    explicit CCorvaneTypeRangeData(const SAttribDataConstruct& construct);

    void ParseDataToken(std::u16string_view token) override;
    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;

    [[nodiscard]] float GetMinimum() const { return m_fMinimum; }
    [[nodiscard]] float GetMaximum() const { return m_fMaximum; }
    // For the dialogs; stored values and outputs keep their fractions.
    [[nodiscard]] bool IsIntegerOnly() const { return m_bIntegerOnly; }
    // True when both numbers lie inside the limits.
    [[nodiscard]] bool IsInRange(const SRange& range) const;
    // The nearer limit for a number outside them.
    [[nodiscard]] float Clamp(float value) const;

private:
    [[nodiscard]] bool IsInRange(float value) const { return value >= m_fMinimum && value <= m_fMaximum; }

    float m_fMinimum = std::numeric_limits<float>::lowest();
    float m_fMaximum = std::numeric_limits<float>::max();
    bool m_bIntegerOnly = false;
};
