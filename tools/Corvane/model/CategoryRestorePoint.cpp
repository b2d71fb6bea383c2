#include "CategoryRestorePoint.h"

#include "CorvaneMgr.h"

CCategoryRestorePoint::CCategoryRestorePoint(CCorvaneCategory& category, ERestoreAction action,
                                             CCorvaneCategory* parent)
    : m_pCategory(&category), m_Action(action), m_pParent(parent)
{
}

CCategoryRestorePoint::~CCategoryRestorePoint()
{
    // A special category keeps its records for the next time.
    if (m_Action == ERestoreAction::Deleted && !m_pCategory->IsAttached() &&
        m_pCategory->GetCategoryType() == 0)
        m_pCategory->GetManager().ReleaseDeletedCategory(*m_pCategory);
}

bool CCategoryRestorePoint::Undo(bool redoable)
{
    const bool deleted = m_Action == ERestoreAction::Deleted;
    const bool done =
        deleted ? m_pCategory->GetManager().ReinsertCategory(*m_pCategory, m_pParent.Get()) : TakeOut();
    if (done && redoable)
        m_Action = deleted ? ERestoreAction::Referenced : ERestoreAction::Deleted;
    return done;
}

bool CCategoryRestorePoint::TakeOut()
{
    // A refresh may have taken it away: then there is nothing to do, and older entries stay in reach.
    if (!m_pCategory->IsAttached())
        return true;
    m_pParent = CRef<CCorvaneCategory>(m_pCategory->GetParent());
    return m_pCategory->GetManager().DeleteCategory(*m_pCategory, true);
}

bool CCategoryRestorePoint::Refers(const CCorvaneRef& object) const
{
    return m_pCategory.Get() == &object || m_pParent.Get() == &object;
}
