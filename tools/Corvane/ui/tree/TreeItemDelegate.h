// Paints a row of the tree: state image, icon by role, name; and edits the name in place.
#pragma once

#include <QIcon>
#include <QStyledItemDelegate>
#include <functional>
#include <map>

class CCorvaneTreeModel;
class CTreeItem;

class CTreeItemDelegate final : public QStyledItemDelegate
{
public:
    CTreeItemDelegate(const CCorvaneTreeModel& model, QObject* parent);

    // Whether a row is marked as cut; asked for rows that are painted.
    std::function<bool(const QModelIndex&)> m_IsCut;
    // The text that an editor ended with.
    std::function<void(const QString&)> m_OnText;
    // An editor is gone, whatever the reason.
    std::function<void(const QObject* editor)> m_OnEditorGone;
    bool m_bTrackSelect = false;
    // Whether there is room for a state image.
    bool m_bStates = false;

    // Parts of a row; `row` is its visual rectangle.
    [[nodiscard]] QRect GetStateRect(const QRect& row) const;
    [[nodiscard]] QRect GetIconRect(const QRect& row) const;
    [[nodiscard]] QRect GetLabelRect(const QRect& row) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    static void PaintBackground(QPainter* painter, const QStyleOptionViewItem& option, const QRect& place);
    [[nodiscard]] const QIcon& GetCachedIcon(const char* name) const;

    const CCorvaneTreeModel& m_Model;
    mutable std::map<const char*, QIcon> m_Icons;
};
