// The record that an event is about, as links name it: by its record path or by its display path, in any
// letter case. A link keeps either, and both must answer alike.
#pragma once

#include <string>
#include <string_view>

class CCorvaneEvent;
class CCorvaneRecord;

// The value of a link that names nothing; the empty text reads as this one.
inline constexpr std::u16string_view kNoRecord = u"<none>";

[[nodiscard]] bool IsNoRecord(std::u16string_view value);

class CLinkTarget
{
public:
    // For a rename, the texts are those that stood before it, and each has its own new form.
    explicit CLinkTarget(const CCorvaneEvent& event);

    // What a value that names the record becomes when the event is repaired; a view without data for a value
    // that needs no repair.
    [[nodiscard]] std::u16string_view GetReplacement(std::u16string_view value) const;
    [[nodiscard]] bool Names(std::u16string_view value) const;

    [[nodiscard]] const std::u16string& GetRecordPath() const { return m_sRecordPath; }
    [[nodiscard]] const std::u16string& GetDisplayPath() const { return m_sDisplayPath; }

private:
    void TakeRename(const CCorvaneRecord& record, std::u16string_view oldDisplayPath,
                    std::u16string_view newDisplayPath);

    std::u16string m_sRecordPath;
    std::u16string m_sDisplayPath;
    std::u16string m_sNewRecordPath{kNoRecord};
    std::u16string m_sNewDisplayPath{kNoRecord};
};
