// The words of an enumeration, in the order of their declaration and with duplicates kept. A list never
// changes once it is built, so that many attributes may share one.
#pragma once

#include "NameCompare.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

class CEnumValueList
{
public:
    // The pieces of a schema's Data text between semicolons, each without the white space at its end. A last
    // empty piece is dropped.
    [[nodiscard]] static std::shared_ptr<const CEnumValueList> FromData(std::u16string data);
    // The lines of an enum file, given without its mark; see docs/formats/enum-files.md.
    [[nodiscard]] static std::shared_ptr<const CEnumValueList> FromLines(std::u16string text);

    CEnumValueList(const CEnumValueList&) = delete;
    CEnumValueList& operator=(const CEnumValueList&) = delete;

    // The views live as long as the list.
    [[nodiscard]] std::span<const std::u16string_view> GetValues() const { return m_Values; }
    // Without regard to case, in constant time.
    [[nodiscard]] bool Contains(std::u16string_view text) const { return m_Index.contains(text); }

private:
    explicit CEnumValueList(std::u16string text) : m_sText(std::move(text)) {}
    void SplitData();
    void SplitLines();
    void BuildIndex();

    std::u16string m_sText; // What the values are views of.
    std::vector<std::u16string_view> m_Values;
    std::unordered_set<std::u16string_view, CNameHash, CNameEqual> m_Index;
};
