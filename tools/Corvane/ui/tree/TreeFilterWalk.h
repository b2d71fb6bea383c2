// Looks through the database for what a filter accepts and makes the nodes of it, in slices, so that a key
// that is pressed meanwhile does not wait. Between two slices the database must stay as it is: start anew
// when it does not.
#pragma once

#include "CorvaneCategory.h"
#include "TreeNodes.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <vector>

class CTreeFilterWalk
{
public:
    using CClock = std::chrono::steady_clock;

    // The whole database, into `nodes`, which have a filter and the root alone.
    CTreeFilterWalk(CTreeNodes& nodes, const CCorvaneMgr& manager);
    // One category with all below it; see Take. Both have no node yet.
    CTreeFilterWalk(CTreeNodes& nodes, CCorvaneCategory& category);

    // False when time is up before the end.
    [[nodiscard]] bool Run(CClock::time_point deadline);
    // The category's node, in no list yet, once Run has come to the end. Null when there is nothing in it.
    [[nodiscard]] std::unique_ptr<CTreeNode> Take() { return std::move(m_pResult); }

private:
    struct SFrame
    {
        CTreeItem m_Item;
        std::vector<CRef<CCorvaneCategory>> m_Children;
        std::size_t m_nNextChild = 0;
        std::size_t m_nNextRecord = 0;
        std::vector<std::unique_ptr<CTreeNode>> m_Found;
    };

    void Enter(CCorvaneCategory& category);
    void Step();
    // Looks at some records; true when there are more.
    bool LookAtRecords(SFrame& frame);
    void Leave();

    CTreeNodes& m_Nodes;
    CTreeFilter& m_Filter;
    std::vector<SFrame> m_Frames;
    std::unique_ptr<CTreeNode> m_pResult;
};
