#include "Theme.h"

#include "DesktopScheme.h"
#include "ThemeStyle.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QPalette>
#include <QRawFont>

namespace
{
struct SThemeColor
{
    EThemeColor m_Color;
    QRgb m_Light;
    QRgb m_Dark;
};

constexpr SThemeColor kColors[] = {
    {EThemeColor::Base, 0xFFFFFFFF, 0xFF1E2126},         {EThemeColor::AlternateRow, 0xFFF8F9FB, 0xFF23262C},
    {EThemeColor::Window, 0xFFF3F4F6, 0xFF282C33},       {EThemeColor::Gutter, 0xFFECEEF2, 0xFF2A2E35},
    {EThemeColor::Header, 0xFFDFE5EE, 0xFF333A45},       {EThemeColor::Item, 0xFFEEF1F6, 0xFF2B3038},
    {EThemeColor::SelectedRow, 0xFFD6E4FA, 0xFF2C4468},  {EThemeColor::HotRow, 0xFFEDF3FD, 0xFF2A323E},
    {EThemeColor::Text, 0xFF1C2027, 0xFFE6E8EC},         {EThemeColor::GreyText, 0xFF5C636F, 0xFFB2B8C2},
    {EThemeColor::Deferred, 0xFF800000, 0xFFFF9C9C},     {EThemeColor::Warning, 0xFF7A4A00, 0xFFF2BF62},
    {EThemeColor::Critical, 0xFFA8121C, 0xFFFF9898},     {EThemeColor::Success, 0xFF17602B, 0xFF85D698},
    {EThemeColor::Link, 0xFF1851B4, 0xFF9CC4FF},         {EThemeColor::Shadow, 0xFFC3C9D3, 0xFF464D59},
    {EThemeColor::Border, 0xFF747C87, 0xFF8D95A1},       {EThemeColor::Accent, 0xFF2A66C8, 0xFF76A9F5},
    {EThemeColor::ChequerLight, 0xFFFFFFFF, 0xFFD0D0D0}, {EThemeColor::ChequerDark, 0xFFC8C8C8, 0xFF909090},
    {EThemeColor::IconInk, 0xFF464D59, 0xFFC6CCD6},      {EThemeColor::IconPaper, 0xFFFFFFFF, 0xFF3A404A},
    {EThemeColor::IconBlue, 0xFF2A66C8, 0xFF76A9F5},     {EThemeColor::IconFolder, 0xFFF2C14E, 0xFFD9A93C},
    {EThemeColor::IconGreen, 0xFF23803C, 0xFF6CC983},    {EThemeColor::IconRed, 0xFFC2252F, 0xFFFF8A8A},
    {EThemeColor::IconAmber, 0xFFA86400, 0xFFF0B54A},    {EThemeColor::IconViolet, 0xFF7A3FB0, 0xFFC79BF0},
};

constexpr bool IsOneRowAColor()
{
    std::size_t count = 0;
    for (const SThemeColor& row : kColors)
    {
        if (static_cast<std::size_t>(row.m_Color) != count++)
            return false;
    }
    return count == static_cast<std::size_t>(EThemeColor::Count);
}
static_assert(IsOneRowAColor(), "The rows stand in the order of the names.");

CTheme::EScheme ReadForcedScheme()
{
    const QByteArray forced = qgetenv("CORVANE_THEME").toLower();
    if (forced == "dark")
        return CTheme::EScheme::Dark;
    return forced == "light" ? CTheme::EScheme::Light : CTheme::EScheme::Desktop;
}

void SetTextRoles(QPalette& palette, QPalette::ColorGroup group, const QColor& text)
{
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(group, role, text);
}

// Rows and menu entries keep the colours of their texts and icons when they are selected: those say
// something.
QPalette MakeItemViewPalette(bool dark)
{
    QPalette palette = CTheme::MakePalette(dark);
    palette.setColor(QPalette::Highlight, CTheme::GetColor(EThemeColor::SelectedRow, dark));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, CTheme::GetColor(EThemeColor::Header, dark));
    palette.setColor(QPalette::HighlightedText, CTheme::GetColor(EThemeColor::Text, dark));
    return palette;
}
} // namespace

