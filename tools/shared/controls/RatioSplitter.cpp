#include "RatioSplitter.h"

#include <algorithm>
#include <cmath>

CRatioSplitter::CRatioSplitter(Qt::Orientation orientation, QWidget* parent) : QSplitter(orientation, parent)
{
    setChildrenCollapsible(false);
    connect(this, &QSplitter::splitterMoved, this, [this] { TakeRatio(); });
}

void CRatioSplitter::SetRatio(float ratio)
{
    m_fRatio = std::isfinite(ratio) ? std::clamp(ratio, 0.0F, 1.0F) : 0.5F;
    Place();
}

int CRatioSplitter::GetLength() const
{
    return (orientation() == Qt::Horizontal ? width() : height()) - handleWidth();
}

void CRatioSplitter::Place()
{
    if (count() != 2 || GetLength() <= 0)
        return;
    const int first = static_cast<int>(std::lround(m_fRatio * static_cast<float>(GetLength())));
    setSizes({first, GetLength() - first});
}

void CRatioSplitter::TakeRatio()
{
    const QList<int> panes = sizes();
    const int sum = panes.value(0) + panes.value(1);
    if (sum > 0)
        m_fRatio = static_cast<float>(panes.value(0)) / static_cast<float>(sum);
}

void CRatioSplitter::resizeEvent(QResizeEvent* event)
{
    QSplitter::resizeEvent(event);
    Place();
}

void CRatioSplitter::showEvent(QShowEvent* event)
{
    QSplitter::showEvent(event);
    Place();
}
