#include "PackedOverlay.h"

CPackedOverlay::CPackedOverlay(std::size_t texts, std::size_t wideTexts)
    : m_nFirstText(static_cast<std::uint32_t>(texts)),
      m_nFirstWideText(static_cast<std::uint32_t>(wideTexts)), m_Slots(std::size_t{1} << (64 - m_nShift))
{
}

void CPackedOverlay::SetWords(std::uint32_t attrib, std::vector<std::uint32_t> words)
{
    const std::vector<std::uint32_t>& kept = m_Words.emplace_back(std::move(words));
    const auto count = static_cast<std::uint32_t>(kept.size());
    Add(attrib, {count, count == 1 ? kept.front() : 0, kept.data(), nullptr});
}

void CPackedOverlay::SetFloats(std::uint32_t attrib, std::uint32_t count, std::vector<float> floats)
{
    const std::vector<float>& kept = m_Floats.emplace_back(std::move(floats));
    Add(attrib, {count, 0, nullptr, kept.data()});
}

std::uint32_t CPackedOverlay::AddText(std::string text)
{
    m_Texts.push_back(std::move(text));
    return m_nFirstText + static_cast<std::uint32_t>(m_Texts.size() - 1);
}

std::uint32_t CPackedOverlay::AddWideText(std::u16string text)
{
    m_WideTexts.push_back(std::move(text));
    return m_nFirstWideText + static_cast<std::uint32_t>(m_WideTexts.size() - 1);
}

void CPackedOverlay::Add(std::uint32_t attrib, const SPackedValues& values)
{
    m_Entries.push_back({attrib, values});
    if (m_Entries.size() * 2 <= m_Slots.size())
        return Insert(static_cast<std::uint32_t>(m_Entries.size() - 1));
    m_Slots.assign(m_Slots.size() * 2, 0);
    --m_nShift;
    for (std::uint32_t i = 0; i < m_Entries.size(); ++i)
        Insert(i);
}

std::size_t CPackedOverlay::FirstSlot(std::uint32_t attrib) const
{
    // The same attribute of record after record lies at even distances, which only the upper bits of the
    // product spread.
    return attrib * std::uint64_t{0x9E3779B97F4A7C15} >> m_nShift;
}

void CPackedOverlay::Insert(std::uint32_t entry)
{
    std::size_t slot = FirstSlot(m_Entries[entry].attrib);
    while (m_Slots[slot] != 0)
        slot = (slot + 1) & (m_Slots.size() - 1);
    m_Slots[slot] = entry + 1;
}

const SPackedValues* CPackedOverlay::Find(std::uint32_t attrib) const
{
    for (std::size_t slot = FirstSlot(attrib); m_Slots[slot] != 0; slot = (slot + 1) & (m_Slots.size() - 1))
    {
        const SEntry& entry = m_Entries[m_Slots[slot] - 1];
        if (entry.attrib == attrib)
            return &entry.values;
    }
    return nullptr;
}

const std::string* CPackedOverlay::FindText(std::uint32_t id) const
{
    return id < m_nFirstText ? nullptr : &m_Texts[id - m_nFirstText];
}

const std::u16string* CPackedOverlay::FindWideText(std::uint32_t id) const
{
    return id < m_nFirstWideText ? nullptr : &m_WideTexts[id - m_nFirstWideText];
}
