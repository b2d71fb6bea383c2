// The identifiers of a string table that begin with a text, for the list below a field: all of them, in the
// order of the table. They are kept as the table has them and made into wide text one by one, so that a table
// of 100,000 is listed between two keystrokes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class CGlossarState;

class CCorvaneTypeStringIDValueList
{
public:
    // Lists anew; empty when the table that `glossar` has open tells of none.
    void Update(CGlossarState& glossar, std::u16string_view prefix);

    [[nodiscard]] std::size_t GetCount() const { return m_Ends.size(); }
    // `index` is below GetCount.
    [[nodiscard]] std::u16string GetIdentifier(std::size_t index) const;

private:
    std::string m_sNames; // One behind the other.
    std::vector<std::size_t> m_Ends;
};
