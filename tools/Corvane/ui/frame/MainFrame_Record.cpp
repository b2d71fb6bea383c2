// Which document shows which record, and in which frame.
#include "MainFrame.h"

#include "Context.h"
#include "CorvaneDoc.h"
#include "CorvaneMgr.h"
#include "RecordFrame.h"
#include "UiModule.h"
#include "host/Questions.h"

#include <algorithm>

namespace
{
constexpr std::size_t kCascade = 8; // Windows until one lies where the first does.
constexpr QPoint kCascadeStep(24, 24);
} // namespace

std::vector<CRecordFrame*> CMainFrame::GetRecordFrames() const
{
    std::vector<CRecordFrame*> frames;
    for (const QPointer<CRecordFrame>& frame : m_RecordFrames)
        if (frame)
            frames.push_back(frame);
    return frames;
}

std::shared_ptr<CCorvaneDoc> CMainFrame::FindDocument(const CCorvaneRecord& record) const
{
    if (GetRecord() == &record)
        return GetDocument();
    const CRecordFrame* frame = FindRecordFrame(record);
    return frame != nullptr ? frame->GetDocument() : nullptr;
}

CRecordFrame* CMainFrame::FindRecordFrame(const CCorvaneRecord& record) const
{
    const std::vector<CRecordFrame*> frames = GetRecordFrames();
    const auto found = std::find_if(frames.begin(), frames.end(),
                                    [&](const CRecordFrame* frame) { return frame->GetRecord() == &record; });
    return found != frames.end() ? *found : nullptr;
}

bool CMainFrame::IsUsedByRecordFrame(const CCorvaneDoc& document) const
{
    const std::vector<CRecordFrame*> frames = GetRecordFrames();
    return std::any_of(frames.begin(), frames.end(),
                       [&](const CRecordFrame* frame) { return frame->GetDocument().get() == &document; });
}

// The application's main document may have stayed with a record frame.
std::shared_ptr<CCorvaneDoc> CMainFrame::TakeFreeDocument() const
{
    for (const std::shared_ptr<CCorvaneDoc>& document : {m_pMainDocument, GetDocument()})
        if (!IsUsedByRecordFrame(*document))
            return document;
    return std::make_shared<CCorvaneDoc>(m_Application.GetManager());
}

void CMainFrame::ReleaseDocument(const std::shared_ptr<CCorvaneDoc>& document)
{
    if (document && document != GetDocument() && !IsUsedByRecordFrame(*document))
        document->SetRecord(nullptr);
}

bool CMainFrame::ShowRecord(CCorvaneRecord* record, bool /*writable*/)
{
    if (record == nullptr)
        return false;
    const CRef<CCorvaneRecord> keep(record);
    EndEdit();
    std::shared_ptr<CCorvaneDoc> document = FindDocument(*record);
    if (!document)
        document = TakeFreeDocument();
    if (document != GetDocument())
    {
        const std::shared_ptr<CCorvaneDoc> former = GetDocument();
        SetDocument(document);
        ReleaseDocument(former);
    }
    document->SetRecord(record);
    return GetRecord() == record;
}

bool CMainFrame::OpenRecordFrame(CCorvaneRecord* record, bool /*writable*/)
{
    if (record == nullptr)
        return false;
    const CRef<CCorvaneRecord> keep(record);
    if (const QPointer<CRecordFrame> open = FindRecordFrame(*record))
    {
        const EAnswer answer = GetContext().m_Questions.Ask(MakeQuestion(
            u"Duplicate Record Instances",
            u"The selected record is already open in a new window.  Would you like to create a new "
            u"window?",
            EButtons::YesNoCancel, EIcon::Question));
        if (answer == EAnswer::No && open)
            open->BringToFront();
        if (answer != EAnswer::Yes)
            return true;
    }
    EndAllEdits();
    if (!record->IsInTree())
        return false;
    std::shared_ptr<CCorvaneDoc> document = FindDocument(*record);
    if (!document)
        document = std::make_shared<CCorvaneDoc>(m_Application.GetManager());
    document->SetRecord(record);
    auto* frame = new CRecordFrame(*this, m_Application, std::move(document));
    std::erase_if(m_RecordFrames, [](const QPointer<CRecordFrame>& entry) { return !entry; });
    // Windows that lie exactly on one another look like one.
    frame->move(frame->pos() + static_cast<int>(m_RecordFrames.size() % kCascade) * kCascadeStep);
    m_RecordFrames.emplace_back(frame);
    frame->show();
    return true;
}

// The frames themselves go when the loop runs again: this may be a notification.
void CMainFrame::CloseRecordFrames()
{
    for (CRecordFrame* frame : GetRecordFrames())
    {
        frame->EndEdit();
        frame->close();
    }
}
