// The undo manager: remembers what commands did, in groups, and takes it back or does it again.
//
// A command opens a group, runs its operations and accepts the group with a text for the menu or cancels it;
// CUndoScope does the closing. Operations hand restore points over while a group is open. Groups nest: the
// outermost one decides and its text stands. Main thread only.
#pragma once

#include "UndoRecorder.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class CUndoGroup;
class IServices;

enum EUndoFlag : std::uint32_t
{
    UNDO_FLAG_GROUP_OPEN = 0x1,
    UNDO_FLAG_LIMIT_COUNT = 0x2,
    UNDO_FLAG_LIMIT_MEMORY = 0x4,
    UNDO_FLAG_UNDOING = 0x8, // Also while the open group is restored.
    UNDO_FLAG_REDOING = 0x10,
};

class CUndoMgr final : public IUndoRecorder
{
public:
    // `services` give the sound for an empty list; not owned. Nothing is limited at the start.
    explicit CUndoMgr(IServices& services);
    ~CUndoMgr() override;
    CUndoMgr(const CUndoMgr&) = delete;
    CUndoMgr& operator=(const CUndoMgr&) = delete;

    // Opens a level. False, and nothing opened, while an undo or a redo runs. The place in the code is kept
    // for diagnosis.
    [[nodiscard]] bool BeginGroup(const char* sourceFile, int line);
    // Closes a level. The last one keeps the group under `text`, drops all redo groups and trims.
    void AcceptGroup(std::u16string_view text);
    // Closes a level. The last one takes back what the group did and drops it.
    void CancelGroup();
    // Takes back what the open group did so far.
    void RestoreGroup();
    // The same, and forgets it.
    void ReleaseGroup();
    // Null is ignored.
    void AddRestorePoint(std::unique_ptr<CUndoRestorePoint> point) override;

    // Undoes or redoes up to `count` groups. False, with a beep, when there is none; false also when a point
    // fails, whose group then stays in its list, and while a group is open or an undo or redo runs.
    bool Undo(std::size_t count);
    bool Redo(std::size_t count);
    // Destroys the groups of both lists; while an undo or a redo runs, at its end.
    void Clear() override;

    // The limit is a number of groups with UNDO_FLAG_LIMIT_COUNT, of bytes with UNDO_FLAG_LIMIT_MEMORY; it
    // takes effect at the next accepted group. A count of 0 limits nothing, nor does a memory limit that is
    // not enabled.
    void SetLimit(std::uint32_t flags, std::uint32_t limit, bool memoryEnabled = true);

    [[nodiscard]] bool IsRecording() const override;
    [[nodiscard]] bool IsReplaying() const override;
    [[nodiscard]] bool HasEntries() const override { return !m_UndoList.empty(); }
    [[nodiscard]] std::uint32_t GetFlags() const { return m_dwFlags; }
    [[nodiscard]] std::size_t GetUndoCount() const { return m_UndoList.size(); }
    [[nodiscard]] std::size_t GetRedoCount() const { return m_RedoList.size(); }
    // Bytes that both lists stand for.
    [[nodiscard]] std::size_t GetSize() const;
    // Whether a group of either list, or the open one, remembers `object`. Looks through all points.
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const;

    // Labels of a drop-down menu, the next group to run first, at most 18. '&' stands before a mnemonic and
    // is doubled where it belongs to a name. Item i runs i + 1 groups.
    [[nodiscard]] std::vector<std::u16string> GetUndoLabels() const { return GetLabels(m_UndoList); }
    [[nodiscard]] std::vector<std::u16string> GetRedoLabels() const { return GetLabels(m_RedoList); }

private:
    // Groups in the order in which they run last: the back is next.
    using GroupList = std::vector<std::unique_ptr<CUndoGroup>>;

    [[nodiscard]] static std::vector<std::u16string> GetLabels(const GroupList& list);
    // Runs groups from the end of one list to the other under `flag`.
    bool Replay(std::uint32_t flag, GroupList& from, GroupList& to, std::size_t count);
    // Does what Clear put off.
    void EndReplay();
    // One level less; true when that was the last.
    bool CloseLevel();
    void Trim();
    void TrimMemory();
    static void DestroyOldest(GroupList& list, std::size_t count);
    static void DestroyNewestFirst(GroupList& list);

    std::uint32_t m_dwFlags = 0;
    std::uint32_t m_dwGroupRef = 0;
    bool m_bLimitEnabled = false;
    std::uint32_t m_dwLimit = 0;
    bool m_bClearPending = false;
    GroupList m_UndoList;
    GroupList m_RedoList;
    std::unique_ptr<CUndoGroup> m_pCurrentGroup;
    IServices& m_Services;
};
