// Cut, copy and paste of the tree. The object that was put on the clipboard is held here; the clipboard
// itself has a block that only this process understands, and the name.
//
// A cut pastes once. Whoever takes the clipboard over ends the marks of a cut and lets the object go.
#pragma once

#include "TreeClipboardBlock.h"
#include "TreeItem.h"

#include <QObject>
#include <functional>
#include <string_view>

class CCorvaneCategory;
class CCorvaneMgr;
class IEditorFrame;

// Whether the block, which stands for `held`, may be pasted onto `item`.
[[nodiscard]] bool IsCompatibleClipboardFormat(const STreeClipboardBlock& block, const CTreeItem& held,
                                               const CTreeItem& item);

class CTreeClipboard final : public QObject
{
public:
    CTreeClipboard(IEditorFrame& frame, QObject* parent);
    ~CTreeClipboard() override;

    // Neither the root nor a system category nor a compare record.
    [[nodiscard]] static bool IsAllowed(const CTreeItem& item);
    void Cut(const CTreeItem& item) { Put(item, STreeClipboardBlock::kCut); }
    void Copy(const CTreeItem& item) { Put(item, STreeClipboardBlock::kCopy); }
    [[nodiscard]] bool CanPaste(const CTreeItem& item) const;
    // Tells the user why it could not.
    void Paste(const CTreeItem& item);
    // Whether the object, or one above it, is marked as cut.
    [[nodiscard]] bool IsMarked(const CTreeItem& item) const;

    // Lets go of the object.
    void OnClosed();
    // The marks have changed.
    std::function<void()> m_OnMarks;

private:
    void Put(const CTreeItem& item, std::uint32_t operation);
    void OnClipboardChanged();
    void Release();
    void ClearMarks();
    [[nodiscard]] CCorvaneMgr& GetManager() const;
    void PasteCopy(const CTreeItem& source, CCorvaneCategory& dest);
    void PasteMove(const CTreeItem& source, CCorvaneCategory& dest);
    void TellFailure(const CTreeItem& source, std::u16string_view text) const;

    IEditorFrame& m_Frame;
    STreeClipboardBlock m_Block; // What this tree put there last.
    CTreeItem m_Held;
    CTreeItem m_Marked;
    bool m_bPutting = false;
};

// Copies a record or a category in an undo group of its own. False when it does not fit there.
[[nodiscard]] bool CopyTreeItem(IEditorFrame& frame, const CTreeItem& source, CCorvaneCategory& dest,
                                bool reference);
// Moves one in an undo group of its own. False leaves it where it is.
[[nodiscard]] bool MoveTreeItem(IEditorFrame& frame, const CTreeItem& source, CCorvaneCategory& dest);
