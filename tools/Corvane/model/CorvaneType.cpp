#include "CorvaneType.h"

#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "CorvaneSchemaAttribData.h"
#include "DependencySink.h"
#include "UndoRecorder.h"
#include "Unicode.h"
#include "ValueRestorePoint.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <algorithm>

namespace
{
// More values than any fixed list has; a schema that asks for more is damaged, and memory is not its to take.
constexpr std::int32_t kMaxFixedValues = 65535;
} // namespace

bool CCorvaneType::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    if (data.GetValues() > kMaxFixedValues)
        return false;
    SetBuild(data.GetBuild());
    SetAttribData(&data);
    CCorvaneValueList values;
    for (std::int32_t i = 0; i < std::max(data.GetValues(), 1); ++i)
        values.Add(defaultText);
    ReplaceValues(values);
    return CCorvaneAttrib::Init(defaultText, data);
}

void CCorvaneType::Clear()
{
    CCorvaneAttrib::Clear();
    if (GetDefault() != this)
    {
        FillDefaultValues();
        OnOwnValuesChanged();
    }
}

bool CCorvaneType::AddValue(std::u16string_view text)
{
    // A refused change leaves no mark and no restore point.
    if (!IsVariableSize() || !PrepareForEdit())
        return false;
    BeginWrite();
    RecordValueChange(*this, GetOwnValues().GetCount(), true);
    if (CCorvaneRecord* record = GetOwnerRecord())
        record->SetModified(true);
    return CCorvaneAttrib::AddValue(text);
}

bool CCorvaneType::SetValue(std::size_t index, std::u16string_view text)
{
    if (index >= GetWritableValues().GetCount() || !PrepareForEdit())
        return false;
    RecordValueChange(*this, index, false);
    if (CCorvaneRecord* record = GetOwnerRecord())
        record->SetModified(true);
    return ApplySetValue(index, text);
}

bool CCorvaneType::RemoveValue(std::size_t index)
{
    if (!IsVariableSize() || index >= GetWritableValues().GetCount() || !PrepareForEdit())
        return false;
    if (CCorvaneRecord* record = GetOwnerRecord())
        record->SetModified(true);
    return CCorvaneAttrib::RemoveValue(index);
}

void CCorvaneType::AddView(CRef<ICorvaneTypeView> view)
{
    GetExtra().m_Views.push_back(std::move(view));
}

void CCorvaneType::DestroyViewsOfOwner(const void* owner)
{
    if (!FindExtra())
        return;
    std::erase_if(GetExtra().m_Views, [owner](const auto& view) { return view->GetOwner() == owner; });
    DropEmptyExtra();
}

void CCorvaneType::DestroyView(const ICorvaneTypeView& view)
{
    if (!FindExtra())
        return;
    std::erase_if(GetExtra().m_Views, [&view](const auto& held) { return held == &view; });
    DropEmptyExtra();
}

ICorvaneTypeView* CCorvaneType::GetViewOfOwner(const void* owner) const
{
    if (!FindExtra())
        return nullptr;
    for (const CRef<ICorvaneTypeView>& view : FindExtra()->m_Views)
    {
        if (view->GetOwner() == owner)
            return view.Get();
    }
    return nullptr;
}

void CCorvaneType::NotifyViews(const ICorvaneTypeView* sender, int message)
{
    if (!FindExtra())
        return;
    const auto views = FindExtra()->m_Views; // A view may leave during its call.
    for (const CRef<ICorvaneTypeView>& view : views)
    {
        if (view.Get() != sender)
            view->OnNotify(message, *this);
    }
}

bool CCorvaneType::IsEditable() const
{
    return !IsUnderLock() && !IsInheriting();
}

std::u16string_view CCorvaneType::GetTypedText(std::size_t index) const
{
    const std::u16string_view text = GetValue(index);
    return text.data() ? text : std::u16string_view(u"");
}

void CCorvaneType::TellInvalidDefault(const CCorvaneSchemaAttribData& data, std::u16string_view text) const
{
    data.GetManager().GetContext().m_Questions.Tell(u"Invalid Schema Default Value", text);
}

bool CCorvaneType::AddDependency(IDependencySink& sink, std::u16string_view resource,
                                 std::u16string_view kind) const
{
    const CCorvaneRecord* record = GetOwnerRecord();
    ZRASSERT_MSG(record, "Attribute has no parent!");
    if (record == nullptr)
        return false;
    std::u16string path;
    record->GetManager().GetRecordPath(record, path);
    sink.AddDependency(path, resource, kind);
    return true;
}

CreatorHandle CCorvaneType::CreateInDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record,
                                             EDatabaseValueType type, EDatabaseValueKind kind,
                                             std::u16string_view prefix) const
{
    const auto count = static_cast<std::int32_t>(GetValueCount());
    if (prefix.empty())
        return creator.CreateAttribute(record, GetNarrowName().c_str(), type, kind, count);
    const std::string name = ToNarrow(prefix) + '.' + GetNarrowName();
    return creator.CreateAttribute(record, name.c_str(), type, kind, count);
}

CreatorHandle CCorvaneType::CreateInOverride(IDatabaseCreatorUnpackedMgr* pDatabaseMgr,
                                             CreatorHandle hDatabase, EDatabaseValueType type,
                                             const char* typeWord, const char* accessor,
                                             std::u16string_view prefix, std::u16string_view location) const
{
    ZRASSERT(pDatabaseMgr);
    ZRASSERT(hDatabase);
    if (pDatabaseMgr == nullptr || hDatabase == 0 || !GetOverride())
        return 0;
    const CCorvaneSchemaAttribData* data = GetAttribData();
    if (data == nullptr)
    {
        ZRASSERT_SITE(accessor, "");
        return 0;
    }
    std::u16string tail;
    GetQualifiedName(tail, location);
    const std::string help = ToNarrow(data->GetHelp());
    const std::string fullName = ToNarrow(prefix) + ToNarrow(tail);
    return pDatabaseMgr->CreateAttribute(hDatabase, help.c_str(), type, fullName.c_str(),
                                         ToNarrow(data->GetData()).c_str(), typeWord, 1, data->GetValues());
}
