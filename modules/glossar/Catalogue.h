// A compiled GNU gettext catalogue (.mo) in memory, used in place; docs/formats/string-tables.md tells which
// of its entries are identifiers. Everything is checked once, when it is opened, so that the look-ups need no
// check.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

class CCatalogue
{
public:
    // Nothing when the bytes are no whole catalogue of either byte order, sorted by its identifiers. They
    // must outlive the object and may stand at any address. The work is linear in their number.
    [[nodiscard]] static std::optional<CCatalogue> Open(std::span<const std::byte> bytes);

    [[nodiscard]] bool HasIdentifier(std::string_view identifier) const;
    // Calls `take` with each identifier that begins with `prefix`, in the order of their bytes; the texts are
    // terminated. True when there was any.
    template <class Take> bool ForEachIdentifier(std::string_view prefix, Take take) const
    {
        bool found = false;
        for (std::uint32_t i = FindFirst(prefix); i < m_nCount && GetKey(i).starts_with(prefix); ++i)
        {
            if (!IsIdentifier(GetKey(i)))
                continue;
            take(GetKey(i));
            found = true;
        }
        return found;
    }

private:
    explicit CCatalogue(std::span<const std::byte> bytes) : m_Bytes(bytes) {}

    [[nodiscard]] bool ReadHeader();
    // Checks one of the two tables; `isSorted` asks for keys in ascending order.
    [[nodiscard]] bool CheckTable(std::uint32_t table, bool isSorted) const;
    [[nodiscard]] bool CheckText(std::uint32_t length, std::uint32_t offset) const;
    [[nodiscard]] std::uint32_t ReadNumber(std::size_t offset) const;
    // What an entry is found by: its original text up to the first zero byte, behind which stands a plural.
    [[nodiscard]] std::string_view GetKey(std::uint32_t index) const;
    // The first entry whose key is not less than `key`.
    [[nodiscard]] std::uint32_t FindFirst(std::string_view key) const;
    // Neither the catalogue's header nor an entry with a context.
    [[nodiscard]] static bool IsIdentifier(std::string_view key);

    std::span<const std::byte> m_Bytes;
    bool m_bSwapped = false; // Written on a machine of the other byte order.
    std::uint32_t m_nCount = 0;
    std::uint32_t m_nOriginals = 0; // Offset of the table of original texts.
};
