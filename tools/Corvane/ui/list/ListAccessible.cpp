#include "ListAccessible.h"

#include "CorvaneListViewList.h"
#include "QtText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <map>

namespace
{
// A row by its view, which is looked up each time: views come and go with the model.
class CRowAccessible final : public QAccessibleInterface
{
public:
    CRowAccessible(CCorvaneListViewList& list, const CCorvaneTypeView& view) : m_pList(&list), m_pView(&view)
    {
    }

    [[nodiscard]] bool isValid() const override { return GetIndex() >= 0; }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override
    {
        return m_pList ? m_pList->window()->windowHandle() : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_pList);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::TreeItem; }
    void setText(QAccessible::Text, const QString&) override {}

    [[nodiscard]] QString text(QAccessible::Text type) const override
    {
        CCorvaneTypeView* view = GetView();
        if (view == nullptr)
            return {};
        if (type == QAccessible::Name)
            return view->GetSelectedView().GetDescription();
        return type == QAccessible::Description ? ToQString(view->GetTypeName()) : QString();
    }
    [[nodiscard]] QRect rect() const override
    {
        QRect place;
        if (m_pList == nullptr || m_pList->GetItemRect(GetIndex(), place) < 0)
            return {};
        return {m_pList->mapToGlobal(place.topLeft()), place.size()};
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        CCorvaneTypeView* view = GetView();
        state.invalid = view == nullptr;
        if (view == nullptr)
            return state;
        state.selectable = state.focusable = true;
        state.selected = view->IsSelected();
        state.focused = view->IsSelected() && m_pList->hasFocus();
        state.expandable = view->CanExpand();
        state.expanded = view->IsExpanded();
        state.collapsed = view->CanExpand() && !view->IsExpanded();
        state.readOnly = !view->GetSelectedAttribute().IsEditable();
        return state;
    }

private:
    [[nodiscard]] int GetIndex() const { return m_pList ? m_pList->FindAttribute(m_pView) : -1; }
    [[nodiscard]] CCorvaneTypeView* GetView() const
    {
        const int index = GetIndex();
        return index < 0 ? nullptr : m_pList->GetAttribute(index);
    }

    QPointer<CCorvaneListViewList> m_pList;
    const CCorvaneTypeView* m_pView;
};

class CListAccessible final : public QAccessibleWidget
{
public:
    explicit CListAccessible(CCorvaneListViewList& list)
        : QAccessibleWidget(&list, QAccessible::Tree), m_List(list)
    {
    }
    ~CListAccessible() override
    {
        for (const auto& [view, id] : m_Rows)
            QAccessible::deleteAccessibleInterface(id);
    }

    [[nodiscard]] int childCount() const override { return m_List.GetAttributeCount(); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        Sweep();
        const CCorvaneTypeView* view = m_List.GetAttribute(index);
        const auto known = m_Rows.find(view);
        if (known != m_Rows.end())
            return QAccessible::accessibleInterface(known->second);
        auto* row = new CRowAccessible(m_List, *view);
        m_Rows.emplace(view, QAccessible::registerAccessibleInterface(row));
        return row;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        for (const auto& [view, id] : m_Rows)
            if (QAccessible::accessibleInterface(id) == child)
                return m_List.FindAttribute(view);
        return QAccessibleWidget::indexOfChild(child);
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        return child(m_List.HitTest(m_List.mapFromGlobal(QPoint(x, y)).y()));
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        if (m_List.IsEditing())
            return QAccessible::queryAccessibleInterface(m_List.focusWidget());
        return m_List.hasFocus() ? child(m_List.GetSelection()) : nullptr;
    }

private:
    // Rows that were looked at and have gone.
    void Sweep() const
    {
        if (m_Rows.size() < 2 * static_cast<std::size_t>(childCount()) + 16)
            return;
        for (auto row = m_Rows.begin(); row != m_Rows.end();)
        {
            if (m_List.FindAttribute(row->first) >= 0)
            {
                ++row;
                continue;
            }
            QAccessible::deleteAccessibleInterface(row->second);
            row = m_Rows.erase(row);
        }
    }

    CCorvaneListViewList& m_List;
    mutable std::map<const CCorvaneTypeView*, QAccessible::Id> m_Rows;
};

QAccessibleInterface* CreateInterface(const QString&, QObject* object)
{
    auto* list = qobject_cast<CCorvaneListViewList*>(object);
    return list ? new CListAccessible(*list) : nullptr;
}
} // namespace

void InstallListAccessibility()
{
    static const bool installed = (QAccessible::installFactory(&CreateInterface), true);
    Q_UNUSED(installed);
}

void TellAccessibleSelection(CCorvaneListViewList& list)
{
    if (!QAccessible::isActive() || list.GetSelection() < 0 || !list.hasFocus())
        return;
    QAccessibleEvent name(&list, QAccessible::NameChanged);
    name.setChild(list.GetSelection());
    QAccessible::updateAccessibility(&name);
    QAccessibleEvent focus(&list, QAccessible::Focus);
    focus.setChild(list.GetSelection());
    QAccessible::updateAccessibility(&focus);
}
