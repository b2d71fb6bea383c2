#include "EditEndFilter.h"

#include "CorvaneListViewList.h"
#include "CorvaneTypeValueDlg.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <memory>
#include <vector>

namespace
{
std::vector<CCorvaneListViewList*> g_Lists;
std::unique_ptr<CEditEndFilter> g_pFilter;

bool IsPress(const QEvent& event)
{
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick ||
           event.type() == QEvent::NonClientAreaMouseButtonPress;
}
} // namespace

void CEditEndFilter::Add(CCorvaneListViewList& list)
{
    if (g_Lists.empty())
    {
        g_pFilter.reset(new CEditEndFilter);
        qApp->installEventFilter(g_pFilter.get());
    }
    g_Lists.push_back(&list);
}

void CEditEndFilter::Remove(CCorvaneListViewList& list)
{
    std::erase(g_Lists, &list);
    if (g_Lists.empty())
        g_pFilter.reset();
}

void CEditEndFilter::InvalidateAll()
{
    for (CCorvaneListViewList* list : g_Lists)
        list->InvalidateHeights();
}

bool CEditEndFilter::IsOutside(const CCorvaneListViewList& list, const QObject* watched)
{
    const CCorvaneTypeValueDlg* dialog = list.m_pEditView->GetValueDialog();
    if (dialog == nullptr || dialog->Owns(watched))
        return false;
    // Menus and drop lists belong to whoever opened them; while one is up, it takes every press.
    return QApplication::activePopupWidget() == nullptr;
}

bool CEditEndFilter::eventFilter(QObject* watched, QEvent* event)
{
    const bool press = IsPress(*event) && watched->isWidgetType();
    if (!press && event->type() != QEvent::ApplicationDeactivate)
        return false;
    const auto lists = g_Lists; // Ending an edit may show or close windows.
    for (CCorvaneListViewList* list : lists)
    {
        const bool alive = std::find(g_Lists.begin(), g_Lists.end(), list) != g_Lists.end();
        if (alive && list->IsEditing() && (!press || IsOutside(*list, watched)))
            list->EndEdit(true, false);
    }
    return false;
}
