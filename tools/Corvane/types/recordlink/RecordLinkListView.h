// The right pane of the browser that picks a record: the sub-categories of one category and its records, with
// name and comment, or names alone in columns. Categories stand first; both come in the order of the
// database until a column is clicked, and again at the third click.
#pragma once

#include "CorvaneRef.h"

#include <QStackedWidget>
#include <cstddef>
#include <functional>

class CCorvaneRecord;
class CLinkCategoryTree;
class CRecordLinkListModel;
class QAbstractItemView;
class QHeaderView;
class QListView;
class QModelIndex;
class QTreeView;

class CRecordLinkListView final : public QStackedWidget
{
public:
    explicit CRecordLinkListView(QWidget* parent);
    ~CRecordLinkListView() override;

    // Shows a node of the tree, with nothing selected. Holds references on the records, none on the tree.
    void SetNode(const CLinkCategoryTree& tree, std::size_t node);
    // The record that is selected; null for none and for a category.
    [[nodiscard]] CCorvaneRecord* GetRecord() const;
    // Selects a record or a category of the node that is shown, and scrolls to it. False when it is not
    // there.
    bool SelectRecord(const CCorvaneRecord& record);
    bool SelectNode(std::size_t node);
    void ScrollToCurrent();
    // Selects the first row, unless one is selected, and takes the keyboard.
    void Enter();

    void SetDetails(bool details);
    [[nodiscard]] bool IsDetails() const;
    [[nodiscard]] QHeaderView& GetHeader() const;

    // Enter or a double click on a row; the user's selection of a record.
    std::function<void(std::size_t node)> m_OnOpenCategory;
    std::function<void(CCorvaneRecord& record)> m_OnTakeRecord;
    std::function<void(CCorvaneRecord& record)> m_OnSelectRecord;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    [[nodiscard]] QAbstractItemView& GetView() const;
    void Prepare(QAbstractItemView& view, const QString& name);
    void Activate(const QModelIndex& index);
    bool Select(int row);

    CRecordLinkListModel* m_pModel;
    QTreeView* m_pDetails;
    QListView* m_pNames;
    bool m_bSelecting = false; // The selection is not the user's.
};
