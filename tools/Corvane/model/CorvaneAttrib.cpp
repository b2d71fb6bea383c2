#include "CorvaneAttrib.h"

#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "SourceGate.h"
#include "Unicode.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <algorithm>

CCorvaneAttrib::CCorvaneAttrib() = default;
CCorvaneAttrib::~CCorvaneAttrib() = default;

bool CCorvaneAttrib::PrepareForEdit()
{
    CCorvaneRecord* record = GetOwnerRecord();
    if (record == nullptr || record->GetFile().empty())
        return true;
    CSourceGate& gate = record->GetManager().GetGate();
    if (!gate.IsConnected())
        return true;
    if (!gate.IsMine(record->GetFile()))
        return !gate.IsControlled(record->GetFile()) || gate.CheckOutForEdit(*record);
    if (gate.GetCheckOutState(record->GetFile()) != ECheckOutState::ForDelete)
        return true;

    std::u16string path;
    record->GetManager().GetRecordDisplayPath(record, path);
    const std::u16string text =
        u"The following record has been checked out for delete.  Any modifications made to "
        u"this record will not be saved.\n\n" +
        path + u"\n\nWould you like to check this record out for edit instead?";
    const EAnswer answer = record->GetManager().GetContext().m_Questions.Ask(
        MakeQuestion(u"Open For Edit", text, EButtons::YesNoCancel, EIcon::Question));
    if (answer == EAnswer::Cancel)
        return false;
    return answer != EAnswer::Yes || gate.CheckOutForEdit(*record);
}

bool CCorvaneAttrib::Init(std::u16string_view, CCorvaneSchemaAttribData&)
{
    CRef<SIdentity> identity(new SIdentity);
    if (m_pIdentity)
    {
        identity->m_sName = m_pIdentity->m_sName;
        identity->m_sNarrowName = m_pIdentity->m_sNarrowName;
    }
    identity->m_Guid = CGuid::Create();
    m_pIdentity = identity;
    return true;
}

void CCorvaneAttrib::GetQualifiedName(std::u16string& out, std::u16string_view prefix) const
{
    out.assign(prefix);
    if (!prefix.empty())
        out += u'.';
    out += GetName();
}

void CCorvaneAttrib::Clear()
{
    ClearMarks();
    m_Values.Clear();
    OnOwnValuesChanged();
}

// Everything but the values and the modified mark.
void CCorvaneAttrib::ClearMarks()
{
    if (m_pExtra)
    {
        m_pExtra->m_sComment.clear();
        m_pExtra->m_sLockUser.clear();
    }
    m_pParentAttrib = nullptr;
    m_bInherit = m_bLocked = m_bOverride = m_bPlaceHolder = m_bTodo = false;
    m_pParentRecord.Reset();
}

std::u16string_view CCorvaneAttrib::GetDefaultText() const
{
    const CCorvaneAttrib* source = GetDefault();
    return source && source->m_Values.GetCount() > 0 ? source->m_Values.Get(0) : std::u16string_view(u"");
}

const std::u16string& CCorvaneAttrib::GetName() const
{
    static const std::u16string nameless;
    return m_pIdentity ? m_pIdentity->m_sName : nameless;
}

const std::string& CCorvaneAttrib::GetNarrowName() const
{
    static const std::string nameless;
    return m_pIdentity ? m_pIdentity->m_sNarrowName : nameless;
}

CGuid CCorvaneAttrib::GetGuid() const
{
    return m_pIdentity ? m_pIdentity->m_Guid : CGuid();
}

void CCorvaneAttrib::SetName(std::u16string_view name)
{
    // Copies of this attribute share the old identity and keep their name.
    CRef<SIdentity> identity(new SIdentity);
    identity->m_Guid = GetGuid();
    identity->m_sName = name;
    identity->m_sNarrowName = ToNarrow(name);
    m_pIdentity = identity;
}

CCorvaneAttrib::SExtra& CCorvaneAttrib::GetExtra()
{
    if (!m_pExtra)
        m_pExtra = std::make_unique<SExtra>();
    return *m_pExtra;
}

void CCorvaneAttrib::DropEmptyExtra()
{
    if (m_pExtra && m_pExtra->m_sComment.empty() && m_pExtra->m_sLockUser.empty() &&
        m_pExtra->m_Views.empty())
        m_pExtra.reset();
}

