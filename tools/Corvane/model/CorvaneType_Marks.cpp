// What a user's commands change on an attribute besides its values.
#include "CorvaneType.h"

#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "RunState.h"
#include "SourceGate.h"
#include "host/Questions.h"
#include "host/Services.h"

namespace
{
std::u16string GetUserName(const CCorvaneMgr* manager)
{
    if (manager == nullptr)
        return {};
    std::u16string name;
    if (manager->GetGate().IsConnected())
        name = manager->GetGate().GetUserName();
    // A lock without a name would not survive its file.
    return name.empty() ? manager->GetContext().m_Services.GetUserName() : name;
}
} // namespace

bool CCorvaneType::EditMark(bool stands, const std::function<void()>& change,
                            const std::function<bool()>& confirm)
{
    if (stands)
        return true;
    if (!PrepareForEdit() || (confirm && !confirm()))
        return false;
    if (CCorvaneRecord* record = GetOwnerRecord())
        record->SetModified(true);
    change();
    NotifyViews(nullptr, kViewValueChanged);
    return true;
}

bool CCorvaneType::EditComment(std::u16string_view text)
{
    if (GetComment() == text)
        return true;
    if (!SetComment(text))
        return false;
    NotifyViews(nullptr, kViewValueChanged);
    return true;
}

bool CCorvaneType::EditLock(bool lock, bool confirmed)
{
    if (lock)
        return EditMark(IsLocked(), [this] { SetLockUser(GetUserName(GetManager())); });
    return EditMark(
        !IsLocked(), [this] { SetLockUser({}); }, [&] { return confirmed || ConfirmUnlock(); });
}

bool CCorvaneType::ConfirmUnlock() const
{
    const CCorvaneMgr* manager = GetManager();
    if (manager == nullptr || manager->GetContext().m_Run.m_bSilent)
        return true;
    std::u16string text = u"This attribute has been locked by the following user.\n\nAttribute: \t";
    text.append(GetName()).append(u"\nLock User:\t").append(GetLockUser());
    text.append(u"\n\nAre you sure you want to unlock this attribute?");
    return manager->GetContext().m_Questions.Ask(
               MakeQuestion(u"Confirm Unlock", text, EButtons::YesNo, EIcon::Question)) == EAnswer::Yes;
}

bool CCorvaneType::CanEditInherit() const
{
    const CCorvaneRecord* record = GetOwnerRecord();
    return !IsUnderLock() && record != nullptr && record->GetParent() != nullptr;
}

bool CCorvaneType::EditInherit(bool inherit)
{
    const CCorvaneRecord* record = GetOwnerRecord();
    if (record == nullptr || record->GetParent() == nullptr)
        return false;
    return EditMark(GetInherit() == inherit, [&] { SetInherit(inherit, true); });
}

bool CCorvaneType::EditOverride(bool on)
{
    return EditMark(GetOverride() == on, [&] { SetOverride(on); });
}

bool CCorvaneType::EditTodo(bool on)
{
    return EditMark(IsTodo() == on, [&] { SetTodo(on); });
}

bool CCorvaneType::EditPlaceHolder(bool on)
{
    return EditMark(IsPlaceHolder() == on, [&] { SetPlaceHolder(on); });
}
