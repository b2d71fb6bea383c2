// The records that a person chose last as targets of one link attribute: up to four paths for each schema and
// attribute name, newest first, in the user's own settings of the database.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class CCorvaneTypeRecordLink;

class CRecordLinkMru
{
public:
    // The link is not owned and may be null. Without a link, or when its record is in no category with a
    // schema, an assertion fires and nothing is read or written.
    explicit CRecordLinkMru(const CCorvaneTypeRecordLink* pRecordLink) : m_pRecordLink(pRecordLink) {}

    // Puts the path in front and writes the settings to disk. A path that was there moves; the oldest goes.
    void Save(std::u16string_view recordPath) const;
    // Newest first. A record that is gone is left out, and its entry stays.
    [[nodiscard]] std::vector<std::u16string> Load() const;

private:
    static constexpr int kSlots = 4;

    // "Schema@Attribute"; empty after a failed assertion.
    [[nodiscard]] std::u16string GetKey() const;

    const CCorvaneTypeRecordLink* m_pRecordLink;
};
