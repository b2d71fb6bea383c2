// What a link does when records are deleted, moved, renamed and read again.
#include "CorvaneMgr.h"
#include "FormatText.h"
#include "host/Questions.h"
#include "recordlink/CorvaneTypeRecordLink.h"
#include "recordlink/RecordLinkList.h"

int CCorvaneTypeRecordLink::OnManagerEvent(const CCorvaneEvent& event, const CLinkTarget& target)
{
    switch (event.GetCode())
    {
    case ECorvaneEvent::RecordDeleting:
        return Refuse(target, u"delete");
    case ECorvaneEvent::RecordMoving:
        return Refuse(target, u"move");
    case ECorvaneEvent::RecordDeleted:
    case ECorvaneEvent::RecordRenamed:
        Repair(target);
        return 0;
    default:
        return 0;
    }
}

bool CCorvaneTypeRecordLink::OwnsNameOf(const CLinkTarget& target) const
{
    const CCorvaneValueList& values = GetOwnValues();
    for (std::size_t i = 0; i < values.GetCount(); ++i)
    {
        if (target.Names(values.Get(i)))
            return true;
    }
    return false;
}

bool CCorvaneTypeRecordLink::IsShown() const
{
    const CCorvaneAttrib* attrib = this;
    for (const CCorvaneAttrib* parent = GetParentAttrib(); parent != nullptr;
         parent = parent->GetParentAttrib())
    {
        if (!parent->IsMemberShown(*attrib))
            return false;
        attrib = parent;
    }
    return true;
}

const CCorvaneValueList* CCorvaneTypeRecordLink::FindShownValues() const
{
    if (!IsShown())
        return nullptr;
    if (!IsInheriting())
        return &GetOwnValues();
    const CCorvaneAttrib* source = FindInParentRecord();
    return source ? &source->GetValueList() : nullptr;
}

bool CCorvaneTypeRecordLink::IsRecordInTree() const
{
    const CCorvaneRecord* record = GetOwnerRecord();
    return record && record->IsInTree();
}

int CCorvaneTypeRecordLink::Refuse(const CLinkTarget& target, std::u16string_view operation) const
{
    const CCorvaneValueList* values = FindShownValues();
    for (std::size_t i = 0; values && i < values->GetCount(); ++i)
    {
        if (!target.Names(values->Get(i)) || !IsRecordInTree())
            continue;
        CCorvaneMgr& manager = *GetManager();
        std::u16string path;
        manager.GetRecordDisplayPath(GetOwnerRecord(), path);
        manager.GetContext().m_Questions.Tell(
            u"RecordLink Dependency",
            FormatText(u"The record '%s' contains a RecordLink attribute '%s' that has a value linked to the "
                       u"record you are trying to %s.",
                       path, GetName(), operation));
        return 1;
    }
    return 0;
}

void CCorvaneTypeRecordLink::Repair(const CLinkTarget& target)
{
    if (GetOwnerRecord() == nullptr)
        return;
    // A written value ends inheritance, so that the list may be another one after each step.
    for (std::size_t i = 0;; ++i)
    {
        const CCorvaneValueList* values = FindShownValues();
        if (values == nullptr || i >= values->GetCount())
            return;
        const std::u16string_view text = target.GetReplacement(values->Get(i));
        // A refused check-out has told the user; the value stays and is reported by the validation.
        if (text.data())
            static_cast<void>(SetValue(i, text));
    }
}

bool CCorvaneTypeRecordLink::IsLost(std::u16string_view value) const
{
    return !IsNoRecord(value) && GetManager()->FindRecord(value, nullptr) == nullptr &&
           !m_pList->IsAccepted(*this, value);
}

void CCorvaneTypeRecordLink::AskForLostValues()
{
    for (std::size_t i = 0;; ++i)
    {
        const CCorvaneValueList* values = FindShownValues();
        if (values == nullptr || i >= values->GetCount())
            return;
        // The values are looked at first: finding the record in a long category is the dearer question.
        if (!IsLost(values->Get(i)))
            continue;
        if (!IsRecordInTree())
            return;
        const std::u16string value(values->Get(i));
        std::u16string path;
        GetManager()->GetRecordDisplayPath(GetOwnerRecord(), path);
        const EAnswer answer = GetManager()->GetContext().m_Questions.Ask(MakeQuestion(
            u"Invalid RecordLink",
            FormatText(u"The following RecordLink value is no longer valid.  Would you like to change the "
                       u"value to '<none>'?\n\nThis Record:\t\t%s\nThis Attribute:\t\t%s\n\nInvalid "
                       u"RecordLink Value:\t%s",
                       path, GetName(), value),
            EButtons::YesNo, EIcon::Question));
        if (answer == EAnswer::Yes)
            static_cast<void>(SetValue(i, kNoRecord));
        else if (answer == EAnswer::No)
            m_pList->Accept(*this, value);
    }
}
