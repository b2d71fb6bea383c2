// The look of the whole editor: style, palette, named colours, measures and fonts, light or dark. One for the
// process, since the toolkit has one style and one palette.
//
// The theme follows the desktop's preference for light or dark, also while the editor runs; the environment's
// CORVANE_THEME=light or =dark fixes it. Every text colour has a contrast of at least 4.5 to 1 to every
// background here. Do not keep a colour: ask again when painting, or after QEvent::PaletteChange, which every
// widget gets when the theme changes.
#pragma once

#include "ObserverList.h"

#include <QColor>
#include <QString>
#include <memory>

class CDesktopScheme;
class QFont;
class QPalette;

enum class EThemeColor
{
    // Backgrounds.
    Base, // Of lists, trees and fields.
    AlternateRow,
    Window,      // Of dialogs and bars.
    Gutter,      // The strip left of a list's rows.
    Header,      // A column header, the title row of a help page.
    Item,        // The label cells of a help page.
    SelectedRow, // Text on it keeps its colour, whatever that says.
    HotRow,      // Under the mouse.

    // Texts, on any of the backgrounds.
    Text,
    GreyText, // Locked, inherited, disabled, a placeholder.
    Deferred, // An attribute that ends or is to be deleted.
    Warning,
    Critical,
    Success,
    Link,

    // Lines and marks.
    Shadow, // The rule between rows and columns.
    Border, // Of fields and boxes; like the accent, 3 to 1 on each background.
    Accent, // Focus and what is in use.
    ChequerLight,
    ChequerDark,

    // What the icons are drawn with.
    IconInk,
    IconPaper,
    IconBlue,
    IconFolder,
    IconGreen,
    IconRed,
    IconAmber,
    IconViolet,

    Count
};

class CTheme final
{
public:
    // Logical pixels; all distances are multiples of the grid.
    static constexpr int kGrid = 4;
    static constexpr int kSpacing = 8; // Between the controls of a dialog.
    static constexpr int kMargin = 12; // Around them.
    static constexpr int kRowHeight = 20;
    static constexpr int kIconSize = 16;

    enum class EScheme
    {
        Desktop,
        Light,
        Dark
    };

    [[nodiscard]] static CTheme& Get();
    ~CTheme();

    // Gives the application its style and palette and begins to follow the desktop. Once, as soon as there is
    // a QApplication; without it the colours are those of the light theme.
    void Install();
    // `Desktop` goes back to following it.
    void SetScheme(EScheme scheme);

    [[nodiscard]] bool IsDark() const { return m_bDark; }
    [[nodiscard]] QColor GetColor(EThemeColor color) const { return GetColor(color, m_bDark); }
    [[nodiscard]] static QColor GetColor(EThemeColor color, bool dark);
    [[nodiscard]] static QPalette MakePalette(bool dark);

    // Told after palette and colours have changed, for what is no widget.
    [[nodiscard]] CObserverHandle AddObserver(CObserverList<>::FCallback callback);

    [[nodiscard]] static QFont GetValueFont();
    // Attribute names: bold.
    [[nodiscard]] static QFont GetNameFont();
    // Why no text could be shown, as a message to the user; empty when a usable font is there. Needs a
    // QApplication.
    [[nodiscard]] static QString FindFontProblem();

private:
    CTheme();
    // The connection to the desktop must not outlive the application.
    static void Uninstall();
    void SetDark(bool dark);
    void Apply();

    EScheme m_Scheme = EScheme::Desktop;
    bool m_bDark = false;
    bool m_bInstalled = false;
    std::unique_ptr<CDesktopScheme> m_pDesktop;
    CObserverList<> m_Observers;
};
