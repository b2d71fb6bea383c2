// The column header of the attribute list: where the columns lie, and which one was clicked to sort by it.
// Pixels are logical ones of the header, whose left edge is that of the list.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

class CCorvaneListViewHeader final : public QWidget
{
public:
    static constexpr int kSharedWidth = -1;

    explicit CCorvaneListViewHeader(QWidget* parent);

    // `width` kSharedWidth takes a share of what the others leave. `icon` is a name of the icon set or null;
    // a column with a tip and an icon shows the icon alone.
    void AddColumn(const QString& title, const QString& tooltip, int width, const char* icon);
    // Takes its height and the width that is given, and shares out the free width.
    void Layout(int width);
    // From the sum of the widths before it, the right edge one pixel inside.
    [[nodiscard]] QRect GetColumnRect(int index) const;
    // -1 for none.
    [[nodiscard]] int HitTest(const QPoint& point) const;
    [[nodiscard]] int GetColumnCount() const { return static_cast<int>(m_Columns.size()); }
    // A column was clicked.
    void SetSortCallback(std::function<void(int)> callback) { m_OnSort = std::move(callback); }
    // Shows by what the list is sorted; -1 for nothing.
    void SetSortMark(int column, bool descending);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    struct SColumn
    {
        QString m_sTitle;
        QString m_sToolTip;
        int m_nWidth;
        bool m_bShares;
        const char* m_sIcon;
    };
    [[nodiscard]] bool IsClickable(int index) const;
    void SetHot(int index);
    void DrawColumn(QPainter& painter, int index) const;
    void DrawSortMark(QPainter& painter, const QRect& cell) const;

    std::vector<SColumn> m_Columns;
    int m_nHot = -1;
    int m_nPressed = -1;
    int m_nSorted = -1;
    bool m_bDescending = false;
    std::function<void(int)> m_OnSort;
};
