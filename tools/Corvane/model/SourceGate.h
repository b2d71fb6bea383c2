// The gate between a change and its file: what the model and the services ask of source control.
//
// The base class answers "not connected" to everything and is the gate in use until a provider is there.
// Paths are local path texts as stored on the objects. Operations that change a file's state tell the event
// line themselves and return false when they could not, having told the user why.
#pragma once

#include "Guid.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneCategory;
class CCorvaneRecord;
class CCorvaneSchema;
class IUnicodeFileParse;

enum class ECheckOutState
{
    Unknown = 0,
    NotControlled = 1,
    ForEdit = 2,
    ForDelete = 3,
};

enum class EControlledFileStatus
{
    None = 0, // Not connected.
    NotControlled = 1,
    CheckedOutHere = 2,
    CheckedOutElsewhere = 4,
    CheckedIn = 5,
};

// What a provider says about a file.
enum EFileFlags : std::uint32_t
{
    FILE_FLAG_OPEN = 0x2, // On this client.
    FILE_FLAG_PENDING_ADD = 0x8,
    FILE_FLAG_MINE = 0x10000, // Checked out.
    FILE_FLAG_SOMEBODY_ELSES = 0x20000,
};

struct SCheckOutUser
{
    std::u16string m_sName;
    std::u16string m_sComment;
};

class CSourceGate
{
public:
    virtual ~CSourceGate() = default;

    // Which provider serves the next database (null for none) and its project.
    virtual void Configure(const CGuid& provider, std::u16string_view project);
    [[nodiscard]] const CGuid& GetProvider() const { return m_Provider; }
    [[nodiscard]] const std::u16string& GetProject() const { return m_sProject; }

    // Connect is true without a provider. ReadCheckOutList takes the user's own list from the per-user file
    // once everything is loaded.
    [[nodiscard]] virtual bool Connect() { return true; }
    virtual void Disconnect() {}
    [[nodiscard]] virtual bool IsConnected() const { return false; }
    virtual void ReadCheckOutList(const IUnicodeFileParse&) {}
    [[nodiscard]] virtual std::u16string GetUserName() const { return {}; }

    // Questions about one file.
    [[nodiscard]] virtual bool IsControlled(std::u16string_view) { return false; }
    [[nodiscard]] virtual bool IsMine(std::u16string_view) { return false; }
    [[nodiscard]] virtual bool IsSomebodyElses(std::u16string_view) { return false; }
    [[nodiscard]] virtual ECheckOutState GetCheckOutState(std::u16string_view)
    {
        return ECheckOutState::NotControlled;
    }
    [[nodiscard]] virtual EControlledFileStatus GetFileStatus(std::u16string_view)
    {
        return EControlledFileStatus::None;
    }
    // Bits of EFileFlags.
    [[nodiscard]] virtual std::uint32_t GetFileFlags(std::u16string_view) { return 0; }
    [[nodiscard]] virtual bool IsServerNewer(std::u16string_view) { return false; }
    [[nodiscard]] virtual std::vector<SCheckOutUser> GetCheckOutUsers(std::u16string_view) { return {}; }
    // On its way out: checked out for delete, so that it takes no part in outputs and checks.
    [[nodiscard]] virtual bool IsDeletePending(const CCorvaneRecord&) { return false; }
    [[nodiscard]] virtual bool IsDeletePending(const CCorvaneCategory&) { return false; }

    // Check-outs. An object that is not controlled passes.
    [[nodiscard]] virtual bool CheckOutForEdit(CCorvaneRecord&) { return true; }
    [[nodiscard]] virtual bool CheckOutForEdit(CCorvaneCategory&) { return true; }
    [[nodiscard]] virtual bool CheckOutForEdit(CCorvaneSchema&) { return true; }
    [[nodiscard]] virtual bool CheckOutForEdit(std::u16string_view) { return true; }
    [[nodiscard]] virtual bool CheckOutListForEdit(std::span<const std::u16string>) { return true; }
    [[nodiscard]] virtual bool CanCategoryBeCheckedOut(CCorvaneCategory&) { return true; }
    [[nodiscard]] virtual bool CheckOutForDelete(CCorvaneRecord&) { return true; }
    [[nodiscard]] virtual bool CheckOutForDelete(CCorvaneCategory&) { return true; }

    // Other changes of a file's state.
    [[nodiscard]] virtual bool UndoCheckOut(std::u16string_view) { return false; }
    [[nodiscard]] virtual bool CheckIn(std::u16string_view) { return false; }
    [[nodiscard]] virtual bool AddFile(std::u16string_view) { return false; }
    // Puts the record's file under source control, once the record is saved.
    [[nodiscard]] virtual bool AddRecord(CCorvaneRecord&) { return false; }
    [[nodiscard]] virtual bool AddCategoryTree(CCorvaneCategory&) { return false; }
    [[nodiscard]] virtual bool Rename(CCorvaneRecord&, std::u16string_view) { return false; }
    [[nodiscard]] virtual bool Move(CCorvaneRecord&, CCorvaneCategory&) { return false; }
    [[nodiscard]] virtual bool SubmitAll() { return false; }
    [[nodiscard]] virtual bool SynchronizeToServer() { return false; }

private:
    CGuid m_Provider;
    std::u16string m_sProject;
};
