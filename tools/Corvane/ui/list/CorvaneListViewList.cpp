#include "CorvaneListViewList.h"

#include "CommandSet.h"
#include "CorvaneListViewHeader.h"
#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "EditEndFilter.h"
#include "Editor.h"
#include "ListAccessible.h"
#include "ListSorting.h"
#include "RunState.h"
#include "Theme.h"
#include "TypeViewRegistry.h"
#include "zrassert.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

CCorvaneListViewList::CCorvaneListViewList(IEditorFrame& frame, CCorvaneListViewHeader& header,
                                           QScrollBar& scrollBar, QWidget* parent)
    : QWidget(parent), m_Frame(frame), m_Header(header), m_ScrollBar(scrollBar), m_pUpdate(new QTimer(this))
{
    InstallListAccessibility(); // Naming the widget asks for its interface already.
    setObjectName(QStringLiteral("AttributeList"));
    setAccessibleName(QStringLiteral("Attributes"));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_pUpdate->setSingleShot(true);
    m_pUpdate->setInterval(0);
    connect(m_pUpdate, &QTimer::timeout, this, [this] { Flush(); });
    connect(&m_ScrollBar, &QScrollBar::valueChanged, this, [this](int value) { ScrollTo(-value); });
    CEditEndFilter::Add(*this);
}

CCorvaneListViewList::~CCorvaneListViewList()
{
    CEditEndFilter::Remove(*this);
    EndEdit(false, true);
    DropRows();
}

void CCorvaneListViewList::SetRecord(CCorvaneRecord* record, bool commit)
{
    const CRef<CCorvaneRecord> keep(record);
    EndEdit(commit, true);
    DropRows();
    m_pRecord = keep;
    m_nTop = 0;
    m_nSortColumn = -1;
    m_Header.SetSortMark(-1, false);
    m_bRowsDue = true;
    Flush();
    OnSelectionChanged();
}

void CCorvaneListViewList::InvalidateRows()
{
    m_bRowsDue = true;
    Schedule();
}

void CCorvaneListViewList::InvalidateHeights()
{
    m_bHeightsDue = true;
    Schedule();
}

void CCorvaneListViewList::Schedule()
{
    if (!m_pUpdate->isActive())
        m_pUpdate->start();
}

void CCorvaneListViewList::Flush()
{
    if (!m_bRowsDue && !m_bHeightsDue)
        return;
    const bool rows = std::exchange(m_bRowsDue, false);
    m_bHeightsDue = false;
    if (rows)
        RebuildRows();
    MeasureAll();
    OnSelectionChanged();
}

void CCorvaneListViewList::OnViewChanged(CCorvaneTypeView&)
{
    // Records that inherit from this one show the same values, in whatever window they are.
    CEditEndFilter::InvalidateAll();
}

CRef<CCorvaneTypeView> CCorvaneListViewList::CreateView(CCorvaneType& attrib)
{
    CRef<CCorvaneTypeView> view = GetTypeViews().Create(attrib, *this);
    const CCorvaneMgr* manager = attrib.GetManager();
    if (manager != nullptr && manager->GetContext().m_Run.Test(APP_EXPAND))
        view->SetExpanded(true);
    return view;
}

void CCorvaneListViewList::RebuildRows()
{
    std::unordered_map<const CCorvaneAttrib*, std::size_t> places;
    std::vector<CCorvaneType*> added; // By place; null for those that are shown already.
    if (m_pRecord)
    {
        for (const CRef<CCorvaneAttrib>& attrib : m_pRecord->GetAttributeList())
        {
            places.emplace(attrib.Get(), added.size());
            added.push_back(static_cast<CCorvaneType*>(attrib.Get()));
        }
    }
    const int top = m_nTop; // A list that is short for a moment must not move.
    for (int i = GetAttributeCount() - 1; i >= 0; --i)
    {
        const auto found = places.find(&GetAttribute(i)->GetParentType());
        if (found == places.end())
            DeleteAttribute(i);
        else
            added[found->second] = nullptr;
    }
    for (CCorvaneType* attrib : added)
    {
        if (attrib != nullptr)
            AddItem(CreateView(*attrib));
    }
    for (SRow& row : m_AttribList)
        row.m_nNumber = static_cast<int>(places[&row.m_pView->GetParentType()]);
    const CCorvaneTypeView* selected = GetSelectedRow();
    SortRows();
    SelectView(selected);
    m_nTop = top;
}

void CCorvaneListViewList::DropRows()
{
    const bool selected = std::exchange(m_nSelected, -1) >= 0;
    const std::vector<SRow> rows = std::exchange(m_AttribList, {});
    for (const SRow& row : rows)
    {
        row.m_pView->SetSelected(false);
        row.m_pView->Detach();
    }
    m_nNextNumber = 0;
    if (selected)
        update();
}

void CCorvaneListViewList::AddItem(CRef<CCorvaneTypeView> view)
{
    InsertItem(GetAttributeCount(), std::move(view));
}

