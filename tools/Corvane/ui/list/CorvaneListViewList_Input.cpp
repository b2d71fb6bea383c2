// What the list does with keys, the mouse and the editor of a value.
#include "CommandSet.h"
#include "CorvaneListViewList.h"
#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "CorvaneTypeValueDlg.h"
#include "Editor.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <utility>

namespace
{
constexpr int kNotch = 120;
} // namespace

QRect CCorvaneListViewList::GetEditCell(const CCorvaneTypeView& view, int index) const
{
    QRect row;
    if (GetItemRect(index, row) < 0)
        return {};
    return view.GetEditRect(row).adjusted(1, 0, -1, 0);
}

void CCorvaneListViewList::BeginEdit()
{
    Flush();
    CRef<CCorvaneTypeView> view(GetSelectedRow());
    if (!view || m_bEditing || view->GetActiveSubItem() == kHeaderItem || !view->CanEdit())
        return;
    MakeRectVisible(GetEditCell(*view, m_nSelected));
    m_bEditing = true;
    m_pEditView = view;
    m_Frame.GetCommandSet().SetAcceleratorsEnabled(false);
    const QPointer<CCorvaneListViewList> guard(this); // A view may run a dialog of its own here.
    const EViewUpdate update = view->BeginEdit(GetEditCell(*view, m_nSelected));
    if (!guard)
        return;
    if (update == EViewUpdate::EditEnded || update == EViewUpdate::MeasureEditEnded)
        LeaveEdit();
    ApplyUpdate(*view, update == EViewUpdate::None ? EViewUpdate::Repaint : update);
}

void CCorvaneListViewList::LeaveEdit()
{
    m_bEditing = false;
    m_pEditView = nullptr;
    m_Frame.GetCommandSet().SetAcceleratorsEnabled(true);
}

void CCorvaneListViewList::EndEdit(bool commit, bool force)
{
    if (!m_bEditing)
        return;
    const CRef<CCorvaneTypeView> view = m_pEditView;
    const CCorvaneTypeValueDlg* dialog = view->GetValueDialog();
    if (dialog != nullptr && dialog->IsKeptOpen() && !force)
        return;
    // An attribute that a refresh or an undo took away takes no value any more.
    if (m_bRowsDue)
    {
        Flush();
        if (!m_bEditing)
            return;
    }
    const bool hadFocus = dialog != nullptr && dialog->Owns(QApplication::focusWidget());
    LeaveEdit();
    EViewUpdate update = EViewUpdate::Repaint;
    const QPointer<CCorvaneListViewList> guard(this); // A check-out may ask, and time passes.
    if (commit)
        update = view->EndEdit();
    else
        view->CancelEdit();
    if (!guard)
        return;
    if (hadFocus)
        setFocus();
    ApplyUpdate(*view, update);
    OnSelectionChanged();
}

void CCorvaneListViewList::PlaceEditor()
{
    if (!m_bEditing)
        return;
    const int index = FindAttribute(m_pEditView.Get());
    if (index >= 0)
        m_pEditView->MoveValueDialog(GetEditCell(*m_pEditView, index));
}

void CCorvaneListViewList::ApplyUpdate(CCorvaneTypeView& view, EViewUpdate update)
{
    switch (update)
    {
    case EViewUpdate::Measure:
    case EViewUpdate::MeasureEditEnded:
        if (const int index = FindAttribute(&view); index >= 0)
            MeasureAttribute(index);
        else
            MeasureAll();
        break;
    case EViewUpdate::Repaint:
    case EViewUpdate::EditEnded:
        QWidget::update();
        break;
    case EViewUpdate::None:
    case EViewUpdate::Consumed:
        break;
    }
}

bool CCorvaneListViewList::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    ShowToolTip(help->pos(), help->globalPos());
    return true;
}

void CCorvaneListViewList::ShowToolTip(const QPoint& point, const QPoint& global)
{
    Flush();
    const int index = HitTest(point.y());
    QRect rect;
    const QString text =
        GetItemRect(index, rect) < 0 ? QString() : GetAttribute(index)->GetToolTip(rect, point);
    if (text.isEmpty())
        QToolTip::hideText();
    else // Text of the database is no markup.
        QToolTip::showText(
            global, QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped()), this);
}

void CCorvaneListViewList::focusInEvent(QFocusEvent*)
{
    update();
    if (m_Hooks.m_OnFocus)
        m_Hooks.m_OnFocus();
}

void CCorvaneListViewList::focusOutEvent(QFocusEvent*)
{
    update();
}

bool CCorvaneListViewList::focusNextPrevChild(bool next)
{
    if (m_bEditing)
        return false;
    if (next)
        m_Frame.ActivateTree();
    return !hasFocus() || QWidget::focusNextPrevChild(next);
}

