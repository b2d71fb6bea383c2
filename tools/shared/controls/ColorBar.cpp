#include "ColorBar.h"

#include "ColorSwatch.h"
#include "Theme.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace
{
constexpr int kMost = 255;
constexpr int kLargeStep = 10;
constexpr int kFrame = 3;
constexpr int kPointer = 7; // The triangle beside the bar.
} // namespace

CColorBar::CColorBar(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void CColorBar::SetColors(const QColor& bottom, const QColor& top)
{
    m_Bottom = bottom;
    m_Top = top;
    update();
}

void CColorBar::SetValue(int value)
{
    m_nValue = std::clamp(value, 0, kMost);
    setAccessibleDescription(QString::number(m_nValue));
    update();
}

QSize CColorBar::sizeHint() const
{
    return {4 * CTheme::kGrid + kPointer + 2 * kFrame, 208};
}

QRect CColorBar::GetArea() const
{
    return rect().adjusted(kFrame, kFrame, -kFrame - kPointer, -kFrame);
}

void CColorBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect area = GetArea();
    QLinearGradient gradient(area.bottomLeft(), area.topLeft());
    gradient.setColorAt(0, m_Bottom);
    gradient.setColorAt(1, m_Top);
    if (m_Bottom.alpha() != kMost)
        DrawChequer(painter, area);
    painter.fillRect(area, gradient);
    painter.setPen(CTheme::Get().GetColor(EThemeColor::GreyText));
    painter.drawRect(area.adjusted(0, 0, -1, -1));
    if (hasFocus())
    {
        painter.setPen(QPen(CTheme::Get().GetColor(EThemeColor::Accent), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }

    const qreal y = area.bottom() - m_nValue * (area.height() - 1) / static_cast<qreal>(kMost);
    QPainterPath pointer(QPointF(area.right() + 2, y));
    pointer.lineTo(area.right() + 2 + kPointer, y - 5);
    pointer.lineTo(area.right() + 2 + kPointer, y + 5);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(pointer, palette().color(QPalette::WindowText));
}

void CColorBar::PickAt(int y)
{
    const QRect area = GetArea();
    if (area.height() > 1)
        Pick((area.bottom() - y) * kMost / (area.height() - 1));
}

void CColorBar::Pick(int value)
{
    const int before = m_nValue;
    SetValue(value);
    if (m_nValue != before && m_OnChanged)
        m_OnChanged(m_nValue);
}

void CColorBar::mousePressEvent(QMouseEvent* event)
{
    PickAt(event->position().toPoint().y());
}

void CColorBar::mouseMoveEvent(QMouseEvent* event)
{
    PickAt(event->position().toPoint().y());
}

void CColorBar::wheelEvent(QWheelEvent* event)
{
    Pick(m_nValue + (event->angleDelta().y() > 0 ? 1 : -1));
}

void CColorBar::keyPressEvent(QKeyEvent* event)
{
    const int step = (event->modifiers() & Qt::ShiftModifier) != 0 ? kLargeStep : 1;
    switch (event->key())
    {
    case Qt::Key_Up:
        Pick(m_nValue + step);
        break;
    case Qt::Key_Down:
        Pick(m_nValue - step);
        break;
    case Qt::Key_Home:
        Pick(kMost);
        break;
    case Qt::Key_End:
        Pick(0);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}
