// A node of a tree: an atom, which is a narrow text, or a list of nodes. Text is UTF-8.
//
// A list owns its elements and an atom its text, but a node frees nothing by itself: `Free` releases what it
// holds, with the allocator that the tree was made with. A node that goes while it holds data fires an
// assertion and leaks. CZRANodePtr (ZRANodePtr.h) does both for a whole tree.
//
// The two words of a node are an outside contract, since tools read trees in place. No member may be added.
//
// An operation that returns false for exhausted memory leaves the node as it was.
#pragma once

#include <cstddef>
#include <cstdint>

class IZRAAllocator;

class CZRANode
{
public:
    CZRANode() = default;
    ~CZRANode();
    CZRANode(const CZRANode&) = delete;
    CZRANode& operator=(const CZRANode&) = delete;

    // As many elements as the flags can count.
    static constexpr std::uint32_t kMaxElements = (1U << 30U) - 1;

    // A new node is an empty list.
    [[nodiscard]] bool IsList() const { return !IsAtom(); }
    [[nodiscard]] bool IsAtom() const { return (m_nFlags & kAtom) != 0; }
    // Whether an atom is written in double quotes; false for a list.
    [[nodiscard]] bool IsQuoted() const { return (m_nFlags & kQuoted) != 0; }

    // Lists only. An index beyond the end gives null. An element may be null as long as nobody has set it.
    [[nodiscard]] std::uint32_t GetNumElements() const;
    [[nodiscard]] CZRANode* GetElement(std::uint32_t nIndex) const;
    // Hands `pNode` over to the list. The element that stood there is not freed.
    void SetElement(CZRANode* pNode, std::uint32_t nIndex);
    // Gives an empty list `nCount` null elements.
    [[nodiscard]] bool AllocateElements(std::uint32_t nCount, IZRAAllocator& allocator);
    // Hands `pNode` over to the list, as its last element. A refused node stays the caller's. Costs a copy
    // of the list: CZRANodeBuilder is the way to build long ones.
    [[nodiscard]] bool AppendElement(CZRANode* pNode, IZRAAllocator& allocator);

    // Atoms only; the text lives as long as the node keeps it. "" for a list.
    [[nodiscard]] const char* GetValue() const;
    // Turns an atom or an empty list into an atom with a copy of the first `nLength` bytes of `pszValue`.
    [[nodiscard]] bool SetValue(const char* pszValue, bool bQuoted, std::size_t nLength,
                                IZRAAllocator& allocator);

    // Frees the elements with all that they hold, or the text; an empty list is left. Takes a level of the
    // program's stack for each level of the tree.
    void Free(IZRAAllocator& allocator);

private:
    static constexpr std::uint32_t kAtom = 1U << 31U;
    static constexpr std::uint32_t kQuoted = 1U << 30U;

    [[nodiscard]] CZRANode** GetElements() const { return static_cast<CZRANode**>(m_pData); }

    std::uint32_t m_nFlags = 0; // Bits 31 and 30 as above; the number of elements below them for a list.
    void* m_pData = nullptr;    // An atom's terminated text or a list's array of element pointers.
};
