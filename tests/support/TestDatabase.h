// A small database on disk, written from short texts, and a real manager that opens it: the disk's file layer
// (which a test may let fail), every registered type, a host that records its questions, an undo manager
// and a gate that a test opens and closes by hand.
//
// The end of the object closes the database and looks for objects that are still alive and for assertions
// that the test did not announce.
#pragma once

#include "AssertCapture.h"
#include "CorvaneMgr.h"
#include "CorvaneTypeMgr.h"
#include "DiskFileSystem.h"
#include "FailingFileSystem.h"
#include "Module.h"
#include "Profile.h"
#include "RunState.h"
#include "ScratchDir.h"
#include "SourceGate.h"
#include "UndoMgr.h"
#include "host/RecordingQuestions.h"
#include "host/Services.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A desktop that keeps what it was asked to open or play, and does it only where a test says so.
class CManualServices final : public IServices
{
public:
    [[nodiscard]] std::u16string GetTimeText() override { return u"12:00:00"; }
    [[nodiscard]] std::u16string GetDateText() override { return u"01/02/03"; }
    [[nodiscard]] std::u16string GetUserName() override { return u"tester"; }
    [[nodiscard]] bool OpenInShell(std::u16string_view path) override { return Take(u"open ", path); }
    [[nodiscard]] bool OpenLink(std::u16string_view address) override { return Take(u"link ", address); }
    [[nodiscard]] bool ShowInFolder(std::u16string_view path) override { return Take(u"show ", path); }
    [[nodiscard]] bool PlaySoundFile(std::u16string_view path) override { return Take(u"play ", path); }
    [[nodiscard]] bool MoveToRecycleBin(std::u16string_view path) override
    {
        m_Calls.push_back(std::u16string(u"bin ").append(path));
        return m_bBin && std::filesystem::remove(std::filesystem::path(path));
    }
    void Beep() override { ++m_nBeeps; }

    bool m_bServe = false;
    bool m_bBin = true; // There is a bin; what it gets is gone.
    int m_nBeeps = 0;
    // "open <path>", "link <address>", "show <path>", "play <path>", "bin <path>".
    std::vector<std::u16string> m_Calls;

private:
    bool Take(std::u16string_view what, std::u16string_view path)
    {
        m_Calls.push_back(std::u16string(what).append(path));
        return m_bServe;
    }
};

// Source control that is connected, controls every file and grants or refuses.
class CManualGate final : public CSourceGate
{
public:
    [[nodiscard]] bool Connect() override { return !m_bRefuseConnection; }
    [[nodiscard]] bool IsConnected() const override { return m_bConnected; }
    [[nodiscard]] bool IsControlled(std::u16string_view) override { return m_bConnected; }
    [[nodiscard]] bool IsMine(std::u16string_view) override { return m_bConnected && m_bMine; }
    [[nodiscard]] std::uint32_t GetFileFlags(std::u16string_view) override { return m_nFileFlags; }
    using CSourceGate::CheckOutForEdit;
    [[nodiscard]] bool CheckOutForEdit(CCorvaneRecord&) override { return Answer(); }
    [[nodiscard]] bool CheckOutForEdit(CCorvaneCategory&) override { return Answer(); }
    [[nodiscard]] bool CheckOutForEdit(CCorvaneSchema&) override { return Answer(); }
    [[nodiscard]] bool CheckOutForEdit(std::u16string_view) override { return Answer(); }
    [[nodiscard]] bool AddRecord(CCorvaneRecord&) override { return Answer(); }
    [[nodiscard]] bool AddCategoryTree(CCorvaneCategory&) override { return Answer(); }
    [[nodiscard]] bool Move(CCorvaneRecord&, CCorvaneCategory&) override { return Answer(); }

    using CSourceGate::IsDeletePending;
    [[nodiscard]] bool IsDeletePending(const CCorvaneRecord& record) override
    {
        return &record == m_pDeletePending;
    }

    bool m_bRefuseConnection = false;
    bool m_bConnected = false;
    bool m_bMine = false; // Every file is checked out to the user.
    std::uint32_t m_nFileFlags = 0;
    bool m_bGrant = true;
    int m_nGrants = -1; // So many are left; negative for no limit.
    int m_nAsked = 0;
    std::function<void()> m_OnAsked;
    const CCorvaneRecord* m_pDeletePending = nullptr;

private:
    bool Answer()
    {
        ++m_nAsked;
        if (m_OnAsked)
            m_OnAsked();
        if (m_nGrants > 0)
            return m_bGrant && m_nGrants-- > 0;
        return m_bGrant && m_nGrants < 0;
    }
};

