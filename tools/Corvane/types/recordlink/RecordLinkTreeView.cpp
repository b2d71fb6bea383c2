#include "recordlink/RecordLinkTreeView.h"

#include "CorvaneCategory.h"
#include "IconSet.h"
#include "Profile.h"
#include "QtText.h"
#include "recordlink/LinkCategoryTree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <set>
#include <string>

namespace
{
constexpr std::u16string_view kTreeSection = u"Tree Control";
constexpr int kNodeRole = Qt::UserRole;
constexpr int kPathRole = Qt::UserRole + 1;

// Underlines the item under the pointer.
class CTrackDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->font.setUnderline(option->state.testFlag(QStyle::State_MouseOver));
    }
};

bool IsAncestor(const QTreeWidgetItem* above, const QTreeWidgetItem* item)
{
    while (item != nullptr && item != above)
        item = item->parent();
    return item != nullptr;
}
} // namespace

CRecordLinkTreeView::CRecordLinkTreeView(const CProfile& profile, QWidget* parent)
    : QTreeWidget(parent),
      m_bSingleClickExpand(profile.GetInteger(kTreeSection, u"Single.Click.Expand", 0) != 0)
{
    setObjectName(QStringLiteral("CategoryTree"));
    setAccessibleName(QStringLiteral("Categories"));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setTabKeyNavigation(false);
    setTextElideMode(Qt::ElideRight);
    if (profile.GetInteger(kTreeSection, u"Track.Select", 0) != 0)
    {
        viewport()->setAttribute(Qt::WA_Hover);
        setItemDelegate(new CTrackDelegate(this));
    }
    connect(this, &QTreeWidget::currentItemChanged, this, &CRecordLinkTreeView::OnCurrentChanged);
}

void CRecordLinkTreeView::SetTree(const CLinkCategoryTree& tree)
{
    std::set<QString> open;
    for (const QTreeWidgetItem* item : m_Items)
    {
        if (item->isExpanded())
            open.insert(item->data(0, kPathRole).toString());
    }
    m_bSetting = true;
    clear();
    m_Items.assign(tree.GetCount(), nullptr);
    const QIcon system = GetIcon("category-system");
    const QIcon virtualIcon = GetIcon("category-virtual");
    // A parent is always entered ahead of its children.
    for (std::size_t i = 0; i < tree.GetCount(); ++i)
    {
        const CLinkCategoryTree::SNode& node = tree.GetNode(i);
        auto* item = i == CLinkCategoryTree::kRoot ? new QTreeWidgetItem(this)
                                                   : new QTreeWidgetItem(m_Items[node.m_nParent]);
        item->setText(0, ToQString(node.m_sName));
        item->setData(0, kNodeRole, static_cast<qulonglong>(i));
        item->setData(0, kPathRole, ToQString(node.m_sPath));
        const bool isVirtual = node.m_pCategory && !node.m_pCategory->IsSystem();
        item->setIcon(0, i == CLinkCategoryTree::kRoot ? GetIcon("root") : isVirtual ? virtualIcon : system);
        m_Items[i] = item;
    }
    for (QTreeWidgetItem* item : m_Items)
        item->setExpanded(open.count(item->data(0, kPathRole).toString()) != 0);
    m_Items.front()->setExpanded(true);
    m_bSetting = false;
}

void CRecordLinkTreeView::SetNode(std::size_t node)
{
    m_bSetting = true;
    setCurrentItem(m_Items[node]);
    scrollToItem(m_Items[node]);
    m_bSetting = false;
}

std::size_t CRecordLinkTreeView::GetNode() const
{
    const QTreeWidgetItem* item = currentItem();
    return item ? static_cast<std::size_t>(item->data(0, kNodeRole).toULongLong()) : CLinkCategoryTree::kNone;
}

void CRecordLinkTreeView::OnCurrentChanged(QTreeWidgetItem* current, QTreeWidgetItem* previous)
{
    if (m_bSetting || current == nullptr)
        return;
    if (m_bSingleClickExpand)
    {
        current->setExpanded(true);
        if (previous != nullptr && !IsAncestor(previous, current))
            previous->setExpanded(false);
    }
    if (m_OnNode)
        m_OnNode(GetNode());
}

void CRecordLinkTreeView::keyPressEvent(QKeyEvent* event)
{
    if ((event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) || !m_OnEnter)
        return QTreeWidget::keyPressEvent(event);
    m_OnEnter();
}
