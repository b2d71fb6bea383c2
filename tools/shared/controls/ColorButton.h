// A button that shows a colour; also, disabled as a button and without focus, a swatch in a dialog.
#pragma once

#include <QAbstractButton>
#include <QColor>

class CColorButton final : public QAbstractButton
{
public:
    explicit CColorButton(QWidget* parent = nullptr);

    void SetColor(const QColor& color);
    [[nodiscard]] const QColor& GetColor() const { return m_Color; }
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_Color = Qt::white;
};
