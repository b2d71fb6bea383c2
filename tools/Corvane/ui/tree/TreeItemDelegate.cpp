#include "TreeItemDelegate.h"

#include "CorvaneCategory.h"
#include "CorvaneTreeModel.h"
#include "IconSet.h"
#include "Theme.h"
#include "TreeState.h"

#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace
{
constexpr int kStateWidth = CTheme::kIconSize;

struct SRoleIcons
{
    const char* m_sClosed;
    const char* m_sOpen;
};

SRoleIcons GetRoleIcons(const CTreeItem& item)
{
    if (item.IsRoot())
        return {"root", "root-open"};
    if (item.IsRecord())
        return item.IsSpecial() ? SRoleIcons{"record-special", "record-special"}
                                : SRoleIcons{"record", "record"};
    if (item.IsSpecial())
        return {"category-special", "category-special-open"};
    return item.GetCategory()->IsSystem() ? SRoleIcons{"category-system", "category-system-open"}
                                          : SRoleIcons{"category-virtual", "category-virtual-open"};
}
} // namespace

CTreeItemDelegate::CTreeItemDelegate(const CCorvaneTreeModel& model, QObject* parent)
    : QStyledItemDelegate(parent), m_Model(model)
{
}

const QIcon& CTreeItemDelegate::GetCachedIcon(const char* name) const
{
    QIcon& icon = m_Icons[name];
    if (icon.isNull())
        icon = GetIcon(name);
    return icon;
}

QRect CTreeItemDelegate::GetStateRect(const QRect& row) const
{
    return {row.left(), row.top(), m_bStates ? kStateWidth : 0, row.height()};
}

QRect CTreeItemDelegate::GetIconRect(const QRect& row) const
{
    return {GetStateRect(row).right() + 1, row.top(), CTheme::kIconSize + CTheme::kGrid, row.height()};
}

QRect CTreeItemDelegate::GetLabelRect(const QRect& row) const
{
    return row.adjusted(GetIconRect(row).right() + 1 - row.left(), 0, 0, 0);
}

void CTreeItemDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const SRoleIcons icons = GetRoleIcons(m_Model.GetItem(index));
    const bool open = (option->state & QStyle::State_Open) != 0 && m_Model.hasChildren(index);
    option->icon = GetCachedIcon(open ? icons.m_sOpen : icons.m_sClosed);
    option->decorationSize = {CTheme::kIconSize, CTheme::kIconSize};
    option->features |= QStyleOptionViewItem::HasDecoration;
    if (m_bTrackSelect && (option->state & QStyle::State_MouseOver) != 0)
        option->font.setUnderline(true);
}

// The selection goes through all of the row.
void CTreeItemDelegate::PaintBackground(QPainter* painter, const QStyleOptionViewItem& option,
                                        const QRect& place)
{
    QStyleOptionViewItem panel = option;
    panel.rect = place;
    option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &panel, painter, option.widget);
}

void CTreeItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const qreal opacity = painter->opacity();
    // Cut is not gone: it stays readable.
    if (m_IsCut && m_IsCut(index))
        painter->setOpacity(opacity / 2);
    QStyleOptionViewItem shifted = option;
    if (m_bStates)
    {
        const QRect place = GetStateRect(option.rect);
        PaintBackground(painter, option, place);
        if (const char* icon = GetStateIcon(index.data(CCorvaneTreeModel::StateRole).toInt()))
            GetCachedIcon(icon).paint(painter, place);
        shifted.rect.setLeft(place.right() + 1);
    }
    QStyledItemDelegate::paint(painter, shifted, index);
    painter->setOpacity(opacity);
}

QSize CTreeItemDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(std::max(size.height(), CTheme::kRowHeight));
    size.rwidth() += m_bStates ? kStateWidth : 0;
    return size;
}

QWidget* CTreeItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                         const QModelIndex&) const
{
    auto* editor = new QLineEdit(parent);
    editor->setObjectName(QStringLiteral("label"));
    editor->setAccessibleName(QStringLiteral("Name"));
    connect(editor, &QObject::destroyed, this,
            [this](const QObject* gone)
            {
                if (m_OnEditorGone)
                    m_OnEditorGone(gone);
            });
    return editor;
}

void CTreeItemDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const
{
    if (m_OnText)
        m_OnText(static_cast<const QLineEdit*>(editor)->text());
}

void CTreeItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                             const QModelIndex&) const
{
    // A deep row in a narrow pane still has room to type.
    constexpr int kMinWidth = 120;
    QRect place = GetLabelRect(option.rect);
    const int right = editor->parentWidget()->width();
    place.setRight(right - 1);
    if (place.width() < kMinWidth)
        place.setLeft(std::max(0, right - kMinWidth));
    editor->setGeometry(place);
}