CTheme& CTheme::Get()
{
    static CTheme theme;
    return theme;
}

CTheme::CTheme() = default;
CTheme::~CTheme() = default;

void CTheme::Install()
{
    if (m_bInstalled)
        return;
    m_bInstalled = true;
    m_Scheme = ReadForcedScheme();
    // It is asked ahead of our own palette, which hides the platform's.
    m_pDesktop = std::make_unique<CDesktopScheme>(
        [this](bool dark)
        {
            if (m_Scheme == EScheme::Desktop)
                SetDark(dark);
        });
    qAddPostRoutine(&CTheme::Uninstall);
    QApplication::setStyle(new CThemeStyle);
    m_bDark = m_Scheme == EScheme::Desktop ? m_pDesktop->IsDark() : m_Scheme == EScheme::Dark;
    Apply();
}

void CTheme::Uninstall()
{
    Get().m_pDesktop.reset();
    Get().m_bInstalled = false;
}

void CTheme::SetScheme(EScheme scheme)
{
    m_Scheme = scheme;
    const bool desktopDark = m_pDesktop && m_pDesktop->IsDark();
    SetDark(scheme == EScheme::Desktop ? desktopDark : scheme == EScheme::Dark);
}

void CTheme::SetDark(bool dark)
{
    if (dark == m_bDark)
        return;
    m_bDark = dark;
    Apply();
}

void CTheme::Apply()
{
    // The palette of a class goes after the common one, which forgets all those before it.
    QApplication::setPalette(MakePalette(m_bDark));
    for (const char* name : {"QAbstractItemView", "QMenu", "QMenuBar"})
        QApplication::setPalette(MakeItemViewPalette(m_bDark), name);
    m_Observers.Notify();
}

QColor CTheme::GetColor(EThemeColor color, bool dark)
{
    const SThemeColor& row = kColors[static_cast<std::size_t>(color)];
    return QColor::fromRgb(dark ? row.m_Dark : row.m_Light);
}

QPalette CTheme::MakePalette(bool dark)
{
    const auto color = [dark](EThemeColor name) { return GetColor(name, dark); };
    QPalette palette(color(EThemeColor::Window));
    SetTextRoles(palette, QPalette::All, color(EThemeColor::Text));
    SetTextRoles(palette, QPalette::Disabled, color(EThemeColor::GreyText));
    palette.setColor(QPalette::Base, color(EThemeColor::Base));
    palette.setColor(QPalette::Disabled, QPalette::Base, color(EThemeColor::Window));
    palette.setColor(QPalette::AlternateBase, color(EThemeColor::AlternateRow));
    palette.setColor(QPalette::ToolTipBase, color(EThemeColor::Header));
    palette.setColor(QPalette::PlaceholderText, color(EThemeColor::GreyText));
    palette.setColor(QPalette::BrightText, color(EThemeColor::Critical));
    palette.setColor(QPalette::Link, color(EThemeColor::Link));
    palette.setColor(QPalette::LinkVisited, color(EThemeColor::Link));
    palette.setColor(QPalette::Highlight, GetColor(EThemeColor::Accent, false));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, color(EThemeColor::SelectedRow));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, color(EThemeColor::Text));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, color(EThemeColor::Shadow));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, color(EThemeColor::Text));
    return palette;
}

CObserverHandle CTheme::AddObserver(CObserverList<>::FCallback callback)
{
    return m_Observers.Add(std::move(callback));
}

QFont CTheme::GetValueFont()
{
    return QApplication::font();
}

QFont CTheme::GetNameFont()
{
    QFont font = QApplication::font();
    font.setBold(true);
    return font;
}

QString CTheme::FindFontProblem()
{
    // The platform makes up families, and a font of empty boxes that claims to have every character, where
    // there is none. It has no tables.
    const bool usable = !QRawFont::fromFont(GetValueFont()).fontTable("cmap").isEmpty();
    return usable ? QString()
                  : QStringLiteral("There is no font that texts can be shown in. Install one, such as the "
                                   "DejaVu fonts (fonts-dejavu-core), and start again.");
}
