#include "BuildPane.h"

#include "FormatText.h"
#include "IconSet.h"
#include "QtText.h"
#include "Theme.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QTimer>
#include <algorithm>

namespace
{
constexpr int kBalloonTime = 8000; // Milliseconds.

// A small window inside the frame, so that it moves with it.
class CBalloon final : public QFrame
{
public:
    CBalloon(const QString& title, const QString& text, QWidget* window) : QFrame(window)
    {
        setObjectName(QStringLiteral("balloon"));
        setAccessibleName(title);
        setAccessibleDescription(text);
        setFrameShape(QFrame::StyledPanel);
        setAutoFillBackground(true);
        setBackgroundRole(QPalette::ToolTipBase);
        setForegroundRole(QPalette::ToolTipText);
        auto* icon = new QLabel(this);
        icon->setPixmap(
            GetIcon("information")
                .pixmap(QSize(CTheme::kIconSize, CTheme::kIconSize), window->devicePixelRatioF()));
        auto* head = new QLabel(title, this);
        head->setFont(CTheme::GetNameFont());
        auto* body = new QLabel(text, this);
        for (QLabel* label : {head, body})
            label->setForegroundRole(QPalette::ToolTipText);
        auto* layout = new QGridLayout(this);
        layout->setContentsMargins(CTheme::kMargin, CTheme::kSpacing, CTheme::kMargin, CTheme::kSpacing);
        layout->setSpacing(CTheme::kGrid);
        layout->addWidget(icon, 0, 0);
        layout->addWidget(head, 0, 1);
        layout->addWidget(body, 1, 1);
        layout->setColumnStretch(1, 1);
    }

protected:
    void mousePressEvent(QMouseEvent*) override { close(); }
};
} // namespace

CBuildPane::CBuildPane(QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("buildPane"));
    setAccessibleName(tr("Active build"));
    setToolTip(tr("The active build"));
    setMargin(CTheme::kGrid / 2);
}

void CBuildPane::SetBuild(std::uint32_t build)
{
    setText(ToQString(FormatText(u"Build %3d", static_cast<std::int32_t>(build))));
    if (m_pBalloon)
        PlaceBalloon();
}

void CBuildPane::ShowBalloon(const QString& title, const QString& text)
{
    delete m_pBalloon;
    m_pBalloon = new CBalloon(title, text, window());
    m_pBalloon->setAttribute(Qt::WA_DeleteOnClose);
    QTimer::singleShot(kBalloonTime, m_pBalloon, &QWidget::close);
    window()->installEventFilter(this);
    m_pBalloon->adjustSize();
    PlaceBalloon();
    m_pBalloon->show();
    m_pBalloon->raise();
}

bool CBuildPane::eventFilter(QObject* watched, QEvent* event)
{
    if (m_pBalloon && (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest))
        PlaceBalloon();
    return QLabel::eventFilter(watched, event);
}

void CBuildPane::PlaceBalloon()
{
    const QPoint corner = mapTo(window(), QPoint(width(), 0));
    m_pBalloon->move(std::max(0, corner.x() - m_pBalloon->width()),
                     std::max(0, corner.y() - m_pBalloon->height() - CTheme::kGrid));
}
