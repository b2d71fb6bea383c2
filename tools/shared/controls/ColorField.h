// Hue from left to right, saturation from top to bottom. The arrow keys move by one, with Shift by ten.
#pragma once

#include "ColorChoice.h"

#include <QImage>
#include <QWidget>
#include <functional>

class CColorField final : public QWidget
{
public:
    explicit CColorField(QWidget* parent = nullptr);

    void SetChoice(const CColorChoice& choice);
    [[nodiscard]] QSize sizeHint() const override;

    std::function<void(int hue, int saturation)> m_OnChanged; // By the user.

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QRect GetArea() const;
    void PickAt(QPoint point);
    void Pick(int hue, int saturation);
    const QImage& GetImage();

    CColorChoice m_Choice;
    QImage m_Image;
};