void CCorvaneListViewList::InsertItem(int index, CRef<CCorvaneTypeView> view)
{
    ZRASSERT(index >= 0 && index <= GetAttributeCount());
    if (index < 0 || index > GetAttributeCount())
        return;
    const int height = view->Measure(width());
    m_AttribList.insert(m_AttribList.begin() + index, {m_nNextNumber++, std::move(view), height, 0});
    if (m_nSelected >= index)
        ++m_nSelected;
    RecalcScrollBar();
    update();
}

void CCorvaneListViewList::DeleteAttribute(int iIndex)
{
    CCorvaneTypeView* view = GetAttribute(iIndex);
    if (view == nullptr)
        return;
    const CRef<CCorvaneTypeView> keep(view);
    if (m_pEditView == view)
        EndEdit(false, true);
    const int number = m_AttribList[static_cast<std::size_t>(iIndex)].m_nNumber;
    m_AttribList.erase(m_AttribList.begin() + iIndex);
    for (SRow& row : m_AttribList)
    {
        if (row.m_nNumber > number)
            --row.m_nNumber;
    }
    --m_nNextNumber;
    const bool selected = m_nSelected == iIndex;
    if (selected)
        m_nSelected = -1;
    else if (m_nSelected > iIndex)
        --m_nSelected;
    view->SetSelected(false);
    view->Detach();
    RecalcScrollBar();
    update();
    if (selected)
        OnSelectionChanged();
}

CCorvaneTypeView* CCorvaneListViewList::GetAttribute(int iIndex) const
{
    ZRASSERT(iIndex >= 0 && iIndex < GetAttributeCount());
    if (iIndex < 0 || iIndex >= GetAttributeCount())
        return nullptr;
    return m_AttribList[static_cast<std::size_t>(iIndex)].m_pView.Get();
}

int CCorvaneListViewList::FindAttribute(const CCorvaneTypeView* view) const
{
    const auto found = std::find_if(m_AttribList.begin(), m_AttribList.end(),
                                    [view](const SRow& row) { return row.m_pView.Get() == view; });
    return found == m_AttribList.end() ? -1 : static_cast<int>(found - m_AttribList.begin());
}

int CCorvaneListViewList::GetItemRect(int index, QRect& rcItem) const
{
    if (index < 0 || index >= GetAttributeCount())
        return -1;
    int top = m_nTop * kLine;
    for (int i = 0; i < index; ++i)
        top += m_AttribList[static_cast<std::size_t>(i)].m_nHeight;
    rcItem = QRect(0, top, width(), m_AttribList[static_cast<std::size_t>(index)].m_nHeight);
    return index;
}

int CCorvaneListViewList::HitTest(int y) const
{
    int bottom = m_nTop * kLine;
    for (int i = 0; i < GetAttributeCount(); ++i)
    {
        bottom += m_AttribList[static_cast<std::size_t>(i)].m_nHeight;
        if (y < bottom)
            return i;
    }
    return -1;
}

void CCorvaneListViewList::MeasureAttribute(int iIndex)
{
    CCorvaneTypeView* view = GetAttribute(iIndex);
    if (view == nullptr)
        return;
    SRow& row = m_AttribList[static_cast<std::size_t>(iIndex)];
    const int before = std::exchange(row.m_nHeight, view->Measure(width()));
    if (before != row.m_nHeight)
        RecalcScrollBar();
    PlaceEditor();
    update();
}

void CCorvaneListViewList::MeasureAll()
{
    for (SRow& row : m_AttribList)
        row.m_nHeight = row.m_pView->Measure(width());
    RecalcScrollBar();
    PlaceEditor();
    update();
}

void CCorvaneListViewList::DrawSingleAttribute(int iIndex, QPainter* painter)
{
    QRect rect;
    if (GetItemRect(iIndex, rect) < 0 || !rect.intersects(this->rect()))
        return;
    if (painter == nullptr)
        update(rect);
    else
        GetAttribute(iIndex)->Draw(*painter, rect, painter->clipBoundingRect().toAlignedRect());
}

void CCorvaneListViewList::paintEvent(QPaintEvent* event)
{
    Flush();
    QPainter painter(this);
    painter.setClipRect(event->rect());
    const CTheme& theme = CTheme::Get();
    painter.fillRect(event->rect(), theme.GetColor(EThemeColor::Base));
    painter.fillRect(QRect(0, 0, kListIndent, height()), theme.GetColor(EThemeColor::Gutter));
    const int last = HitTest(event->rect().bottom());
    for (int i = std::max(HitTest(event->rect().top()), 0);
         i < GetAttributeCount() && (last < 0 || i <= last); ++i)
        DrawSingleAttribute(i, &painter);
    painter.setPen(theme.GetColor(EThemeColor::Shadow));
    painter.drawLine(kListIndent, 0, kListIndent, height());
}