void CCorvaneListViewList::Hand(const CRef<CCorvaneTypeView>& view,
                                const std::function<EViewUpdate()>& handler)
{
    // What a view does may ask the user, and this list may go meanwhile.
    const QPointer<CCorvaneListViewList> guard(this);
    const EViewUpdate update = handler();
    if (!guard || update == EViewUpdate::None)
        return;
    ApplyUpdate(*view, update);
    OnSelectionChanged();
}

void CCorvaneListViewList::keyPressEvent(QKeyEvent* event)
{
    Flush();
    EViewUpdate update = EViewUpdate::None;
    const CRef<CCorvaneTypeView> view(GetSelectedRow());
    const QPointer<CCorvaneListViewList> guard(this);
    if (view)
        Hand(view, [&] { return update = view->OnKeyDown(*event); });
    if (guard && update == EViewUpdate::None && !RunKey(event->key()))
        QWidget::keyPressEvent(event);
}

bool CCorvaneListViewList::RunKey(int key)
{
    switch (key)
    {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F3:
        BeginEdit();
        return true;
    case Qt::Key_Space:
        if (CCorvaneTypeView* row = GetSelectedRow())
            ExpandSelected(!row->GetSelectedView().IsExpanded());
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        ExpandSelected(key == Qt::Key_Right);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        MoveSelection(key == Qt::Key_Down);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        ScrollBy(key == Qt::Key_PageDown ? kPageLines : -kPageLines);
        return true;
    case Qt::Key_Home:
        ScrollTo(0);
        return true;
    case Qt::Key_End:
        ScrollTo(-m_nMaximumScroll);
        return true;
    default:
        return false;
    }
}

void CCorvaneListViewList::ExpandSelected(bool expanded)
{
    CCorvaneTypeView* row = GetSelectedRow();
    if (row == nullptr || !row->GetSelectedView().CanExpand())
        return;
    EndEdit(true, true);
    row->GetSelectedView().SetExpanded(expanded);
    MeasureAttribute(m_nSelected);
    MakeSelectionVisible();
    OnSelectionChanged();
}

void CCorvaneListViewList::MoveSelection(bool down)
{
    CCorvaneTypeView* view = GetSelectedRow();
    if (view == nullptr)
    {
        SetSelection(0);
    }
    else if (down)
    {
        if (!view->IsExpanded() || !view->SelectNext())
            SetSelection(m_nSelected + 1);
    }
    else if (view->GetActiveSubItem() != kHeaderItem)
    {
        if (!view->SelectPrevious())
            view->ClearActiveSubItem();
    }
    else if (m_nSelected > 0)
    {
        SetSelection(m_nSelected - 1);
        if (GetSelectedRow()->IsExpanded())
            GetSelectedRow()->SelectPrevious(); // From the header: the last item.
    }
    MakeSelectionVisible();
    OnSelectionChanged();
}

void CCorvaneListViewList::mousePressEvent(QMouseEvent* event)
{
    Flush();
    if (m_bPopup)
        return;
    const int index = HitTest(event->pos().y());
    QRect rect;
    if (index < 0)
        return;
    SetSelection(index);
    const CRef<CCorvaneTypeView> view(GetSelectedRow());
    if (GetItemRect(m_nSelected, rect) < 0)
        return;
    const bool left = event->button() == Qt::LeftButton;
    Hand(view,
         [&]
         {
             return left ? view->OnLButtonDown(rect, event->pos(), event->modifiers())
                         : view->OnRButtonDown(rect, event->pos());
         });
}

void CCorvaneListViewList::mouseDoubleClickEvent(QMouseEvent* event)
{
    Flush();
    const int index = HitTest(event->pos().y());
    QRect rect;
    if (m_bPopup || m_bEditing || event->button() != Qt::LeftButton || GetItemRect(index, rect) < 0)
        return;
    SetSelection(index);
    const CRef<CCorvaneTypeView> view(GetSelectedRow());
    Hand(view, [&] { return view->OnLButtonDblClk(rect, event->pos()); });
}

void CCorvaneListViewList::contextMenuEvent(QContextMenuEvent* event)
{
    Flush();
    QRect rect;
    if (m_bPopup || !m_Hooks.m_OnPopup || GetItemRect(m_nSelected, rect) < 0)
        return;
    // The key opens the menu at the row that it is for.
    const bool byKey = event->reason() != QContextMenuEvent::Mouse;
    if (!byKey && HitTest(event->pos().y()) < 0)
        return;
    m_Hooks.m_OnPopup(byKey ? mapToGlobal(GetSelectedRow()->GetActiveRect(rect).center())
                            : event->globalPos());
}

void CCorvaneListViewList::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if (m_bEditing || m_bPopup)
        return;
    m_nWheel += event->angleDelta().y();
    const int notches = m_nWheel / kNotch;
    m_nWheel -= notches * kNotch;
    if (notches != 0)
        ScrollBy(-notches);
}
