// How operations hand what they did to the undo manager. A restore point knows how to take one change on
// one object back and to do it again.
#pragma once

#include <cstddef>
#include <memory>

class CCorvaneRef;

class CUndoRestorePoint
{
public:
    virtual ~CUndoRestorePoint() = default;
    // Takes the change back; with `redoable` the point also rewrites itself so that Redo works. False ends
    // the undo.
    [[nodiscard]] virtual bool Undo(bool redoable) = 0;
    [[nodiscard]] virtual bool Redo() = 0;
    // Bytes that the point stands for in a memory limit.
    [[nodiscard]] virtual std::size_t GetSize() const = 0;
    [[nodiscard]] virtual bool Refers(const CCorvaneRef& object) const = 0;

    // True while the change stands.
    bool m_bApplied = true;
};

class IUndoRecorder
{
public:
    virtual ~IUndoRecorder() = default;
    // True while a group is open: only then is a restore point made.
    [[nodiscard]] virtual bool IsRecording() const = 0;
    // True while an undo or a redo runs: listeners and dialogs keep silent then.
    [[nodiscard]] virtual bool IsReplaying() const = 0;
    [[nodiscard]] virtual bool HasEntries() const = 0;
    virtual void AddRestorePoint(std::unique_ptr<CUndoRestorePoint> point) = 0;
    // Forgets everything.
    virtual void Clear() = 0;
};
