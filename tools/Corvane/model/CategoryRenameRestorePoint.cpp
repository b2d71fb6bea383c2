#include "CategoryRenameRestorePoint.h"

#include "CorvaneMgr.h"
#include "NameCompare.h"

#include <utility>

CCategoryRenameRestorePoint::CCategoryRenameRestorePoint(CCorvaneCategory& category, std::u16string other)
    : m_pCategory(&category), m_sOther(std::move(other))
{
}

bool CCategoryRenameRestorePoint::Undo(bool)
{
    CCorvaneMgr& manager = m_pCategory->GetManager();
    const std::u16string current = m_pCategory->GetName();
    // The name may have been taken meanwhile by something that no undo knows of: a new system category, or
    // one that a refresh found.
    const std::u16string name = EqualNames(current, m_sOther)
                                    ? m_sOther
                                    : manager.MakeCategoryNameUnique(m_pCategory->GetParent(), m_sOther);
    if (!manager.RenameCategory(*m_pCategory, name))
        return false;
    m_sOther = current;
    return true;
}
