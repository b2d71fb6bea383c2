// Builds a tree from a flat stream of calls: Push opens a list, values and finished lists go into the open
// one (or to the top level), Pop closes it. The finished siblings of all open lists stand side by side in one
// table, so that a list's elements are contiguous when it is closed and nothing moves while a long list
// grows.
//
// The builder owns everything that was added until DetachHead hands it out; what is left goes with it. It is
// a stack object of some 24 KB and one thread's. Texts are UTF-8 and are copied.
//
// A call that returns false for exhausted memory or a full table leaves everything as it was before it,
// except for Pop; see there. A builder with a null allocator refuses everything.
#pragma once

#include <array>
#include <cstdint>

class CZRANode;
class IZRAAllocator;

class CZRANodeBuilder
{
public:
    // The rows of the table, and the elements of each: what a tree may hold at one time, apart from what lies
    // in closed lists.
    static constexpr std::uint32_t MAX_CACHE_ROWS = 2048;
    static constexpr std::uint32_t kRowSize = 1024;
    // How many lists may be open at one time.
    static constexpr std::uint32_t kMaxDepth = 1023;

    // `pAllocator` is not owned, outlives the builder and the trees that it hands out, and frees those.
    explicit CZRANodeBuilder(IZRAAllocator* pAllocator);
    ~CZRANodeBuilder();
    CZRANodeBuilder(const CZRANodeBuilder&) = delete;
    CZRANodeBuilder& operator=(const CZRANodeBuilder&) = delete;

    // Opens a list; false when kMaxDepth lists are open.
    [[nodiscard]] bool Push();
    [[nodiscard]] bool AddValue(const char* pszValue, bool bQuoted);
    // An unquoted atom of decimal digits.
    [[nodiscard]] bool AddInteger(int nValue);
    // Opens a list with a first atom, its label.
    [[nodiscard]] bool PushValue(const char* pszValue, bool bQuoted);
    // Closes the list that was opened last. False when none is open. Exhausted memory closes the list too:
    // it is then missing in the tree with all that it held, and the result is false.
    [[nodiscard]] bool Pop();
    // Closes all; false when one of the lists was lost.
    [[nodiscard]] bool PopAll();

    // Closes all, hands the first `nMax` top-level nodes over to the caller, frees the others and starts
    // anew. The number handed out; 0 when a list was lost on the way, since the rest of its tree would pass
    // for the whole.
    [[nodiscard]] std::uint32_t DetachHeads(CZRANode** ppNodeList, std::uint32_t nMax);
    // The same for one node; null when there is none.
    [[nodiscard]] CZRANode* DetachHead();

private:
    struct SLevel
    {
        std::uint32_t m_nStart; // Where in the table the list's elements begin.
        std::uint32_t m_nCount; // How many stand directly in it.
    };

    CZRANode*& GetCacheElement(std::uint32_t nIndex);
    // Makes sure that there is a slot behind the last element.
    [[nodiscard]] bool ReserveSlot();
    // Takes the node over; frees it when there is no slot.
    [[nodiscard]] bool AddNode(CZRANode* pNode);
    [[nodiscard]] CZRANode* MakeAtom(const char* pszValue, bool bQuoted);
    // A list of the last `nCount` elements, which go from the table; null when they had to be freed.
    [[nodiscard]] CZRANode* MakeList(std::uint32_t nCount);
    // Frees the elements from `nStart` on.
    void Truncate(std::uint32_t nStart);
    void FreeTree(CZRANode* pNode);

    std::array<CZRANode**, MAX_CACHE_ROWS> m_pCache{};
    std::uint32_t m_nNumElements = 0;
    std::array<SLevel, kMaxDepth> m_Stack;
    std::uint32_t m_nDepth = 0;
    IZRAAllocator* m_pAllocator;
};
