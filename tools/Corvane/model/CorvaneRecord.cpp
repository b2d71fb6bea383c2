#include "CorvaneRecord.h"

#include "CorvaneMgr.h"
#include "CorvaneSchema.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "RecordDocument.h"
#include "RunState.h"
#include "SourceGate.h"
#include "Unicode.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <algorithm>
#include <utility>

CCorvaneRecord::CCorvaneRecord(CCorvaneMgr& manager) : m_Manager(manager) {}
CCorvaneRecord::~CCorvaneRecord() = default;

CreatorHandle CCorvaneRecord::AddToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle category)
{
    return creator.CreateRecord(category, ToNarrow(m_sName).c_str());
}

void CCorvaneRecord::OnAttributeChanged(CCorvaneAttrib& attrib, std::size_t index)
{
    if (m_pChangeObservers)
        m_pChangeObservers->Notify(attrib, index);
}

CObserverList<CCorvaneAttrib&, std::size_t>& CCorvaneRecord::GetChangeObservers()
{
    if (!m_pChangeObservers)
        m_pChangeObservers = std::make_unique<CObserverList<CCorvaneAttrib&, std::size_t>>();
    return *m_pChangeObservers;
}

void CCorvaneRecord::NotifyReferencees(EHierarchyEvent code, CCorvaneAttrib& attrib)
{
    for (const CRef<CCorvaneRecord>& referencee : std::vector(m_Referencees))
        referencee->OnReferencerNotify(code, *this, attrib);
}

void CCorvaneRecord::OnReferencerNotify(EHierarchyEvent code, CCorvaneRecord& record, CCorvaneAttrib& attrib)
{
    CCorvaneAttrib* symmetric = nullptr;
    if (m_Manager.FindSymmetricAttribute(&record, &attrib, this, symmetric))
        symmetric->OnHierarchyEvent(code, record, &attrib);
}

void CCorvaneRecord::Clear()
{
    const CRef<CCorvaneRecord> keepAlive(this);
    if (IRecordDocument* document = std::exchange(m_pDocument, nullptr))
        document->OnRecordGone(*this);
    for (const CRef<CCorvaneAttrib>& attrib : std::exchange(m_Attribs, {}))
    {
        // A derived schema's template shares attributes that another record owns.
        if (attrib->GetParentRecord() == this)
            attrib->SetParentRecord(nullptr);
    }
    LeaveParent();
    OrphanReferencees();
    m_Stamp = {};
    m_sComment.clear();
    const std::u16string name = std::exchange(m_sName, {});
    if (m_pCategory)
        m_pCategory->OnRecordNamed(*this, name);
    m_pCategory.Reset();
}

void CCorvaneRecord::DropLinks()
{
    m_pParent.Reset();
    m_Referencees.clear();
}

void CCorvaneRecord::LeaveParent()
{
    if (const CRef<CCorvaneRecord> parent = std::exchange(m_pParent, nullptr))
        std::erase_if(parent->m_Referencees, [this](const auto& child) { return child == this; });
}

void CCorvaneRecord::OrphanReferencees()
{
    for (const CRef<CCorvaneRecord>& child : std::exchange(m_Referencees, {}))
    {
        child->m_pParent.Reset();
        for (const CRef<CCorvaneAttrib>& attrib : child->m_Attribs)
            attrib->SetInherit(false, false);
    }
}

bool CCorvaneRecord::DisconnectReferencee(CCorvaneRecord& child)
{
    const CRef<CCorvaneRecord> keepAlive(&child);
    if (std::erase_if(m_Referencees, [&child](const auto& held) { return held == &child; }) == 0)
        return false;
    child.m_pParent.Reset();
    return true;
}

std::vector<CRef<CCorvaneRecord>> CCorvaneRecord::DisconnectReferencees()
{
    std::vector<CRef<CCorvaneRecord>> children = std::exchange(m_Referencees, {});
    for (auto child = children.rbegin(); child != children.rend(); ++child)
        (*child)->m_pParent.Reset();
    return children;
}

void CCorvaneRecord::MarkReferenceesModified()
{
    for (const CRef<CCorvaneRecord>& child : m_Referencees)
        child->SetModified(true);
}

