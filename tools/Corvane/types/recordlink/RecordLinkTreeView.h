// The left pane of the browser that picks a record: the categories of a CLinkCategoryTree below a root item
// with the database's name. The user's settings of the main tree for the mouse count here too.
#pragma once

#include <QTreeWidget>
#include <cstddef>
#include <functional>
#include <vector>

class CLinkCategoryTree;
class CProfile;

class CRecordLinkTreeView final : public QTreeWidget
{
public:
    CRecordLinkTreeView(const CProfile& profile, QWidget* parent);

    // Fills the pane anew; what was open stays open, and nothing is selected.
    void SetTree(const CLinkCategoryTree& tree);
    // Selects a node without calling m_OnNode.
    void SetNode(std::size_t node);
    // CLinkCategoryTree::kNone for none.
    [[nodiscard]] std::size_t GetNode() const;

    std::function<void(std::size_t node)> m_OnNode; // The user went to another one.
    std::function<void()> m_OnEnter;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void OnCurrentChanged(QTreeWidgetItem* current, QTreeWidgetItem* previous);

    std::vector<QTreeWidgetItem*> m_Items; // By node.
    bool m_bSingleClickExpand;
    bool m_bSetting = false;
};
