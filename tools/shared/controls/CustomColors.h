// The 24 custom colours of a user and what they are for, in the profile's section `Custom.Colors`: `Color00`
// to `Color23` as "alpha, red, green, blue", the order of a colour value's text, and `Description.Color00`
// and on.
#pragma once

#include <QColor>
#include <string>

class CProfile;

class CCustomColors
{
public:
    static constexpr int kCount = 24;

    // The profile outlives it. Nothing is cached: the profile is the one place.
    explicit CCustomColors(CProfile& profile) : m_Profile(profile) {}

    // `index` from 0. A colour that is missing has 255 in all four parts; so has a part that is missing.
    // Parts outside 0 to 255 are brought to the nearer limit.
    [[nodiscard]] QColor GetColor(int index) const;
    void SetColor(int index, const QColor& color);
    [[nodiscard]] std::u16string GetDescription(int index) const;
    // One line; a text with line ends is joined.
    void SetDescription(int index, std::u16string description);

private:
    CProfile& m_Profile;
};
