// A colour while it is being chosen: red, green and blue beside hue, saturation and value. The hue of a grey
// and the saturation of black, which a colour cannot tell, stay what they were, so that no marker jumps.
#pragma once

#include <QColor>

class CColorChoice
{
public:
    [[nodiscard]] const QColor& GetColor() const { return m_Color; }
    // 0 to 359, and 0 to 255 for the rest.
    [[nodiscard]] int GetHue() const;
    [[nodiscard]] int GetSaturation() const;
    [[nodiscard]] int GetValue() const { return m_Color.value(); }

    void SetColor(const QColor& color);
    // Each is brought to the nearer limit, and leaves the others as exact as they were.
    void SetHueAndSaturation(int hue, int saturation);
    void SetValue(int value);
    void SetAlpha(int alpha);

private:
    void Mix(float value);

    QColor m_Color = Qt::white;
    float m_fHue = 0; // 0 to 1, as all of them.
    float m_fSaturation = 0;
};
