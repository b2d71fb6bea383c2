// One part of a colour from bottom to top, 0 to 255, over the colours that it would give. Up and Down move by
// one, with Shift by ten, and so does the wheel.
#pragma once

#include <QColor>
#include <QWidget>
#include <functional>

class CColorBar final : public QWidget
{
public:
    explicit CColorBar(QWidget* parent = nullptr);

    // The colours at both ends; alpha shows over the chequer.
    void SetColors(const QColor& bottom, const QColor& top);
    void SetValue(int value);
    [[nodiscard]] int GetValue() const { return m_nValue; }
    [[nodiscard]] QSize sizeHint() const override;

    std::function<void(int value)> m_OnChanged; // By the user.

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QRect GetArea() const;
    void PickAt(int y);
    void Pick(int value);

    QColor m_Bottom = Qt::black;
    QColor m_Top = Qt::white;
    int m_nValue = 255;
};
