// An undo group for the length of a command: cancelled at the end of the scope unless it was accepted.
#pragma once

#include "UndoMgr.h"

class CUndoScope
{
public:
    explicit CUndoScope(CUndoMgr& undo, const char* sourceFile = __builtin_FILE(),
                        int line = __builtin_LINE())
        : m_Undo(undo), m_bOpen(undo.BeginGroup(sourceFile, line))
    {
    }
    ~CUndoScope()
    {
        if (m_bOpen)
            m_Undo.CancelGroup();
    }
    CUndoScope(const CUndoScope&) = delete;
    CUndoScope& operator=(const CUndoScope&) = delete;

    // False when no group could be opened: an undo or a redo is running, and the command must not run.
    [[nodiscard]] bool IsOpen() const { return m_bOpen; }
    void Accept(std::u16string_view text)
    {
        if (m_bOpen)
            m_Undo.AcceptGroup(text);
        m_bOpen = false;
    }

private:
    CUndoMgr& m_Undo;
    bool m_bOpen;
};
