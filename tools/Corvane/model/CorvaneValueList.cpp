#include "CorvaneValueList.h"

#include <algorithm>
#include <cstring>
#include <utility>

CCorvaneValueList::CCorvaneValueList(const CCorvaneValueList& other)
    : m_nState(other.m_nState), m_nLength(other.m_nLength)
{
    std::memcpy(m_Text, other.m_Text, sizeof m_Text);
    if (m_nState != OnHeap)
        return;
    Heap* copy = new Heap(other.GetHeap());
    std::memcpy(m_Text, &copy, sizeof copy);
}

CCorvaneValueList::CCorvaneValueList(CCorvaneValueList&& other) noexcept
    : m_nState(other.m_nState), m_nLength(other.m_nLength)
{
    std::memcpy(m_Text, other.m_Text, sizeof m_Text);
    other.m_nState = Empty;
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
    return m_nState == OnHeap ? GetHeap().size() : m_nState;
}

std::u16string_view CCorvaneValueList::Get(std::size_t index) const
{
    return m_nState == OnHeap ? std::u16string_view(GetHeap()[index])
                              : std::u16string_view(m_Text, m_nLength);
}

void CCorvaneValueList::Set(std::size_t index, std::u16string_view text)
{
    if (m_nState == Inline && text.size() <= kInlineUnits)
        StoreInline(text);
    else
        MoveToHeap()[index] = text;
}

void CCorvaneValueList::Add(std::u16string_view text)
{
    if (m_nState == Empty && text.size() <= kInlineUnits)
    {
        StoreInline(text);
        return;
    }
    std::u16string copy(text); // The text may lie in this list.
    MoveToHeap().push_back(std::move(copy));
}

void CCorvaneValueList::Insert(std::size_t index, std::u16string_view text)
{
    const std::u16string copy(text); // The text may lie in this list.
    Heap& heap = MoveToHeap();
    heap.insert(heap.begin() + static_cast<std::ptrdiff_t>(index), copy);
}

void CCorvaneValueList::Remove(std::size_t index)
{
    if (m_nState != OnHeap)
    {
        Clear();
        return;
    }
    Heap& heap = GetHeap();
    heap.erase(heap.begin() + static_cast<std::ptrdiff_t>(index));
    if (heap.empty())
        Clear();
}

void CCorvaneValueList::Clear()
{
    FreeHeap();
    m_nState = Empty;
    m_nLength = 0;
}

CCorvaneValueList::Heap& CCorvaneValueList::GetHeap() const
{
    Heap* heap = nullptr;
    std::memcpy(&heap, m_Text, sizeof heap);
    return *heap;
}

CCorvaneValueList::Heap& CCorvaneValueList::MoveToHeap()
{
    if (m_nState == OnHeap)
        return GetHeap();
    Heap* heap = new Heap;
    if (m_nState == Inline)
        heap->emplace_back(m_Text, m_nLength);
    std::memcpy(m_Text, &heap, sizeof heap);
    m_nState = OnHeap;
    return *heap;
}

void CCorvaneValueList::StoreInline(std::u16string_view text)
{
    std::copy(text.begin(), text.end(), m_Text);
    m_nLength = static_cast<std::uint8_t>(text.size());
    m_nState = Inline;
}

void CCorvaneValueList::FreeHeap()
{
    if (m_nState == OnHeap)
        delete &GetHeap();
}