std::u16string_view CCorvaneAttrib::GetComment() const
{
    return m_pExtra ? std::u16string_view(m_pExtra->m_sComment) : std::u16string_view(u"");
}

bool CCorvaneAttrib::SetComment(std::u16string_view text)
{
    if (!PrepareForEdit())
        return false;
    if (CCorvaneRecord* record = GetOwnerRecord())
        record->SetModified(true);
    GetExtra().m_sComment = text;
    return true;
}

std::u16string_view CCorvaneAttrib::GetLockUser() const
{
    return m_pExtra ? std::u16string_view(m_pExtra->m_sLockUser) : std::u16string_view(u"");
}

void CCorvaneAttrib::SetLockUser(std::u16string_view name)
{
    m_bLocked = name.data() != nullptr;
    if (m_bLocked || m_pExtra)
        GetExtra().m_sLockUser = name;
}

void CCorvaneAttrib::GetHelp(std::size_t, std::u16string& out) const
{
    if (m_pAttribData)
        out = m_pAttribData->GetHelp();
}

void CCorvaneAttrib::SetInherit(bool value, bool)
{
    if (!value && m_pParentAttrib && m_pParentAttrib->GetInherit())
        m_pParentAttrib->OnMemberInheritEnd(*this);
    m_bInherit = value;
}

std::ptrdiff_t CCorvaneAttrib::GetIndexInRecord() const
{
    if (!m_pParentRecord || m_pParentAttrib)
        return -1;
    const auto list = m_pParentRecord->GetAttributeList();
    if (m_nIndex < list.size() && list[m_nIndex] == this)
        return m_nIndex;
    for (std::size_t i = 0; i < list.size(); ++i)
    {
        if (list[i] == this)
            return static_cast<std::ptrdiff_t>(i);
    }
    return -1;
}

bool CCorvaneAttrib::GetBuildRange(SBuildRange& range) const
{
    if (const CCorvaneAttrib* parent = GetParentAttrib())
        return parent->GetChildBuildRange(*this, range);
    return CCorvaneAttrib::GetChildBuildRange(*this, range);
}

bool CCorvaneAttrib::GetChildBuildRange(const CCorvaneAttrib& child, SBuildRange& range) const
{
    range = {child.m_nBuild, kBuildOpen};
    const std::ptrdiff_t index = child.GetIndexInRecord();
    if (index < 0)
        return false;
    if (index > 0)
    {
        // Entries of one name stand newest first, so that the one before ends this one's range.
        const CCorvaneAttrib& before =
            *child.m_pParentRecord->GetAttributeList()[static_cast<std::size_t>(index - 1)];
        if (EqualNames(before.GetName(), child.GetName()))
            range.m_nLast = static_cast<std::int64_t>(before.m_nBuild) - 1;
        return true;
    }
    if (child.m_pAttribData && child.m_pAttribData->TestFlag(ATTRIB_FLAG_DELETED))
        range.m_nLast = range.m_nFirst;
    return true;
}

bool CCorvaneAttrib::IsChildDeferred(const CCorvaneAttrib&) const
{
    return false;
}

std::ptrdiff_t CCorvaneAttrib::FindChildAttribute(const CCorvaneAttrib&, std::ptrdiff_t& valueIndex) const
{
    valueIndex = -1;
    return -1;
}

CCorvaneAttrib* CCorvaneAttrib::GetChildAttribute(std::size_t, const CGuid&) const
{
    return nullptr;
}

CCorvaneAttrib* CCorvaneAttrib::GetChildAttributeAt(std::size_t, std::size_t) const
{
    return nullptr;
}

bool CCorvaneAttrib::IsMemberShown(const CCorvaneAttrib&) const
{
    return false;
}

CCorvaneAttrib* CCorvaneAttrib::FindChildIn(const CCorvaneAttrib&, const CCorvaneAttrib&) const
{
    return nullptr;
}

