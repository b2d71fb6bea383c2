// Two panes and a bar between them that is kept as a ratio, so that it survives another window size.
#pragma once

#include <QSplitter>

class CRatioSplitter final : public QSplitter
{
public:
    explicit CRatioSplitter(Qt::Orientation orientation, QWidget* parent = nullptr);

    // The share of the first pane, 0 to 1. Kept when the window's size changes, until the user moves the bar.
    // May be set ahead of the panes and of showing; outside 0 to 1 it is clamped.
    void SetRatio(float ratio);
    [[nodiscard]] float GetRatio() const { return m_fRatio; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] int GetLength() const;
    void Place();
    void TakeRatio();

    float m_fRatio = 0.5F;
};
