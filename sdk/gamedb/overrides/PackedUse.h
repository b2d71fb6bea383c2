// What the packed database holds in the attributes of one name, for checks that the limits file alone cannot
// decide. Found by one walk of the database at the first question about a name.
#pragma once

#include "OverrideForm.h"

#include <map>
#include <string>
#include <unordered_set>

struct SPackedTables;

class CPackedUse
{
public:
    // `tables` outlives the object.
    explicit CPackedUse(const SPackedTables& tables) : m_Tables(tables) {}

    // `attribute` is the name by which its record finds it. Members of a struct have the same name in all
    // rows.
    bool IsWordInUse(std::string_view attribute, std::string_view word);
    bool IsSchemaInUse(std::string_view attribute, std::string_view schema);
    const SPackedTables& GetTables() const { return m_Tables; }

private:
    struct SUse
    {
        std::unordered_set<std::string> words;
        std::unordered_set<std::string> schemas;
    };

    const SUse& UseOf(std::string_view attribute);
    void AddValues(SUse& use, std::uint32_t record, std::uint32_t position) const;

    const SPackedTables& m_Tables;
    std::map<std::string, SUse> m_Uses;
};
