#include "ColorField.h"

#include "Theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace
{
constexpr int kFrame = 3; // The focus, and a gap.
constexpr int kHues = 360;
constexpr int kSaturations = 256;
constexpr int kLargeStep = 10;

int ToStep(const QKeyEvent& event)
{
    return (event.modifiers() & Qt::ShiftModifier) != 0 ? kLargeStep : 1;
}

void DrawMarker(QPainter& painter, QPoint center)
{
    // Two rings, so that it is seen on any colour.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 3));
    painter.drawEllipse(QPointF(center), 5, 5);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.drawEllipse(QPointF(center), 5, 5);
}
} // namespace

CColorField::CColorField(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 120);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CColorField::SetChoice(const CColorChoice& choice)
{
    m_Choice = choice;
    setAccessibleDescription(
        QStringLiteral("Hue %1, saturation %2").arg(choice.GetHue()).arg(choice.GetSaturation()));
    update();
}

QSize CColorField::sizeHint() const
{
    return {272, 208};
}

QRect CColorField::GetArea() const
{
    return rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
}

const QImage& CColorField::GetImage()
{
    if (!m_Image.isNull())
        return m_Image;
    m_Image = QImage(kHues, kSaturations, QImage::Format_RGB32);
    for (int y = 0; y < kSaturations; ++y)
    {
        auto* line = reinterpret_cast<QRgb*>(m_Image.scanLine(y));
        for (int x = 0; x < kHues; ++x)
            line[x] = QColor::fromHsv(x, kSaturations - 1 - y, 255).rgb();
    }
    return m_Image;
}

void CColorField::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect area = GetArea();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(area, GetImage());
    painter.setPen(CTheme::Get().GetColor(EThemeColor::GreyText));
    painter.drawRect(area.adjusted(0, 0, -1, -1));
    if (hasFocus())
    {
        painter.setPen(QPen(CTheme::Get().GetColor(EThemeColor::Accent), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
    painter.setClipRect(area);
    DrawMarker(painter,
               {area.left() + m_Choice.GetHue() * (area.width() - 1) / (kHues - 1),
                area.bottom() - m_Choice.GetSaturation() * (area.height() - 1) / (kSaturations - 1)});
}

void CColorField::PickAt(QPoint point)
{
    const QRect area = GetArea();
    if (area.width() > 1 && area.height() > 1)
        Pick((point.x() - area.left()) * (kHues - 1) / (area.width() - 1),
             (area.bottom() - point.y()) * (kSaturations - 1) / (area.height() - 1));
}

void CColorField::Pick(int hue, int saturation)
{
    m_Choice.SetHueAndSaturation(hue, saturation);
    update();
    if (m_OnChanged)
        m_OnChanged(m_Choice.GetHue(), m_Choice.GetSaturation());
}

void CColorField::mousePressEvent(QMouseEvent* event)
{
    PickAt(event->position().toPoint());
}

void CColorField::mouseMoveEvent(QMouseEvent* event)
{
    PickAt(event->position().toPoint());
}

void CColorField::keyPressEvent(QKeyEvent* event)
{
    const int step = ToStep(*event);
    switch (event->key())
    {
    case Qt::Key_Left:
        Pick(m_Choice.GetHue() - step, m_Choice.GetSaturation());
        break;
    case Qt::Key_Right:
        Pick(m_Choice.GetHue() + step, m_Choice.GetSaturation());
        break;
    case Qt::Key_Up:
        Pick(m_Choice.GetHue(), m_Choice.GetSaturation() + step);
        break;
    case Qt::Key_Down:
        Pick(m_Choice.GetHue(), m_Choice.GetSaturation() - step);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}
