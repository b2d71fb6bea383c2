// A small database as files in a scratch directory, and a real manager over them.
#pragma once

#include "CorvaneMgr.h"
#include "CorvaneTypeMgr.h"
#include "DiskFileSystem.h"
#include "FailingFileSystem.h"
#include "Module.h"
#include "Profile.h"
#include "RunState.h"
#include "ScratchDir.h"
#include "SourceGate.h"
#include "UndoRecorder.h"
#include "host/RecordingQuestions.h"
#include "host/SystemServices.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// A provider that writes down what it is asked to do and fails where a test tells it to.
class CTestGate final : public CSourceGate
{
public:
    [[nodiscard]] bool IsControlled(std::u16string_view) override { return m_bControlled; }
    [[nodiscard]] bool IsDeletePending(const CCorvaneRecord& record) override
    {
        return m_Pending.contains(record.GetName());
    }
    [[nodiscard]] bool IsDeletePending(const CCorvaneCategory& category) override
    {
        return m_Pending.contains(category.GetName());
    }
    using CSourceGate::CheckOutForEdit;
    [[nodiscard]] bool CheckOutForEdit(std::u16string_view) override { return Do("check out"); }
    [[nodiscard]] bool UndoCheckOut(std::u16string_view) override { return Do("undo"); }
    [[nodiscard]] bool CheckIn(std::u16string_view) override { return Do("check in"); }
    [[nodiscard]] bool AddFile(std::u16string_view) override { return Do("add"); }
    [[nodiscard]] bool SubmitAll() override { return Do("submit"); }
    [[nodiscard]] bool SynchronizeToServer() override { return Do("synchronize"); }

    bool m_bControlled = false;
    std::set<std::u16string> m_Pending; // Names of records and categories on their way out.
    std::string m_sFail;                // The operation that fails.
    std::vector<std::string> m_Done;

private:
    bool Do(const char* operation)
    {
        m_Done.emplace_back(operation);
        return m_sFail != operation;
    }
};

class CDatabaseFixture : public ::testing::Test
{
protected:
    CDatabaseFixture();
    ~CDatabaseFixture() override;

    // Files below the scratch directory's "Db"; texts are lines of section files.
    void WriteRoot(std::u16string_view more = {});
    void WriteSchema(std::string_view name, std::u16string_view attributes);
    void WriteCategory(std::string_view directory, std::u16string_view schema);
    void WriteRecord(std::string_view directory, std::string_view name, std::u16string_view schema,
                     std::u16string_view attributes, std::u16string_view virtualCategory = {});
    // The locator beside them names this creator library.
    void WriteLocator(std::u16string_view creator);
    // Loads what was written.
    void Open();

    CScratchDir m_Scratch;
    CDiskFileSystem m_Disk;
    std::function<EFileError(EFileOperation, std::u16string_view)> m_Failure;
    CFailingFileSystem m_Files;
    CRecordingQuestions m_Questions;
    CSystemServices m_Services;
    CRunState m_Run;
    CProfile m_Profile;
    CModuleFinder m_Modules;
    CCorvaneTypeMgr m_Types;
    CorvaneSchemaAttribDataMgr m_AttribData;
    CTestGate m_Gate;
    CNoUndo m_Undo;
    std::unique_ptr<CCorvaneMgr> m_pManager;
};
