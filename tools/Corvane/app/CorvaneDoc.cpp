#include "CorvaneDoc.h"

#include "Context.h"
#include "CorvaneMgr.h"
#include "FileSystem.h"
#include "FormatText.h"
#include "RunState.h"
#include "host/Questions.h"

CCorvaneDoc::CCorvaneDoc(CCorvaneMgr& manager)
    : m_Manager(manager),
      m_EventHandle(manager.AddObserver([this](const CCorvaneEvent& event) { return OnEvent(event); }))
{
}

CCorvaneDoc::~CCorvaneDoc()
{
    DetachRecord();
}

bool CCorvaneDoc::OnOpenDocument(std::u16string_view path)
{
    if (!IsReadable(path))
        return false;
    {
        const CStateScope opening(m_Manager.GetContext().m_Run, APP_RELOADING | APP_SETTINGS);
        if (!m_Manager.CloseDatabase())
            return false;
        m_bLoaded = m_Manager.OpenDatabase(path);
    }
    NotifyStoredBuild();
    m_Manager.SetDirty(false);
    return true;
}

// The root file must be readable before the open database is given up for it.
bool CCorvaneDoc::IsReadable(std::u16string_view path)
{
    CFileBuffer content;
    const CFileError error = m_Manager.GetContext().m_Files.ReadFile(path, content, nullptr);
    if (error.IsOk())
        return true;
    const std::u16string text = FormatText(u"The file '%s' could not be opened: %s.", path, error.GetText());
    m_Manager.GetContext().m_Questions.Tell(u"Open Failed", text, EIcon::Stop);
    return false;
}

void CCorvaneDoc::NotifyStoredBuild()
{
    const IUnicodeFileParse& settings = m_Manager.GetPerUserFile();
    if (!settings.IsKey(u"Database", u"Active.Build"))
        return;
    const auto stored = static_cast<std::uint32_t>(settings.ReadInteger(u"Database", u"Active.Build"));
    if (stored != m_Manager.GetActiveBuild())
        m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::ActiveBuildChanged));
}

void CCorvaneDoc::OnCloseDocument()
{
    DetachRecord();
}

void CCorvaneDoc::SetRecord(CCorvaneRecord* record)
{
    if (m_pRecord == record)
        return;
    const CRef<CCorvaneRecord> next(record); // The old record may hold the last reference to the new one.
    DetachRecord();
    if (!next)
        return;
    m_pRecord = next;
    next->SetDocument(this);
    UpdateViews(ERecordUpdate::Attached);
}

void CCorvaneDoc::DetachRecord()
{
    if (!m_pRecord)
        return;
    UpdateViews(ERecordUpdate::Detached);
    const CRef<CCorvaneRecord> old = std::exchange(m_pRecord, nullptr);
    if (old && old->GetDocument() == this)
        old->SetDocument(nullptr);
}

void CCorvaneDoc::OnRecordGone(CCorvaneRecord& record)
{
    if (m_pRecord == &record)
        DetachRecord();
}

CObserverHandle CCorvaneDoc::AddView(CObserverList<ERecordUpdate>::FCallback view)
{
    return m_Views.Add(std::move(view));
}

int CCorvaneDoc::OnEvent(const CCorvaneEvent& event)
{
    CCorvaneRecord* record = event.GetRecord();
    if (event.GetCode() == ECorvaneEvent::RecordDeleted && record != nullptr && m_pRecord == record)
        DetachRecord();
    if (event.GetCode() == ECorvaneEvent::AttributesChanged && (record == nullptr || m_pRecord == record))
        UpdateViews(ERecordUpdate::AttributesChanged);
    return 0;
}
