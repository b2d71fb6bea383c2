#include "CorvaneValueList.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string>
#include <utility>

// A head, the end of each text as a count of units, then the units of all texts.
struct CCorvaneValueList::SBlock
{
    std::uint32_t m_nCount = 0;
    std::uint32_t m_nMaxCount = 0;
    std::uint32_t m_nMaxUnits = 0;

    static SBlock* Create(std::size_t maxCount, std::size_t maxUnits)
    {
        void* memory =
            ::operator new(sizeof(SBlock) + maxCount * sizeof(std::uint32_t) + maxUnits * sizeof(char16_t));
        SBlock* block = new (memory) SBlock;
        block->m_nMaxCount = static_cast<std::uint32_t>(maxCount);
        block->m_nMaxUnits = static_cast<std::uint32_t>(maxUnits);
        return block;
    }

    // A copy with room for at least so much.
    SBlock* Copy(std::size_t maxCount, std::size_t maxUnits) const
    {
        SBlock* copy = Create(std::max<std::size_t>(maxCount, m_nCount), std::max(maxUnits, GetUnits()));
        copy->m_nCount = m_nCount;
        std::copy_n(GetEnds(), m_nCount, copy->GetEnds());
        std::copy_n(GetText(), GetUnits(), copy->GetText());
        return copy;
    }

    std::uint32_t* GetEnds() { return reinterpret_cast<std::uint32_t*>(this + 1); }
    const std::uint32_t* GetEnds() const { return reinterpret_cast<const std::uint32_t*>(this + 1); }
    char16_t* GetText() { return reinterpret_cast<char16_t*>(GetEnds() + m_nMaxCount); }
    const char16_t* GetText() const { return reinterpret_cast<const char16_t*>(GetEnds() + m_nMaxCount); }
    std::size_t GetStart(std::size_t index) const { return index == 0 ? 0 : GetEnds()[index - 1]; }
    std::size_t GetUnits() const { return GetStart(m_nCount); }
    bool Holds(std::u16string_view text) const
    {
        return !text.empty() && text.data() >= GetText() && text.data() < GetText() + m_nMaxUnits;
    }
};

CCorvaneValueList::CCorvaneValueList(const CCorvaneValueList& other)
    : m_nState(other.m_nState), m_nLength(other.m_nLength)
{
    std::memcpy(m_Text, other.m_Text, sizeof m_Text);
    if (m_nState == OnHeap)
        SetBlock(other.GetBlock()->Copy(0, 0));
}

CCorvaneValueList::CCorvaneValueList(CCorvaneValueList&& other) noexcept
    : m_nState(std::exchange(other.m_nState, std::uint8_t{Empty})), m_nLength(other.m_nLength)
{
    std::memcpy(m_Text, other.m_Text, sizeof m_Text);
}

CCorvaneValueList& CCorvaneValueList::operator=(const CCorvaneValueList& other)
{
    if (this != &other)
        *this = CCorvaneValueList(other);
    return *this;
}

CCorvaneValueList& CCorvaneValueList::operator=(CCorvaneValueList&& other) noexcept
{
    if (this == &other)
        return *this;
    FreeHeap();
    m_nState = std::exchange(other.m_nState, std::uint8_t{Empty});
    m_nLength = other.m_nLength;
    std::memcpy(m_Text, other.m_Text, sizeof m_Text);
    return *this;
}

std::size_t CCorvaneValueList::GetCount() const
{
    return m_nState == OnHeap ? GetBlock()->m_nCount : m_nState;
}

std::u16string_view CCorvaneValueList::Get(std::size_t index) const
{
    if (m_nState != OnHeap)
        return {m_Text, m_nLength};
    const SBlock& block = *GetBlock();
    const std::size_t start = block.GetStart(index);
    return {block.GetText() + start, block.GetEnds()[index] - start};
}

void CCorvaneValueList::Set(std::size_t index, std::u16string_view text)
{
    if (m_nState == Inline && text.size() <= kInlineUnits)
        StoreInline(text);
    else
        Splice(index, 1, 1, text);
}

