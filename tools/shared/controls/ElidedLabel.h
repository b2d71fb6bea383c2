// One line of plain text that is shortened with an ellipsis where it does not fit, and then tells the whole
// in a tip. Ctrl+C and the context menu copy the whole. For paths, names and other data of any length.
#pragma once

#include <QFrame>

class CElidedLabel final : public QFrame
{
public:
    explicit CElidedLabel(QWidget* parent = nullptr, Qt::TextElideMode mode = Qt::ElideRight);

    void SetText(const QString& text);
    [[nodiscard]] const QString& GetText() const { return m_sText; }
    [[nodiscard]] bool IsElided() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    [[nodiscard]] QRect GetTextRect() const;
    void Copy() const;

    Qt::TextElideMode m_Mode;
    QString m_sText;
    QString m_sLine; // What is laid out: one line of a bearable length.
};