void CCorvaneRecord::LeaveTree()
{
    if (IRecordDocument* document = std::exchange(m_pDocument, nullptr))
        document->OnRecordGone(*this);
    const CRef<CCorvaneRecord> parent = m_pParent;
    LeaveParent();
    m_pParent = parent;
}

void CCorvaneRecord::JoinParent()
{
    const CRef<CCorvaneRecord> parent = std::exchange(m_pParent, nullptr);
    if (!parent)
        return;
    if (parent->IsInTree())
    {
        parent->AddReferencee(*this);
        return;
    }
    for (const CRef<CCorvaneAttrib>& attrib : m_Attribs)
        attrib->SetInherit(false, false);
}

bool CCorvaneRecord::IsInTree() const
{
    return m_pCategory && m_pCategory->IsAttached() && m_pCategory->Contains(*this);
}

void CCorvaneRecord::AddReferencee(CCorvaneRecord& child)
{
    // The child's own link tells whether it is in the list, so that a parent of many costs no scan.
    if (child.m_pParent == this)
        return;
    child.m_pParent = CRef<CCorvaneRecord>(this);
    m_Referencees.emplace_back(&child);
}

CRef<CCorvaneRecord> CCorvaneRecord::Clone() const
{
    CRef<CCorvaneRecord> copy(new CCorvaneRecord(m_Manager));
    copy->Assign(*this);
    return copy;
}

CRef<CCorvaneRecord> CCorvaneRecord::CreateReference()
{
    CRef<CCorvaneRecord> reference = Clone();
    reference->m_pParent.Reset(); // The source's own referencer is not kept.
    AddReferencee(*reference);
    for (const CRef<CCorvaneAttrib>& attrib : reference->m_Attribs)
    {
        const CCorvaneSchemaAttribData* data = attrib->GetAttribData();
        attrib->SetInherit(data == nullptr || data->TestFlag(ATTRIB_FLAG_INHERIT), true);
    }
    return reference;
}

void CCorvaneRecord::Assign(const CCorvaneRecord& source)
{
    Clear();
    m_sName = source.m_sName;
    m_sComment = source.m_sComment;
    m_pCategory = source.m_pCategory;
    m_pParent = source.m_pParent;
    m_pDocument = source.m_pDocument;
    m_Attribs.reserve(source.m_Attribs.size());
    for (const CRef<CCorvaneAttrib>& attrib : source.m_Attribs)
        AppendAttribute(static_cast<const CCorvaneType&>(*attrib).Clone(this));
}

void CCorvaneRecord::InheritAttributes(const CCorvaneRecord& parent)
{
    m_Attribs.insert(m_Attribs.begin(), parent.m_Attribs.begin(), parent.m_Attribs.end());
    Renumber(parent.m_Attribs.size());
}

void CCorvaneRecord::AppendAttribute(CRef<CCorvaneAttrib> attrib)
{
    if (!attrib)
        return;
    attrib->m_nIndex = static_cast<std::uint32_t>(m_Attribs.size());
    m_Attribs.push_back(std::move(attrib));
}

void CCorvaneRecord::InsertAttribute(std::size_t index, CRef<CCorvaneAttrib> attrib)
{
    m_Attribs.insert(m_Attribs.begin() + static_cast<std::ptrdiff_t>(index), std::move(attrib));
    Renumber(index);
}

void CCorvaneRecord::RemoveAttribute(std::size_t index)
{
    m_Attribs.erase(m_Attribs.begin() + static_cast<std::ptrdiff_t>(index));
    Renumber(index);
}

void CCorvaneRecord::SetAttributes(std::vector<CRef<CCorvaneAttrib>> attribs)
{
    m_Attribs = std::move(attribs);
    Renumber(0);
}

void CCorvaneRecord::Renumber(std::size_t first)
{
    for (std::size_t i = first; i < m_Attribs.size(); ++i)
    {
        if (m_Attribs[i]->GetParentRecord() == this)
            m_Attribs[i]->m_nIndex = static_cast<std::uint32_t>(i);
    }
}

void CCorvaneRecord::SetModified(bool modified)
{
    SetFlag(RECORD_FLAG_MODIFIED, modified);
    if (modified)
        m_Manager.SetDirty(true);
}

bool CCorvaneRecord::PassTextGate()
{
    CSourceGate& gate = m_Manager.GetGate();
    return m_sFile.empty() || !gate.IsConnected() || gate.CheckOutForEdit(*this);
}

