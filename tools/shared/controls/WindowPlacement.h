// The place of a window, of its columns and splitters, in one section of the profile.
//
// `Window.Left`, `Window.Right`, `Window.Top` and `Window.Bottom` are logical pixels of the desktop, right
// and bottom being the first ones outside; they are stored while the window is neither maximised nor
// minimised. `Zoomed` is stored while it is not minimised.
#pragma once

#include <QRect>
#include <optional>
#include <span>
#include <string>
#include <string_view>

class CProfile;
class CRatioSplitter;
class QHeaderView;
class QWidget;

// A column in the order of the header, and the key of its width.
struct SColumnKey
{
    std::u16string_view m_sKey;
    int m_nWidth; // Of a first start.
};

class CWindowPlacement
{
public:
    // `section` as in "Dialogs\Validate". The profile outlives the placement.
    CWindowPlacement(CProfile& profile, std::u16string_view section);

    // Before the window is shown. A place that the profile lacks leaves the window as it is; one outside the
    // screens is moved, and cut, to the nearest. `Zoomed` is passed over when `mayZoom` is false.
    void Restore(QWidget& window, bool mayZoom = true) const;
    void Store(const QWidget& window) const;
    // Restores now and stores each time that the window closes or hides, as long as the profile lives.
    void Keep(QWidget& window) const;

    void RestoreSplitter(CRatioSplitter& splitter, std::u16string_view key, float fallback) const;
    void StoreSplitter(const CRatioSplitter& splitter, std::u16string_view key) const;
    void RestoreColumns(QHeaderView& header, std::span<const SColumnKey> columns) const;
    void StoreColumns(const QHeaderView& header, std::span<const SColumnKey> columns) const;

private:
    [[nodiscard]] std::optional<QRect> ReadPlace() const;

    CProfile* m_pProfile;
    std::u16string m_sSection;
};
