// What a row of the tree stands for: the root, a category or a record. Holds a reference on the object, which
// may have left the database meanwhile; see IsInTree.
#pragma once

#include "CorvaneRef.h"

#include <cstdint>
#include <string>

class CCorvaneCategory;
class CCorvaneRecord;

class CTreeItem
{
public:
    CTreeItem() = default;
    explicit CTreeItem(CCorvaneCategory& category);
    explicit CTreeItem(CCorvaneRecord& record);
    [[nodiscard]] static CTreeItem MakeRoot();

    [[nodiscard]] bool IsNone() const { return m_Kind == EKind::None; }
    [[nodiscard]] bool IsRoot() const { return m_Kind == EKind::Root; }
    [[nodiscard]] bool IsCategory() const { return m_Kind == EKind::Category; }
    [[nodiscard]] bool IsRecord() const { return m_Kind == EKind::Record; }
    // Null unless it is one.
    [[nodiscard]] CCorvaneCategory* GetCategory() const;
    [[nodiscard]] CCorvaneRecord* GetRecord() const;
    // Null for the root and for none.
    [[nodiscard]] CCorvaneRef* GetObject() const { return m_pObject.Get(); }
    friend bool operator==(const CTreeItem& a, const CTreeItem& b) = default;

    // Empty for the root and for none.
    [[nodiscard]] const std::u16string& GetName() const;
    // Path of the file; empty where there is none.
    [[nodiscard]] const std::u16string& GetFile() const;
    // Null for a root category, the root and none.
    [[nodiscard]] CCorvaneCategory* GetParent() const;
    // Where a paste or a drop onto the row goes: a category itself, a record's category; else null.
    [[nodiscard]] CCorvaneCategory* GetDestination() const;
    // True when the object belongs to the open database.
    [[nodiscard]] bool IsInTree() const;
    // An object that no file stands for, such as a compare record.
    [[nodiscard]] bool IsSpecial() const;

private:
    enum class EKind : std::uint8_t
    {
        None,
        Root,
        Category,
        Record
    };

    EKind m_Kind = EKind::None;
    CRef<CCorvaneRef> m_pObject;
};

// The order of siblings: categories first, then by name without regard to case.
[[nodiscard]] bool IsTreeOrder(const CTreeItem& a, const CTreeItem& b);
