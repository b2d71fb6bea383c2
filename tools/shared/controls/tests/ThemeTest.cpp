// Whether texts can be read in both themes.
#include "Theme.h"

#include <QApplication>
#include <QPalette>
#include <cmath>
#include <gtest/gtest.h>

namespace
{
double ToLight(double part)
{
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double GetLuminance(const QColor& color)
{
    return 0.2126 * ToLight(color.redF()) + 0.7152 * ToLight(color.greenF()) +
           0.0722 * ToLight(color.blueF());
}

double GetContrast(const QColor& one, const QColor& other)
{
    const double a = GetLuminance(one);
    const double b = GetLuminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

void ExpectContrast(EThemeColor firstFront, EThemeColor lastFront, double least)
{
    for (const bool dark : {false, true})
    {
        for (int front = static_cast<int>(firstFront); front <= static_cast<int>(lastFront); ++front)
        {
            for (int back = 0; back <= static_cast<int>(EThemeColor::HotRow); ++back)
                EXPECT_GE(GetContrast(CTheme::GetColor(EThemeColor(front), dark),
                                      CTheme::GetColor(EThemeColor(back), dark)),
                          least)
                    << "colour " << front << " on " << back << (dark ? ", dark" : ", light");
        }
    }
}
} // namespace

TEST(ThemeTest, EveryTextIsReadableOnEveryBackground)
{
    ExpectContrast(EThemeColor::Text, EThemeColor::Link, 4.5);
    ExpectContrast(EThemeColor::Border, EThemeColor::Accent, 3);
    for (const bool dark : {false, true})
    {
        const QPalette palette = CTheme::MakePalette(dark);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        {
            const auto contrast = [&](QPalette::ColorRole front, QPalette::ColorRole back)
            { return GetContrast(palette.color(group, front), palette.color(group, back)); };
            EXPECT_GE(contrast(QPalette::WindowText, QPalette::Window), 4.5);
            EXPECT_GE(contrast(QPalette::Text, QPalette::Base), 4.5);
            EXPECT_GE(contrast(QPalette::ButtonText, QPalette::Button), 4.5);
            EXPECT_GE(contrast(QPalette::HighlightedText, QPalette::Highlight), 4.5);
            EXPECT_GE(contrast(QPalette::ToolTipText, QPalette::ToolTipBase), 4.5);
            EXPECT_GE(contrast(QPalette::PlaceholderText, QPalette::Base), 4.5);
        }
    }
}

TEST(ThemeTest, ChangesThePaletteAndTells)
{
    CTheme& theme = CTheme::Get();
    theme.Install();
    theme.SetScheme(CTheme::EScheme::Light);
    int told = 0;
    const CObserverHandle handle = theme.AddObserver([&told] { return ++told, 0; });
    theme.SetScheme(CTheme::EScheme::Dark);
    theme.SetScheme(CTheme::EScheme::Dark);
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(theme.IsDark());
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), CTheme::GetColor(EThemeColor::Window, true));
    EXPECT_EQ(QApplication::palette("QAbstractItemView").color(QPalette::Highlight),
              CTheme::GetColor(EThemeColor::SelectedRow, true));
    theme.SetScheme(CTheme::EScheme::Light);
    EXPECT_EQ(CTheme::FindFontProblem(), QString());
}
