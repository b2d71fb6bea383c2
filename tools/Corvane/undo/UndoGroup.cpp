#include "UndoGroup.h"

#include <algorithm>

namespace
{
constexpr std::size_t kGroupSize = 20;
constexpr std::size_t kSlotSize = 4;
} // namespace

void CUndoGroup::Empty()
{
    for (std::unique_ptr<CUndoRestorePoint>& point : m_Points)
        point.reset();
    m_Points.clear();
}

// Each point's own mark tells whether its change stands, so that a point never runs twice in one direction.
bool CUndoGroup::Undo()
{
    for (std::size_t i = m_Points.size(); i > 0; --i)
    {
        CUndoRestorePoint& point = *m_Points[i - 1];
        if (!point.m_bApplied)
            continue;
        if (!point.Undo(true))
            return false;
        point.m_bApplied = false;
    }
    return true;
}

bool CUndoGroup::Redo()
{
    for (const std::unique_ptr<CUndoRestorePoint>& point : m_Points)
    {
        if (point->m_bApplied)
            continue;
        if (!point->Redo())
            return false;
        point->m_bApplied = true;
    }
    return true;
}

void CUndoGroup::Restore()
{
    for (std::size_t i = m_Points.size(); i > 0; --i)
    {
        // The mark goes with the change: a point that dies with its change standing may end its object.
        CUndoRestorePoint& point = *m_Points[i - 1];
        if (point.m_bApplied)
            point.m_bApplied = !point.Undo(false);
    }
}

void CUndoGroup::DropRestored()
{
    std::erase_if(m_Points, [](const auto& point) { return !point->m_bApplied; });
}

std::size_t CUndoGroup::GetSize() const
{
    std::size_t size = kGroupSize + kSlotSize * m_Points.capacity();
    for (const std::unique_ptr<CUndoRestorePoint>& point : m_Points)
        size += point->GetSize();
    return size;
}

bool CUndoGroup::Refers(const CCorvaneRef& object) const
{
    return std::any_of(m_Points.begin(), m_Points.end(),
                       [&](const auto& point) { return point->Refers(object); });
}
