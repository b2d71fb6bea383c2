// The values of one attribute, each a text in its type's form.
//
// One short value, the common case by far, lies inside the object; everything else lies in one heap block,
// all texts behind one another. Views that are handed out live until the list changes. Indices count from 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

class CCorvaneValueList
{
public:
    CCorvaneValueList() = default;
    CCorvaneValueList(const CCorvaneValueList& other);
    CCorvaneValueList(CCorvaneValueList&& other) noexcept;
    CCorvaneValueList& operator=(const CCorvaneValueList& other);
    CCorvaneValueList& operator=(CCorvaneValueList&& other) noexcept;
    ~CCorvaneValueList() { FreeHeap(); }

    [[nodiscard]] std::size_t GetCount() const;
    // `index` must be below the count.
    [[nodiscard]] std::u16string_view Get(std::size_t index) const;
    // Texts may lie in this very list.
    void Set(std::size_t index, std::u16string_view text);
    void Add(std::u16string_view text);
    // `index` may equal the count.
    void Insert(std::size_t index, std::u16string_view text);
    void Remove(std::size_t index);
    void Clear();

private:
    struct SBlock;
    static constexpr std::size_t kInlineUnits = 11;
    enum EState : std::uint8_t
    {
        Empty,
        Inline,
        OnHeap
    };

    [[nodiscard]] SBlock* GetBlock() const;
    void SetBlock(SBlock* block);
    // Puts `inserted` texts (0 or 1) in the place of `removed` ones (0 or 1) at `index`.
    void Splice(std::size_t index, std::size_t removed, std::size_t inserted, std::u16string_view text);
    void MoveToHeap(std::size_t moreUnits);
    void StoreInline(std::u16string_view text);
    void FreeHeap();

    // The block's pointer lies in m_Text while the state is OnHeap.
    std::uint8_t m_nState = Empty;
    std::uint8_t m_nLength = 0;
    char16_t m_Text[kInlineUnits] = {};
};
