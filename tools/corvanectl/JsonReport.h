// The frame that the JSON reports of all sub-commands share: one object that begins with the form's number
// and the root file and ends with the messages. docs/corvanectl.md describes the fields.
#pragma once

#include "JsonWriter.h"
#include "MessageCollector.h"

#include <span>
#include <sstream>
#include <string>
#include <string_view>

class CJsonReport
{
public:
    using ELayout = CJsonWriter::ELayout;

    CJsonReport(std::u16string_view rootFile, bool loaded);

    // Fields of the innermost object.
    void Text(std::string_view key, std::u16string_view text);
    // The field is left out for an empty text.
    void TextIfAny(std::string_view key, std::u16string_view text);
    void Texts(std::string_view key, std::span<const std::u16string> texts);
    void Number(std::string_view key, std::int64_t number);
    void Flag(std::string_view key, bool flag);
    // The field is left out for false.
    void FlagIfSet(std::string_view key, bool flag);

    void BeginList(std::string_view key, ELayout layout = ELayout::Lines);
    void EndList() { m_Json.EndArray(); }
    // An object, as an element of a list or under a key.
    void BeginObject(ELayout layout = ELayout::Lines) { m_Json.BeginObject(layout); }
    void BeginObject(std::string_view key, ELayout layout);
    void EndObject() { m_Json.EndObject(); }
    [[nodiscard]] CJsonWriter& GetWriter() { return m_Json; }

    // The whole report, with the messages; nothing may be written behind them.
    [[nodiscard]] std::string Finish(std::span<const CMessageCollector::SMessage> messages);

private:
    std::ostringstream m_Out;
    CJsonWriter m_Json;
};