void CCorvaneValueList::Add(std::u16string_view text)
{
    if (m_nState == Empty && text.size() <= kInlineUnits)
        StoreInline(text);
    else
        Splice(GetCount(), 0, 1, text);
}

void CCorvaneValueList::Insert(std::size_t index, std::u16string_view text)
{
    if (m_nState == Empty)
        Add(text);
    else
        Splice(index, 0, 1, text);
}

void CCorvaneValueList::Remove(std::size_t index)
{
    if (GetCount() == 1)
        Clear();
    else
        Splice(index, 1, 0, {});
}

void CCorvaneValueList::Clear()
{
    FreeHeap();
    m_nState = Empty;
    m_nLength = 0;
}

void CCorvaneValueList::Splice(std::size_t index, std::size_t removed, std::size_t inserted,
                               std::u16string_view text)
{
    const bool own = m_nState == OnHeap ? GetBlock()->Holds(text)
                                        : text.data() >= m_Text && text.data() < m_Text + kInlineUnits;
    const std::u16string copy(own ? text : std::u16string_view());
    if (own)
        text = copy;
    MoveToHeap(text.size());
    SBlock& block = *GetBlock();
    const std::size_t start = block.GetStart(index);
    const std::size_t oldEnd = block.GetStart(index + removed);
    const std::size_t newEnd = start + text.size();
    std::memmove(block.GetText() + newEnd, block.GetText() + oldEnd,
                 (block.GetUnits() - oldEnd) * sizeof(char16_t));
    std::copy(text.begin(), text.end(), block.GetText() + start);

    std::uint32_t* ends = block.GetEnds();
    std::memmove(ends + index + inserted, ends + index + removed,
                 (block.m_nCount - index - removed) * sizeof *ends);
    block.m_nCount = static_cast<std::uint32_t>(block.m_nCount - removed + inserted);
    for (std::size_t i = index + inserted; i < block.m_nCount; ++i)
        ends[i] = static_cast<std::uint32_t>(ends[i] + newEnd - oldEnd);
    if (inserted != 0)
        ends[index] = static_cast<std::uint32_t>(newEnd);
}

CCorvaneValueList::SBlock* CCorvaneValueList::GetBlock() const
{
    SBlock* block = nullptr;
    std::memcpy(&block, m_Text, sizeof block);
    return block;
}

void CCorvaneValueList::SetBlock(SBlock* block)
{
    std::memcpy(m_Text, &block, sizeof block);
    m_nState = OnHeap;
}

// Makes sure of a block with room for one more text of so many units. The first block is exact, since most
// lists never grow; later ones double.
void CCorvaneValueList::MoveToHeap(std::size_t moreUnits)
{
    if (m_nState != OnHeap)
    {
        SBlock* block = SBlock::Create(m_nState + std::size_t{1}, m_nLength + moreUnits);
        if (m_nState == Inline)
        {
            block->m_nCount = 1;
            block->GetEnds()[0] = m_nLength;
            std::copy_n(m_Text, m_nLength, block->GetText());
        }
        SetBlock(block);
        return;
    }
    SBlock* block = GetBlock();
    const std::size_t units = block->GetUnits() + moreUnits;
    if (block->m_nCount < block->m_nMaxCount && units <= block->m_nMaxUnits)
        return;
    const std::size_t count =
        block->m_nCount < block->m_nMaxCount ? block->m_nMaxCount : block->m_nCount * 2U;
    SetBlock(block->Copy(
        count, std::max<std::size_t>(units, std::min(units * 2, block->m_nMaxUnits * std::size_t{2}))));
    ::operator delete(block);
}

void CCorvaneValueList::StoreInline(std::u16string_view text)
{
    // The text may be a view without data, and may lie in this very list.
    std::char_traits<char16_t>::move(m_Text, text.data(), text.size());
    m_nLength = static_cast<std::uint8_t>(text.size());
    m_nState = Inline;
}

void CCorvaneValueList::FreeHeap()
{
    if (m_nState == OnHeap)
        ::operator delete(GetBlock());
}
