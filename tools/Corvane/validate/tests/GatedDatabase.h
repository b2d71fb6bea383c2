// A small database on disk under a provider that a test leads, and a real manager over it.
#pragma once

#include "TestDatabase.h"

#include <gtest/gtest.h>

#include <set>

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

// The database's own manager stays closed; the one of this fixture asks the gate above.
class CGatedDatabase : public ::testing::Test, protected CTestDatabase
{
protected:
    ~CGatedDatabase() override
    {
        m_Failure = nullptr;
        static_cast<void>(m_pManager->CloseDatabase());
    }
    void Open() { ASSERT_TRUE(m_pManager->OpenDatabase(GetText("Root.Gamdb00s"))); }

    CTestGate m_Gate;
    std::unique_ptr<CCorvaneMgr> m_pManager = std::make_unique<CCorvaneMgr>(
        CCorvaneContext{m_Files, m_Questions, m_Services, m_Run, m_Profile, m_Modules}, m_Types, m_AttribData,
        m_Gate, m_Undo);
};
