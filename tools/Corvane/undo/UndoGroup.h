// What one user command did, however many objects it touched: the unit of undo, and a text for the menu.
#pragma once

#include "UndoRecorder.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class CUndoGroup
{
public:
    // The place in the code that opened the group, for diagnosis only; the text lives as long as the program.
    CUndoGroup(const char* sourceFile, int line) : m_pSourceFile(sourceFile), m_nLine(line) {}
    // Destroys the points in the order in which they were added.
    ~CUndoGroup() { Empty(); }
    CUndoGroup(const CUndoGroup&) = delete;
    CUndoGroup& operator=(const CUndoGroup&) = delete;

    void Add(std::unique_ptr<CUndoRestorePoint> point) { m_Points.push_back(std::move(point)); }
    void Empty();
    [[nodiscard]] std::size_t GetPointCount() const { return m_Points.size(); }

    // Undo runs from the last point to the first, redo the other way. A point that fails ends them with
    // false; those before it stay as they are, and the next try goes on where this one ended.
    [[nodiscard]] bool Undo();
    [[nodiscard]] bool Redo();
    // Takes every change back for good; a point that fails is passed over.
    void Restore();
    // Destroys the points that Restore took back: they cannot be redone.
    void DropRestored();

    // Bytes that the group stands for in a memory limit.
    [[nodiscard]] std::size_t GetSize() const;
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const;

    [[nodiscard]] const std::u16string& GetText() const { return m_sText; }
    void SetText(std::u16string_view text) { m_sText = text; }
    [[nodiscard]] const char* GetSourceFile() const { return m_pSourceFile; }
    [[nodiscard]] int GetLine() const { return m_nLine; }

private:
    std::vector<std::unique_ptr<CUndoRestorePoint>> m_Points;
    std::u16string m_sText;
    const char* m_pSourceFile;
    int m_nLine;
};