// Leads the settings of the user to a directory, and back to where they lay before. Databases that live side
// by side so write to one that is still there: the first to go gives the place back to the one that was there
// before it.
class CUserDirectoryScope
{
public:
    explicit CUserDirectoryScope(const std::filesystem::path& path);
    ~CUserDirectoryScope();
    CUserDirectoryScope(const CUserDirectoryScope&) = delete;
    CUserDirectoryScope& operator=(const CUserDirectoryScope&) = delete;

private:
    std::optional<std::string> m_sBefore; // Empty when the variable was not set.
};

class CTestDatabase
{
public:
    // Writes the locator and the root file; the directory of the database is "Game/Database".
    CTestDatabase();
    ~CTestDatabase();

    // The user's own settings of this database, below the scratch directory.
    static constexpr const char* kUserFile =
        "config/Harrowgate Works/ZORN/Corvane/{11111111-2222-3333-4444-555555555555}.ini";

    // Files of the database, by paths below its directory. Texts are UTF-8 with '\n'; files are UTF-16 with
    // CR LF.
    void Write(std::string_view file, std::string_view text) const;
    void WriteBytes(std::string_view file, std::string_view bytes) const;
    // The file's text in the form that Write takes.
    [[nodiscard]] std::string Read(std::string_view file) const;
    [[nodiscard]] std::filesystem::path GetPath(std::string_view file) const;
    [[nodiscard]] std::u16string GetText(std::string_view file) const;

    // "Schemas/<name>.schema", with attribute sections as given.
    void AddSchema(std::string_view name, std::string_view sections, std::string_view parent = {}) const;
    void AddCategory(std::string_view path, std::string_view schema) const;
    // `path` is the file without its extension; the record is named like the file. `keys` are further lines
    // of the section Record, `sections` whatever follows.
    void AddRecord(std::string_view path, std::string_view schema, std::string_view sections = {},
                   std::string_view keys = {}) const;

    [[nodiscard]] bool Open();
    // Closes and checks that every object is gone.
    void Close();
    [[nodiscard]] CCorvaneMgr& Get() const { return *m_pManager; }

    // These fail the test when there is nothing to find.
    [[nodiscard]] CCorvaneRecord& Record(std::string_view path) const;
    [[nodiscard]] CCorvaneCategory& Category(std::string_view path) const;
    [[nodiscard]] CCorvaneSchema& Schema(std::string_view name) const;
    [[nodiscard]] CCorvaneType& Attrib(std::string_view record, std::string_view name,
                                       std::uint32_t build = 0) const;
    [[nodiscard]] std::string Value(std::string_view record, std::string_view name, std::uint32_t build = 0,
                                    std::size_t index = 0) const;
    // Display paths of all records in the order of the walk, each followed by a blank.
    [[nodiscard]] std::string GetRecordList() const;
    // "Name.build" of the template's attributes, each followed by a blank.
    [[nodiscard]] std::string GetTemplateList(std::string_view schema) const;
    // Titles of all questions so far, each followed by a semicolon.
    [[nodiscard]] std::string GetTitles() const;
    // Text of the only question with this title.
    [[nodiscard]] std::string GetQuestion(std::string_view title) const;

    // Content and time of every file below the scratch directory but the user's own settings.
    using Snapshot = std::map<std::string, std::pair<std::string, std::filesystem::file_time_type>>;
    [[nodiscard]] Snapshot TakeSnapshot() const;
    // Names of the files that differ from what they were, each followed by a semicolon.
    [[nodiscard]] std::string GetChanges(const Snapshot& before) const;
    [[nodiscard]] std::string GetPerUserFile() const;

    CScratchDir m_Scratch;
    CUserDirectoryScope m_UserDirectory{m_Scratch.GetPath() / "config"};
    CDiskFileSystem m_Disk;
    CFailingFileSystem::FFailure m_Failure;
    CFailingFileSystem m_Files;
    CRecordingQuestions m_Questions;
    CManualServices m_Services;
    CRunState m_Run;
    CProfile m_Profile;
    CModuleFinder m_Modules;
    CCorvaneTypeMgr m_Types;
    CorvaneSchemaAttribDataMgr m_AttribData;
    CManualGate m_Gate;
    CUndoMgr m_Undo{m_Services};
    std::vector<int> m_Events;
    CAssertCapture m_Asserts;
    std::size_t m_nExpectedAsserts = 0;
    std::int64_t m_nLasting = 0; // Objects that outlive a database.

private:
    std::int64_t m_nLive;
    std::unique_ptr<CCorvaneMgr> m_pManager;
    CObserverHandle m_Observer;
};
