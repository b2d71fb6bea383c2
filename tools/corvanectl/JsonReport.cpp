#include "JsonReport.h"

namespace
{
constexpr std::int64_t kFormat = 1;
} // namespace

CJsonReport::CJsonReport(std::u16string_view rootFile, bool loaded) : m_Json(m_Out)
{
    m_Json.BeginObject(ELayout::Lines);
    Number("format", kFormat);
    Text("root", rootFile);
    Flag("loaded", loaded);
}

void CJsonReport::Text(std::string_view key, std::u16string_view text)
{
    m_Json.Key(key);
    m_Json.Text(text);
}

void CJsonReport::TextIfAny(std::string_view key, std::u16string_view text)
{
    if (!text.empty())
        Text(key, text);
}

void CJsonReport::Texts(std::string_view key, std::span<const std::u16string> texts)
{
    BeginList(key, ELayout::Inline);
    for (const std::u16string& text : texts)
        m_Json.Text(std::u16string_view(text));
    EndList();
}

void CJsonReport::Number(std::string_view key, std::int64_t number)
{
    m_Json.Key(key);
    m_Json.Integer(number);
}

void CJsonReport::Flag(std::string_view key, bool flag)
{
    m_Json.Key(key);
    m_Json.Boolean(flag);
}

void CJsonReport::FlagIfSet(std::string_view key, bool flag)
{
    if (flag)
        Flag(key, true);
}

void CJsonReport::BeginList(std::string_view key, ELayout layout)
{
    m_Json.Key(key);
    m_Json.BeginArray(layout);
}

void CJsonReport::BeginObject(std::string_view key, ELayout layout)
{
    m_Json.Key(key);
    m_Json.BeginObject(layout);
}

std::string CJsonReport::Finish(std::span<const CMessageCollector::SMessage> messages)
{
    BeginList("messages");
    for (const CMessageCollector::SMessage& message : messages)
    {
        BeginObject(ELayout::Inline);
        Text("title", message.m_sTitle);
        Text("text", message.m_sText);
        EndObject();
    }
    EndList();
    m_Json.EndObject();
    return m_Out.str();
}
