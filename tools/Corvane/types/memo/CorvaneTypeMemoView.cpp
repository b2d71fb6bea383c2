#include "memo/CorvaneTypeMemoView.h"

#include "CorvaneSchemaAttribData.h"
#include "QtText.h"
#include "Theme.h"
#include "UnicodeFileParse.h"
#include "memo/CorvaneTypeMemo.h"
#include "memo/CorvaneTypeMemoValueDlg.h"
#include "text/CorvaneTypeStringData.h"
#include "zrassert.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace
{
constexpr int kMinHeight = 40;
constexpr int kAddHeight = 40;
constexpr int kInsetX = 2;
constexpr int kInsetY = 4;
// What is laid out of one value: more than a screen shows.
constexpr std::size_t kMaxUnits = 4000;
constexpr int kMaxLines = 60;

// Breaks the text into the lines of a cell, and draws them when there is a painter. The result is their
// height.
int LayOut(const QString& text, int width, QPainter* painter, const QPoint& place)
{
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(text, CTheme::GetValueFont());
    layout.setTextOption(option);
    layout.beginLayout();
    qreal height = 0;
    for (int count = 0; count < kMaxLines; ++count)
    {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(std::max(width, 1));
        line.setPosition({0, height});
        height += line.height();
    }
    layout.endLayout();
    if (painter != nullptr)
        layout.draw(painter, place);
    return static_cast<int>(height + 0.999);
}
} // namespace

CCorvaneTypeMemoView::CCorvaneTypeMemoView(CCorvaneTypeMemo& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

QString CCorvaneTypeMemoView::GetShownText(std::size_t index) const
{
    // The stored text is cut ahead of its decoding, which costs as much as it is long.
    const std::u16string_view stored = m_Attrib.CCorvaneType::GetValue(index);
    std::u16string_view part = stored.substr(0, kMaxUnits);
    if (part.size() < stored.size() && !part.empty() && part.back() == u'\\')
        part.remove_suffix(1);
    QString text = ToQString(DecodeMultiLine(part));
    text.replace(QStringLiteral("\r\n"), QString(QChar::LineSeparator));
    if (!text.isEmpty() && text.back().isHighSurrogate())
        text.chop(1);
    return part.size() < stored.size() ? text + QChar(u'…') : text;
}

QString CCorvaneTypeMemoView::GetValueText(int item) const
{
    std::u16string text;
    m_Attrib.GetValue(static_cast<std::size_t>(item), text);
    return ToQString(text);
}

int CCorvaneTypeMemoView::GetValueHeight(std::size_t index, int width) const
{
    if (m_Heights.size() <= index)
        m_Heights.resize(index + 1, SHeight{QString(), -1, 0});
    QRect cell(0, 0, width - kListIndent, 0);
    AdjustValueRect(cell);
    SHeight& known = m_Heights[index];
    if (known.m_nWidth == cell.width())
        return known.m_nHeight;
    const QString text = GetShownText(index);
    const int lines = LayOut(text, cell.width() - 2 * kInsetX - kListTextMargin, nullptr, {});
    known = {text, cell.width(), std::max(lines + 2 * kInsetY, kListRowHeight)};
    return known.m_nHeight;
}

int CCorvaneTypeMemoView::Measure(int width)
{
    // Texts that are as they were keep their heights; all others are laid out again.
    m_Heights.resize(std::min(m_Heights.size(), GetValueCount()));
    for (std::size_t i = 0; i < m_Heights.size() && IsExpanded(); ++i)
    {
        if (GetShownText(i) != m_Heights[i].m_sText)
            m_Heights[i].m_nWidth = -1;
    }
    return CCorvaneTypeView::Measure(width);
}

int CCorvaneTypeMemoView::GetExpandedHeight(int width) const
{
    int height = GetCollapsedHeight() + (IsVariableSize() ? kAddHeight : 0);
    for (std::size_t i = 0; i < GetValueCount(); ++i)
        height += GetValueHeight(i, width);
    return std::max(height, kMinHeight);
}

QRect CCorvaneTypeMemoView::GetSubItemRect(const QRect& rect, int item) const
{
    const std::size_t count = GetValueCount();
    if (item == kHeaderItem || (item == kAddItem && !IsVariableSize()))
        return {};
    ZRASSERT_MSG(item == kAddItem || item < static_cast<int>(count),
                 "iItem < (int32)m_pParentType->GetValueArray().GetValueList().size()");
    if (item >= static_cast<int>(count))
        return {};
    const std::size_t index = item == kAddItem ? count : static_cast<std::size_t>(item);
    int top = rect.top() + GetCollapsedHeight();
    for (std::size_t i = 0; i < index; ++i)
        top += GetValueHeight(i, rect.width());
    return {rect.left() + kListIndent, top, rect.width() - kListIndent,
            item == kAddItem ? kAddHeight : GetValueHeight(index, rect.width())};
}

int CCorvaneTypeMemoView::HitTestItem(const QRect& rect, const QPoint& point) const
{
    int bottom = rect.top() + GetCollapsedHeight();
    if (!IsExpanded() || point.y() < bottom || point.x() < rect.left() + kListIndent ||
        point.x() > rect.right())
        return kHeaderItem;
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        bottom += GetValueHeight(i, rect.width());
        if (point.y() < bottom)
            return static_cast<int>(i);
    }
    return IsVariableSize() ? kAddItem : kHeaderItem;
}

void CCorvaneTypeMemoView::DrawValue(QPainter& painter, const QRect& cell, int item)
{
    painter.setClipRect(cell, Qt::IntersectClip);
    LayOut(GetShownText(static_cast<std::size_t>(item)), cell.width() - 2 * kInsetX - kListTextMargin,
           &painter, {cell.left() + kInsetX + kListTextMargin / 2, cell.top() + kInsetY});
}

CCorvaneTypeValueDlg* CCorvaneTypeMemoView::CreateValueDialog(QWidget* parent)
{
    const CCorvaneTypeStringData* limits = m_Attrib.GetMemoAttribData();
    return new CCorvaneTypeMemoValueDlg(*this, limits ? limits->GetMaximumLength() : -1, parent);
}

std::u16string CCorvaneTypeMemoView::GetEditText(int item) const
{
    return DecodeMultiLine(CCorvaneTypeView::GetEditText(item));
}

bool CCorvaneTypeMemoView::IsAddable(std::u16string_view text) const
{
    return !text.empty();
}
