#include "ColorChoice.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr float kHues = 360;
constexpr float kMost = 255;

float ToShare(int part)
{
    return static_cast<float>(std::clamp(part, 0, 255)) / kMost;
}
} // namespace

int CColorChoice::GetHue() const
{
    return std::min(static_cast<int>(std::lround(m_fHue * kHues)), 359);
}

int CColorChoice::GetSaturation() const
{
    return static_cast<int>(std::lround(m_fSaturation * kMost));
}

void CColorChoice::SetColor(const QColor& color)
{
    m_Color = color.toRgb();
    float hue = 0;
    float saturation = 0;
    float value = 0;
    m_Color.getHsvF(&hue, &saturation, &value);
    if (value > 0)
        m_fSaturation = saturation;
    if (hue >= 0)
        m_fHue = hue;
}

void CColorChoice::SetHueAndSaturation(int hue, int saturation)
{
    m_fHue = static_cast<float>(std::clamp(hue, 0, 359)) / kHues;
    m_fSaturation = ToShare(saturation);
    Mix(m_Color.valueF());
}

void CColorChoice::SetValue(int value)
{
    Mix(ToShare(value));
}

void CColorChoice::Mix(float value)
{
    const QColor mixed = QColor::fromHsvF(m_fHue, m_fSaturation, value).toRgb();
    // Whole parts, as a value of the database has them.
    m_Color = QColor(mixed.red(), mixed.green(), mixed.blue(), m_Color.alpha());
}

void CColorChoice::SetAlpha(int alpha)
{
    m_Color.setAlpha(std::clamp(alpha, 0, 255));
}
