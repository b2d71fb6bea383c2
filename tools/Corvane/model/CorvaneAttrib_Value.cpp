// The values of an attribute: how they resolve through the parent record and the default, and how they
// change.
#include "CorvaneAttrib.h"

#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "CorvaneSchemaAttribData.h"
#include "zrassert.h"

void CCorvaneAttrib::ReplaceValues(const CCorvaneValueList& values)
{
    m_Values = values;
    OnOwnValuesChanged();
}

void CCorvaneAttrib::CopyValuesFrom(const CCorvaneAttrib& older)
{
    // A struct has no texts that another type could take.
    if (older.m_pAttribData && older.m_pAttribData->GetMemberStore() == nullptr)
        ReplaceValues(CCorvaneValueList(older.GetValueList()));
}

void CCorvaneAttrib::KeepShownValues()
{
    if (IsInheriting())
        ReplaceValues(CCorvaneValueList(GetValueList()));
}

void CCorvaneAttrib::BeginWrite()
{
    if (!m_pParentAttrib)
        return;
    m_pParentAttrib->OnMemberWrite(*this);
    KeepShownValues();
    m_bInherit = false;
}

bool CCorvaneAttrib::IsVariableSize() const
{
    return m_pAttribData && m_pAttribData->GetValues() == kVariableValues;
}

bool CCorvaneAttrib::IsInheriting() const
{
    return GetInherit() && m_pParentRecord && m_pParentRecord->GetParent() != nullptr;
}

CCorvaneAttrib* CCorvaneAttrib::FindInParentRecord() const
{
    if (m_pParentAttrib)
        return FindCounterpart(*m_pParentRecord->GetParent());
    CCorvaneAttrib* symmetric = nullptr;
    if (m_pParentRecord->GetManager().FindSymmetricAttribute(m_pParentRecord.Get(), this,
                                                             m_pParentRecord->GetParent(), symmetric))
        return symmetric;
    ZRASSERT_FORCED("An inheriting attribute has no counterpart in the parent record");
    return nullptr;
}

const CCorvaneValueList& CCorvaneAttrib::GetValueList() const
{
    const CCorvaneAttrib* current = this;
    if (!current->IsInheriting())
        return m_Values;
    if (m_pParentAttrib)
    {
        const CCorvaneAttrib* above = FindInParentRecord();
        while (above != nullptr)
        {
            current = above;
            above = current->IsInheriting() ? current->FindInParentRecord() : nullptr;
        }
        return current->m_Values;
    }
    const std::ptrdiff_t found = GetIndexInRecord();
    if (found < 0)
        return m_Values;
    const auto index = static_cast<std::size_t>(found);
    while (current->IsInheriting())
    {
        const auto list = current->m_pParentRecord->GetParent()->GetAttributeList();
        if (index >= list.size())
            break;
        current = list[index].Get();
    }
    return current->m_Values;
}

std::size_t CCorvaneAttrib::GetValueCount() const
{
    return GetValueList().GetCount();
}

std::u16string_view CCorvaneAttrib::GetValue(std::size_t index) const
{
    const CCorvaneAttrib* source = this;
    if (IsInheriting())
    {
        source = FindInParentRecord();
        if (source == nullptr && m_pParentAttrib == nullptr)
            return {};
        if (source == nullptr)
            source = this;
    }
    const CCorvaneValueList& values = source == this ? m_Values : source->GetValueList();
    if (index < values.GetCount())
        return values.Get(index);
    const CCorvaneAttrib* fallback = source->GetDefault();
    if (fallback == nullptr)
        return {};
    if (fallback == this)
        ZRASSERT_SITE("m_pDefault != this", "");
    return fallback->m_Values.GetCount() > 0 ? fallback->m_Values.Get(0) : std::u16string_view();
}

bool CCorvaneAttrib::IsValueSet(std::size_t index) const
{
    const CCorvaneAttrib* current = this;
    while (current->IsInheriting())
    {
        const CCorvaneAttrib* above = current->FindInParentRecord();
        if (above == nullptr && current->m_pParentAttrib == nullptr)
            return false;
        if (above == nullptr)
            break;
        current = above;
    }
    return index < current->m_Values.GetCount() && !current->m_Values.Get(index).empty();
}

bool CCorvaneAttrib::IsValueValid(std::u16string_view) const
{
    return true;
}

bool CCorvaneAttrib::AddValue(std::u16string_view text)
{
    return InsertValue(GetWritableValues().GetCount(), text);
}

bool CCorvaneAttrib::InsertValue(std::size_t index, std::u16string_view text)
{
    if (!IsVariableSize() || index > GetWritableValues().GetCount())
        return false;
    BeginWrite();
    if (CCorvaneMgr* manager = GetManager())
        manager->MarkAttributeAsModified(this);
    m_Values.Insert(index, text);
    OnOwnValuesChanged();
    if (CCorvaneRecord* owner = GetOwnerRecord())
        owner->NotifyReferencees(EHierarchyEvent::ValueAdded, *this);
    return true;
}

bool CCorvaneAttrib::SetValue(std::size_t index, std::u16string_view text)
{
    return ApplySetValue(index, text);
}

bool CCorvaneAttrib::ApplySetValue(std::size_t index, std::u16string_view text)
{
    if (index >= GetWritableValues().GetCount())
        return false;
    BeginWrite();
    if (m_pParentRecord && m_pParentRecord->GetParent())
        SetInherit(false, false); // A written value ends inheritance.
    m_Values.Set(index, text);
    OnOwnValuesChanged();
    if (m_pParentRecord)
        m_pParentRecord->OnAttributeChanged(*this, index);
    if (CCorvaneMgr* manager = GetManager())
        manager->MarkAttributeAsModified(this);
    if (CCorvaneRecord* owner = GetOwnerRecord())
        owner->NotifyReferencees(EHierarchyEvent::ValueSet, *this);
    return true;
}

bool CCorvaneAttrib::RemoveValue(std::size_t index)
{
    if (!IsVariableSize() || index >= GetWritableValues().GetCount())
        return false;
    BeginWrite();
    if (CCorvaneMgr* manager = GetManager())
        manager->MarkAttributeAsModified(this);
    m_Values.Remove(index);
    OnOwnValuesChanged();
    return true;
}

bool CCorvaneAttrib::MoveValueUp(std::size_t index)
{
    if (index == 0 || index >= GetWritableValues().GetCount())
        return false;
    const std::u16string text(GetWritableValues().Get(index));
    return RemoveValue(index) && InsertValue(index - 1, text);
}

bool CCorvaneAttrib::MoveValueDown(std::size_t index)
{
    if (index + 1 >= GetWritableValues().GetCount())
        return false;
    const std::u16string text(GetWritableValues().Get(index));
    return RemoveValue(index) && InsertValue(index + 1, text);
}
