// A whole manager in memory, with every registered type and a host that records its questions: what a test
// of the model's lower layers stands on. Nothing touches the disk.
#pragma once

#include "CorvaneMgr.h"
#include "CorvaneTypeMgr.h"
#include "MemoryFileSystem.h"
#include "Module.h"
#include "Profile.h"
#include "RunState.h"
#include "SourceGate.h"
#include "UndoRecorder.h"
#include "host/RecordingQuestions.h"
#include "host/Services.h"

#include <memory>
#include <string_view>
#include <vector>

// A desktop that does nothing, at a fixed time.
class CQuietServices final : public IServices
{
public:
    [[nodiscard]] std::u16string GetTimeText() override { return u"12:00:00"; }
    [[nodiscard]] std::u16string GetDateText() override { return u"01/02/03"; }
    [[nodiscard]] std::u16string GetUserName() override { return u"tester"; }
    [[nodiscard]] bool OpenInShell(std::u16string_view) override { return false; }
    [[nodiscard]] bool MoveToRecycleBin(std::u16string_view) override { return false; }
    void Beep() override {}
};

// Keeps the restore points of a group that a test opens by hand.
class CTestUndo final : public IUndoRecorder
{
public:
    [[nodiscard]] bool IsRecording() const override { return m_bRecording; }
    [[nodiscard]] bool IsReplaying() const override { return false; }
    [[nodiscard]] bool HasEntries() const override { return !m_Points.empty(); }
    void AddRestorePoint(std::unique_ptr<CUndoRestorePoint> point) override
    {
        m_Points.push_back(std::move(point));
    }
    void Clear() override { m_Points.clear(); }

    bool m_bRecording = false;
    std::vector<std::unique_ptr<CUndoRestorePoint>> m_Points;
};

class CTestManager
{
public:
    CTestManager();
    ~CTestManager();
    CTestManager(const CTestManager&) = delete;
    CTestManager& operator=(const CTestManager&) = delete;

    [[nodiscard]] CCorvaneMgr& Get() { return *m_pManager; }
    // Loads a schema from its file's text, less the section `Schema`; null when the manager refuses it.
    [[nodiscard]] CCorvaneSchema* AddSchema(std::u16string_view name, std::u16string_view sections);
    // A record of the schema that has no category; the manager's end empties it.
    [[nodiscard]] CCorvaneRecord& AddRecord(const CCorvaneSchema& schema);
    // The same as a referencee of `parent`.
    [[nodiscard]] CCorvaneRecord& AddReference(CCorvaneRecord& parent);

    CMemoryFileSystem m_Files;
    CRecordingQuestions m_Questions;
    CQuietServices m_Services;
    CRunState m_Run;
    CProfile m_Profile;
    CModuleFinder m_Modules;
    CCorvaneTypeMgr m_Types;
    CorvaneSchemaAttribDataMgr m_AttribData;
    CSourceGate m_Gate;
    CTestUndo m_Undo;

private:
    std::unique_ptr<CCorvaneMgr> m_pManager;
    std::vector<CRef<CCorvaneRecord>> m_Records;
};
