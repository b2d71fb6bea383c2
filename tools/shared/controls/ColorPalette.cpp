#include "ColorPalette.h"

#include "ColorSwatch.h"
#include "CustomColors.h"
#include "QtText.h"
#include "Theme.h"
#include "TipText.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace
{
constexpr int kColumns = 12;
constexpr int kRows = CCustomColors::kCount / kColumns;
constexpr int kLeastCell = 6 * CTheme::kGrid;
} // namespace

CColorPalette::CColorPalette(const CCustomColors& colors, QWidget* parent) : QWidget(parent), m_Colors(colors)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumWidth(kColumns * kLeastCell);
    Select(0);
}

void CColorPalette::Select(int index)
{
    if (index < 0 || index >= CCustomColors::kCount)
        return;
    m_nSelected = index;
    setAccessibleDescription(Describe(index));
    update();
}

QSize CColorPalette::sizeHint() const
{
    return {kColumns * (kLeastCell + CTheme::kGrid), kRows * (kLeastCell + CTheme::kGrid)};
}

// The cells share the width evenly, to the pixel.
QRect CColorPalette::GetCell(int index) const
{
    const int column = index % kColumns;
    const int left = column * width() / kColumns;
    const int right = (column + 1) * width() / kColumns;
    const int rowHeight = height() / kRows;
    return QRect(left, index / kColumns * rowHeight, right - left, rowHeight).adjusted(1, 1, -1, -1);
}

int CColorPalette::FindCell(QPoint point) const
{
    for (int i = 0; i < CCustomColors::kCount; ++i)
    {
        if (GetCell(i).contains(point))
            return i;
    }
    return -1;
}

QString CColorPalette::Describe(int index) const
{
    const QColor color = m_Colors.GetColor(index);
    const QString numbers = QStringLiteral("Red %1, green %2, blue %3, alpha %4")
                                .arg(color.red())
                                .arg(color.green())
                                .arg(color.blue())
                                .arg(color.alpha());
    const QString description = ToQString(m_Colors.GetDescription(index));
    return description.isEmpty() ? numbers : LimitText(description) + u'\n' + numbers;
}

void CColorPalette::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int i = 0; i < CCustomColors::kCount; ++i)
    {
        const QRect cell = GetCell(i);
        const QRect inner = cell.adjusted(3, 3, -3, -3);
        DrawColorSwatch(painter, inner, m_Colors.GetColor(i));
        painter.setPen(CTheme::Get().GetColor(EThemeColor::GreyText));
        painter.drawRect(inner.adjusted(0, 0, -1, -1));
        if (i != m_nSelected)
            continue;
        painter.setPen(hasFocus() ? QPen(CTheme::Get().GetColor(EThemeColor::Accent), 2)
                                  : QPen(CTheme::Get().GetColor(EThemeColor::Text), 1));
        painter.drawRect(cell.adjusted(1, 1, -1, -1));
    }
}

bool CColorPalette::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int index = FindCell(help->pos());
    if (index >= 0)
        QToolTip::showText(help->globalPos(), MakeTip(Describe(index)), this, GetCell(index));
    return true;
}

void CColorPalette::SelectByUser(int index)
{
    if (index < 0 || index >= CCustomColors::kCount)
        return;
    Select(index);
    if (m_OnSelected)
        m_OnSelected(index);
}

void CColorPalette::mousePressEvent(QMouseEvent* event)
{
    const int index = FindCell(event->position().toPoint());
    if (index < 0)
        return;
    SelectByUser(index);
    if (event->button() == Qt::LeftButton && m_OnTaken)
        m_OnTaken(index);
}

void CColorPalette::keyPressEvent(QKeyEvent* event)
{
    switch (event->key())
    {
    case Qt::Key_Left:
        SelectByUser(m_nSelected - 1);
        break;
    case Qt::Key_Right:
        SelectByUser(m_nSelected + 1);
        break;
    case Qt::Key_Up:
        SelectByUser(m_nSelected - kColumns);
        break;
    case Qt::Key_Down:
        SelectByUser(m_nSelected + kColumns);
        break;
    case Qt::Key_Space:
        if (m_OnTaken)
            m_OnTaken(m_nSelected);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}
