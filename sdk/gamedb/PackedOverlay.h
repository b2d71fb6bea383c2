// Values that stand in for those of a packed file, a few attributes among many. Internal to this folder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

// Where the values of an attribute lie, as an attribute of the packed file says it: one value that fits a
// word is `value` itself, else they begin there in `words` or, for vectors, in `floats`.
struct SPackedValues
{
    std::uint32_t count;
    std::uint32_t value;
    const std::uint32_t* words;
    const float* floats;
};

// Built by one thread, then read by any number.
class CPackedOverlay
{
public:
    // New texts get the numbers behind those of the file.
    CPackedOverlay(std::size_t texts, std::size_t wideTexts);

    // `attrib` is an index of the file's attributes that has no value here yet. The values of a type that
    // fits a word, or the floats of `count` vectors.
    void SetWords(std::uint32_t attrib, std::vector<std::uint32_t> words);
    void SetFloats(std::uint32_t attrib, std::uint32_t count, std::vector<float> floats);
    // The number under which a value names the text.
    std::uint32_t AddText(std::string text);
    std::uint32_t AddWideText(std::u16string text);

    std::size_t GetCount() const { return m_Entries.size(); }
    // Null for an attribute that keeps its packed values.
    const SPackedValues* Find(std::uint32_t attrib) const;
    // Null for a number of the file.
    const std::string* FindText(std::uint32_t id) const;
    const std::u16string* FindWideText(std::uint32_t id) const;

private:
    struct SEntry
    {
        std::uint32_t attrib;
        SPackedValues values;
    };

    void Add(std::uint32_t attrib, const SPackedValues& values);
    void Insert(std::uint32_t entry);
    std::size_t FirstSlot(std::uint32_t attrib) const;

    std::uint32_t m_nFirstText;
    std::uint32_t m_nFirstWideText;
    std::vector<SEntry> m_Entries;
    // The slots are two to the power of 64 less this.
    unsigned int m_nShift = 60;
    // An index of an entry plus 1, or 0.
    std::vector<std::uint32_t> m_Slots;
    // What they hold does not move when more is added.
    std::deque<std::vector<std::uint32_t>> m_Words;
    std::deque<std::vector<float>> m_Floats;
    std::deque<std::string> m_Texts;
    std::deque<std::u16string> m_WideTexts;
};
