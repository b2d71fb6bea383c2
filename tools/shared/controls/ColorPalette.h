// The custom colours as two rows of cells, one of which is selected. The arrow keys move, Space takes the
// colour of the cell, as a click does; a tip tells what the colour is for.
#pragma once

#include <QWidget>
#include <functional>

class CCustomColors;

class CColorPalette final : public QWidget
{
public:
    // The colours outlive it.
    explicit CColorPalette(const CCustomColors& colors, QWidget* parent = nullptr);

    [[nodiscard]] int GetSelected() const { return m_nSelected; }
    void Select(int index);
    [[nodiscard]] QRect GetCell(int index) const;
    [[nodiscard]] QSize sizeHint() const override;

    std::function<void(int index)> m_OnSelected; // By the user.
    std::function<void(int index)> m_OnTaken;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] int FindCell(QPoint point) const; // -1 for none.
    [[nodiscard]] QString Describe(int index) const;
    void SelectByUser(int index);

    const CCustomColors& m_Colors;
    int m_nSelected = 0;
};