bool CCorvaneRecord::SetName(std::u16string_view name)
{
    if (m_sName != name && !PassTextGate())
        return false;
    SetModified(true);
    const std::u16string old = std::exchange(m_sName, std::u16string(name));
    if (m_pCategory)
        m_pCategory->OnRecordNamed(*this, old);
    return true;
}

bool CCorvaneRecord::SetComment(std::u16string_view text)
{
    if (m_sComment != text && !PassTextGate())
        return false;
    SetModified(true);
    m_sComment = text;
    return true;
}

void CCorvaneRecord::SetFile(std::u16string_view path)
{
    const std::u16string old = std::exchange(m_sFile, std::u16string(path));
    if (m_pCategory)
        m_pCategory->OnRecordFiled(*this, old);
}

bool CCorvaneRecord::SetCategory(CCorvaneCategory* category, bool silent)
{
    if (!silent && !PassTextGate())
        return false;
    SetModified(true);
    m_pCategory = CRef<CCorvaneCategory>(category);
    return true;
}

CCorvaneSchema* CCorvaneRecord::GetSchema() const
{
    return m_pCategory ? m_pCategory->GetSchema() : nullptr;
}

bool CCorvaneRecord::ConnectHierarchy()
{
    const std::u16string path = std::exchange(m_sHierarchy, {});
    if (path.empty())
    {
        if (!m_pParent)
        {
            for (const CRef<CCorvaneAttrib>& attrib : m_Attribs)
                attrib->SetInherit(false, false);
        }
        return true;
    }
    CCorvaneRecord* parent = m_Manager.FindRecord(path, nullptr);
    if (parent && !IsAbove(*parent))
    {
        LeaveOtherParent(*parent);
        parent->AddReferencee(*this);
        for (const CRef<CCorvaneAttrib>& attrib : m_Attribs)
            attrib->OnHierarchyEvent(EHierarchyEvent::Connected, *this, nullptr);
        return true;
    }
    AskStandAlone(path);
    return true;
}

bool CCorvaneRecord::IsAbove(const CCorvaneRecord& record) const
{
    if (&record == this)
        return true;
    if (m_Referencees.empty())
        return false; // Nothing hangs below this record, so that no chain can come back to it.
    for (const CCorvaneRecord* above = record.m_pParent.Get(); above != nullptr;
         above = above->m_pParent.Get())
    {
        if (above == this)
            return true;
    }
    return false;
}

void CCorvaneRecord::LeaveOtherParent(const CCorvaneRecord& next)
{
    if (m_pParent && m_pParent != &next)
        LeaveParent();
}

void CCorvaneRecord::AskStandAlone(std::u16string_view referencer)
{
    if (m_Manager.GetContext().m_Run.m_bSilent)
        return;
    std::u16string displayPath;
    m_Manager.GetRecordDisplayPath(this, displayPath);
    const std::u16string text =
        FormatText(u"The following record referencer cannot be found.  Would you like to disconnect the "
                   u"referencee from the "
                   u"referencer and use it as a stand alone record?\n\nReferencer: %s\n\nReferencee: %s",
                   referencer, displayPath);
    const CQuestion question =
        MakeQuestion(u"Missing Referencer Record", text, EButtons::YesNo, EIcon::Question);
    if (m_Manager.GetContext().m_Questions.Ask(question) != EAnswer::Yes)
        return;
    for (const CRef<CCorvaneAttrib>& attrib : m_Attribs)
        attrib->SetInherit(false, false);
}

void CCorvaneRecord::UpdateHierarchy()
{
    // A list of its own instead of recursion: a chain of parents may be as long as the database is large.
    std::vector<CCorvaneRecord*> open{this};
    while (!open.empty())
    {
        CCorvaneRecord& record = *open.back();
        open.pop_back();
        if (record.m_pParent)
        {
            for (const CRef<CCorvaneAttrib>& attrib : record.m_Attribs)
                attrib->OnHierarchyEvent(EHierarchyEvent::Refresh, record, nullptr);
        }
        for (auto child = record.m_Referencees.rbegin(); child != record.m_Referencees.rend(); ++child)
            open.push_back(child->Get());
    }
}
