// A document: the record on display. The main document opens root files as well; a further one shows a record
// in a window of its own.
#pragma once

#include "CorvaneRecord.h"
#include "ObserverList.h"
#include "RecordDocument.h"

#include <string_view>

class CCorvaneEvent;
class CCorvaneMgr;

class CCorvaneDoc final : public IRecordDocument
{
public:
    // `manager` is not owned and outlives the document.
    explicit CCorvaneDoc(CCorvaneMgr& manager);
    ~CCorvaneDoc() override;
    CCorvaneDoc(const CCorvaneDoc&) = delete;
    CCorvaneDoc& operator=(const CCorvaneDoc&) = delete;

    // Loads a root file in place of the open database. False when the file itself cannot be opened, which is
    // told, or when the user keeps the open database. A load that fails has told why and is true here;
    // IsLoaded tells of it.
    [[nodiscard]] bool OnOpenDocument(std::u16string_view path);
    void OnCloseDocument();
    // The last root file that was opened did load.
    [[nodiscard]] bool IsLoaded() const { return m_bLoaded; }

    // Null shows nothing. Views are told of the old one's going and the new one's coming.
    void SetRecord(CCorvaneRecord* record);
    [[nodiscard]] CCorvaneRecord* GetRecord() const { return m_pRecord.Get(); }

    // A plain mark that others set; never computed.
    [[nodiscard]] bool IsModified() const { return m_bModified; }
    void SetModifiedFlag(bool modified) { m_bModified = modified; }

    void OnRecordGone(CCorvaneRecord& record) override;
    void UpdateViews(ERecordUpdate hint) override { m_Views.Notify(hint); }
    [[nodiscard]] CObserverHandle AddView(CObserverList<ERecordUpdate>::FCallback view);

private:
    [[nodiscard]] bool IsReadable(std::u16string_view path);
    // Tells listeners when the user's stored build is not the one in force.
    void NotifyStoredBuild();
    void DetachRecord();
    int OnEvent(const CCorvaneEvent& event);

    CCorvaneMgr& m_Manager;
    CRef<CCorvaneRecord> m_pRecord;
    bool m_bModified = false;
    bool m_bLoaded = false;
    CObserverList<ERecordUpdate> m_Views;
    CObserverHandle m_EventHandle;
};
