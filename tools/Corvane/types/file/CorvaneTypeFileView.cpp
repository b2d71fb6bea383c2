#include "file/CorvaneTypeFileView.h"

#include "CorvaneMgr.h"
#include "Editor.h"
#include "UiModule.h"
#include "file/CorvaneTypeFile.h"
#include "file/CorvaneTypeFileValueDlg.h"
#include "host/Services.h"

#include <QKeyEvent>

CCorvaneTypeFileView::CCorvaneTypeFileView(CCorvaneTypeFile& attrib, ITypeViewList& list,
                                           const char* executeIcon)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib), m_sExecuteIcon(executeIcon), m_Strip(executeIcon)
{
}

EViewUpdate CCorvaneTypeFileView::OnKeyDown(QKeyEvent& event)
{
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!isReturn || !event.modifiers().testFlag(Qt::ControlModifier) || !HasButton(GetActiveSubItem()))
        return CCorvaneTypeView::OnKeyDown(event);
    ExecuteActive();
    return EViewUpdate::Consumed;
}

EViewUpdate CCorvaneTypeFileView::OnLButtonDown(const QRect& rect, const QPoint& point,
                                                Qt::KeyboardModifiers modifiers)
{
    if (!IsOnButton(rect, point))
        return CCorvaneTypeView::OnLButtonDown(rect, point, modifiers);
    ExecuteActive();
    return EViewUpdate::Consumed;
}

EViewUpdate CCorvaneTypeFileView::OnLButtonDblClk(const QRect& rect, const QPoint& point)
{
    // The first press has opened the file already.
    return IsOnButton(rect, point) ? EViewUpdate::Consumed : CCorvaneTypeView::OnLButtonDblClk(rect, point);
}

QString CCorvaneTypeFileView::GetToolTip(const QRect& rect, const QPoint& point) const
{
    return IsOnButton(rect, point) ? QStringLiteral("Execute (Ctrl+Return)")
                                   : CCorvaneTypeView::GetToolTip(rect, point);
}

bool CCorvaneTypeFileView::HasButton(int item) const
{
    return item >= 0 && IsSelected() && item == GetActiveSubItem() &&
           !m_Attrib.GetValue(static_cast<std::size_t>(item)).empty();
}

bool CCorvaneTypeFileView::IsOnButton(const QRect& rect, const QPoint& point) const
{
    const int item = GetActiveSubItem();
    if (!HasButton(item) || HitTestItem(rect, point) != item)
        return false;
    QRect cell = GetSubItemRect(rect, item);
    AdjustValueRect(cell);
    return m_Strip.GetButtonRect(cell).contains(point);
}

void CCorvaneTypeFileView::ExecuteActive()
{
    if (!m_Attrib.ExecuteValue(static_cast<std::size_t>(GetActiveSubItem())))
        GetList().GetFrame().GetEditor().GetApplication().GetContext().m_Services.Beep();
}

void CCorvaneTypeFileView::DrawValue(QPainter& painter, const QRect& cell, int item)
{
    if (!HasButton(item))
        return CCorvaneTypeView::DrawValue(painter, cell, item);
    CCorvaneTypeView::DrawValue(painter, m_Strip.GetTextRect(cell), item);
    m_Strip.Draw(painter, cell, *GetList().GetViewport());
}

CCorvaneTypeValueDlg* CCorvaneTypeFileView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeFileValueDlg(*this, m_Attrib, m_sExecuteIcon, parent);
}
