// The active build in a frame's status bar, and a balloon above it that tells of a change. The balloon goes
// by itself, or at a click.
#pragma once

#include <QLabel>
#include <QPointer>
#include <cstdint>

class CBuildPane final : public QLabel
{
    Q_OBJECT

public:
    explicit CBuildPane(QWidget* parent);

    void SetBuild(std::uint32_t build);
    void ShowBalloon(const QString& title, const QString& text);
    // Null when none is up.
    [[nodiscard]] QWidget* GetBalloon() const { return m_pBalloon; }

protected:
    // Follows the window's size and the pane's place.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PlaceBalloon();

    QPointer<QWidget> m_pBalloon;
};