void CCorvaneListViewList::RecalcScrollBar()
{
    int total = 0;
    int lines = 0;
    for (const SRow& row : m_AttribList)
        total += row.m_nHeight;
    lines = total / kLine;
    const int overflow = total - height();
    m_nMaximumScroll = overflow < 1 ? 0 : (std::max(overflow, kLine) + kLine - 1) / kLine;
    m_nTop = std::clamp(m_nTop, -m_nMaximumScroll, 0);
    const QSignalBlocker blocker(m_ScrollBar);
    m_ScrollBar.setRange(0, m_nMaximumScroll);
    m_ScrollBar.setPageStep(std::max(std::min(height() / kLine, lines), 1));
    m_ScrollBar.setSingleStep(1);
    m_ScrollBar.setValue(-m_nTop);
    m_ScrollBar.setEnabled(m_nMaximumScroll > 0);
}

void CCorvaneListViewList::ScrollTo(int line)
{
    EndEdit(true, true);
    const int top = std::clamp(line, -m_nMaximumScroll, 0);
    if (top == m_nTop)
        return;
    m_nTop = top;
    const QSignalBlocker blocker(m_ScrollBar);
    m_ScrollBar.setValue(-m_nTop);
    update();
}

void CCorvaneListViewList::ScrollBy(int lines)
{
    ScrollTo(m_nTop - lines);
}

void CCorvaneListViewList::MakeRectVisible(const QRect& prcArea)
{
    const QRect client = rect();
    if (prcArea.isEmpty() || client.contains(prcArea))
        return;
    int top = m_nTop;
    if (prcArea.top() >= client.top() && prcArea.bottom() > client.bottom())
        top += static_cast<int>(std::floor((client.bottom() - prcArea.bottom()) * 0.05));
    else
        top += (client.top() - prcArea.top()) / kLine;
    ScrollTo(top);
}

void CCorvaneListViewList::MakeSelectionVisible()
{
    QRect rect;
    if (GetItemRect(m_nSelected, rect) >= 0)
        MakeRectVisible(GetSelectedRow()->GetActiveRect(rect));
}

CCorvaneTypeView* CCorvaneListViewList::GetSelectedRow() const
{
    return m_nSelected < 0 ? nullptr : GetAttribute(m_nSelected);
}

void CCorvaneListViewList::SetSelection(int index)
{
    Flush();
    const int clamped = index < 0 ? -1 : std::min(index, GetAttributeCount() - 1);
    if (clamped == m_nSelected)
        return;
    EndEdit(true, true);
    MarkRow(m_nSelected, false);
    m_nSelected = clamped;
    MarkRow(m_nSelected, true);
    OnSelectionChanged();
}

void CCorvaneListViewList::MarkRow(int index, bool selected)
{
    if (index < 0 || index >= GetAttributeCount())
        return;
    SRow& row = m_AttribList[static_cast<std::size_t>(index)];
    row.m_dwFlags = selected ? row.m_dwFlags | kRowSelected : row.m_dwFlags & ~kRowSelected;
    row.m_pView->SetSelected(selected);
}

void CCorvaneListViewList::SelectView(const CCorvaneTypeView* view)
{
    m_nSelected = FindAttribute(view);
    if (m_nSelected >= 0)
        m_AttribList[static_cast<std::size_t>(m_nSelected)].m_dwFlags |= kRowSelected;
}

void CCorvaneListViewList::OnSelectionChanged()
{
    update();
    TellAccessibleSelection(*this);
    if (m_Hooks.m_OnSelection)
        m_Hooks.m_OnSelection();
}

void CCorvaneListViewList::SortByColumn(int column)
{
    Flush();
    EndEdit(true, true);
    const bool again = column == m_nSortColumn;
    m_nSortPhase = again ? m_nSortPhase + 1 : 0;
    m_nSortColumn = m_nSortPhase == 2 ? -1 : column;
    const CCorvaneTypeView* selected = GetSelectedRow();
    SortRows();
    SelectView(selected);
    m_Header.SetSortMark(m_nSortColumn, m_nSortPhase == 1);
    update();
}

void CCorvaneListViewList::SortRows()
{
    const auto inOrder = [this](const SRow& a, const SRow& b)
    {
        if (m_nSortColumn < 0)
            return a.m_nNumber < b.m_nNumber;
        const int order = CompareAttributes(a.m_pView->GetParentType(), b.m_pView->GetParentType(),
                                            static_cast<EListColumn>(m_nSortColumn));
        return m_nSortPhase == 1 ? order > 0 : order < 0;
    };
    std::stable_sort(m_AttribList.begin(), m_AttribList.end(), inOrder);
}

void CCorvaneListViewList::SetAllExpanded(bool expanded)
{
    Flush();
    EndEdit(true, true);
    for (const SRow& row : m_AttribList)
        row.m_pView->SetAllExpanded(expanded);
    MeasureAll();
    MakeSelectionVisible();
    OnSelectionChanged();
}

QRect CCorvaneListViewList::GetColumnRect(EListColumn column) const
{
    return m_Header.GetColumnRect(column);
}

void CCorvaneListViewList::resizeEvent(QResizeEvent*)
{
    m_Header.Layout(width());
    MeasureAll();
}

void CCorvaneListViewList::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        InvalidateHeights();
}
