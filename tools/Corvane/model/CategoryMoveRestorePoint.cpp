#include "CategoryMoveRestorePoint.h"

#include "CorvaneMgr.h"

#include <utility>

CCategoryMoveRestorePoint::CCategoryMoveRestorePoint(CCorvaneCategory& category, CCorvaneCategory* parent,
                                                     std::u16string name)
    : m_pCategory(&category), m_pOtherParent(parent), m_sOtherName(std::move(name))
{
}

bool CCategoryMoveRestorePoint::Undo(bool)
{
    CCorvaneMgr& manager = m_pCategory->GetManager();
    const CRef<CCorvaneCategory> parent(m_pCategory->GetParent());
    const std::u16string name = m_pCategory->GetName();
    m_pCategory->SetName(m_sOtherName);
    const bool moved = m_pOtherParent ? manager.MoveCategory(m_pOtherParent.Get(), m_pCategory.Get())
                                      : manager.MoveCategoryToRoot(*m_pCategory);
    if (!moved)
    {
        m_pCategory->SetName(name);
        return false;
    }
    m_pOtherParent = parent;
    m_sOtherName = name;
    return true;
}

bool CCategoryMoveRestorePoint::Refers(const CCorvaneRef& object) const
{
    return m_pCategory.Get() == &object || m_pOtherParent.Get() == &object;
}