CCorvaneAttrib* CCorvaneAttrib::FindCounterpart(const CCorvaneRecord& other) const
{
    if (m_pParentAttrib)
    {
        const CCorvaneAttrib* enclosing = m_pParentAttrib->FindCounterpart(other);
        return enclosing ? m_pParentAttrib->FindChildIn(*this, *enclosing) : nullptr;
    }
    const auto list = other.GetAttributeList();
    if (m_nIndex < list.size() && list[m_nIndex]->IsSameAttribute(*this))
        return list[m_nIndex].Get();
    const auto same = std::find_if(list.begin(), list.end(),
                                   [this](const auto& attrib) { return attrib->IsSameAttribute(*this); });
    return same != list.end() ? same->Get() : nullptr;
}

void CCorvaneAttrib::OnMemberWrite(CCorvaneAttrib&) {}

void CCorvaneAttrib::OnMemberInheritEnd(CCorvaneAttrib&) {}

void CCorvaneAttrib::SetParentRecord(CCorvaneRecord* record)
{
    m_pParentRecord = CRef<CCorvaneRecord>(record);
}

bool CCorvaneAttrib::SaveToDependency(IDependencySink&, std::uint32_t)
{
    return true;
}

bool CCorvaneAttrib::Validate(IValidationSink*)
{
    return true;
}

void CCorvaneAttrib::Assign(const CCorvaneAttrib& source)
{
    m_pParentRecord = source.m_pParentRecord;
    if (source.m_pExtra)
    {
        SExtra& extra = GetExtra();
        extra.m_sComment = source.m_pExtra->m_sComment;
        extra.m_sLockUser = source.m_pExtra->m_sLockUser;
    }
    m_pParentAttrib = source.m_pParentAttrib;
    m_pIdentity = source.m_pIdentity;
    m_nBuild = source.m_nBuild;
    m_Values = source.m_Values;
    m_bInherit = source.m_bInherit;
    m_bLocked = source.m_bLocked;
    m_bPlaceHolder = source.m_bPlaceHolder;
    m_bTodo = source.m_bTodo;
    m_bOverride = source.m_bOverride;
    m_pAttribData = source.m_pAttribData;
    SetDefaultRecord(const_cast<CCorvaneAttrib*>(source.GetDefault()));
    OnOwnValuesChanged();
}

bool CCorvaneAttrib::IsSameAttribute(const CCorvaneAttrib& other) const
{
    return m_nBuild == other.m_nBuild && (m_pIdentity == other.m_pIdentity || GetGuid() == other.GetGuid());
}

bool CCorvaneAttrib::DeferDeprecateAttribute(CCorvaneAttrib&, std::uint32_t)
{
    return false;
}

bool CCorvaneAttrib::DeferDeleteAttribute(CCorvaneAttrib&, std::uint32_t)
{
    return false;
}

bool CCorvaneAttrib::EnumerateChildren(const std::function<bool(CCorvaneAttrib&)>&)
{
    return true;
}

void CCorvaneAttrib::OnHierarchyEvent(EHierarchyEvent, CCorvaneRecord&, CCorvaneAttrib*) {}

void CCorvaneAttrib::SetDefaultRecord(CCorvaneAttrib* pDefault)
{
    ZRASSERT(pDefault);
    // An attribute that is its own default holds no reference on itself, or it would never die.
    m_bOwnDefault = pDefault == this;
    m_pDefault = m_bOwnDefault ? nullptr : CRef<CCorvaneAttrib>(pDefault);
}

bool CCorvaneAttrib::SetModified(bool modified)
{
    if (modified == m_bModified)
        return true;
    if (!PrepareForEdit())
        return false;
    m_bModified = modified;
    return true;
}

void CCorvaneAttrib::SetAttribData(CCorvaneSchemaAttribData* data)
{
    m_pAttribData = CRef<CCorvaneSchemaAttribData>(data);
}

CCorvaneRecord* CCorvaneAttrib::GetOwnerRecord() const
{
    const CCorvaneAttrib* current = this;
    while (!current->m_pParentRecord)
    {
        current = current->GetParentAttrib();
        if (current == nullptr)
            return nullptr;
    }
    return current->m_pParentRecord.Get();
}

CCorvaneMgr* CCorvaneAttrib::GetManager() const
{
    if (const CCorvaneRecord* owner = GetOwnerRecord())
        return &owner->GetManager();
    return m_pAttribData ? &m_pAttribData->GetManager() : nullptr;
}
