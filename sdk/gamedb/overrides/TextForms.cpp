#include "TextForms.h"

#include "DataTokens.h"
#include "OverrideCursor.h"
#include "OverrideError.h"
#include "OverrideNumbers.h"
#include "Utf8.h"

#include <algorithm>

namespace
{
struct STypePhrase
{
    std::string_view word;
    const char* phrase;
};
constexpr STypePhrase kPhrases[] = {{"File", "Path of a file below the game's resources"},
                                    {"Effect", "Name of an effect, or \"<none>\""},
                                    {"StringID", "Identifier of a text of the game, or \"<none>\""}};

std::string Join(const std::vector<std::string_view>& words)
{
    std::string text;
    for (const std::string_view word : words)
    {
        if (!text.empty())
            text += ", ";
        AppendText(text, word);
    }
    return text;
}
} // namespace

CTextForm::CTextForm(const SOverrideAttribute& attribute) : m_sTypeWord(attribute.typeWord)
{
    if (attribute.limits != EOverrideLimits::Text)
        return;
    m_nMinimum = static_cast<std::uint32_t>(std::max(AsInteger(attribute.minimum), 0));
    if (AsInteger(attribute.maximum) >= 0)
        m_nMaximum = attribute.maximum;
}

void CTextForm::Write(const SOverrideValue& value, std::string& out) const
{
    AppendQuoted(out, value.text);
}

bool CTextForm::Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const
{
    return cursor.TakeText(",", value.text, error);
}

bool CTextForm::Check(const SOverrideValue& value, const IOverrideUse&, SOverrideError& error) const
{
    const std::size_t length = ToUtf16(value.text).size();
    if (length > m_nMaximum)
        return error.Set(EOverrideCause::OutOfLimits, "the text has " + std::to_string(length) +
                                                          " characters, at most " +
                                                          std::to_string(m_nMaximum) + " are allowed");
    if (length < m_nMinimum)
        return error.Set(EOverrideCause::OutOfLimits, "the text has " + std::to_string(length) +
                                                          " characters, at least " +
                                                          std::to_string(m_nMinimum) + " are wanted");
    return true;
}

std::vector<std::string> CTextForm::Describe() const
{
    const auto* const known = std::find_if(std::begin(kPhrases), std::end(kPhrases),
                                           [&](const STypePhrase& p) { return p.word == m_sTypeWord; });
    std::string phrase = known == std::end(kPhrases) ? "Text" : known->phrase;
    if (m_nMaximum != 0xFFFFFFFF)
        phrase += " of at most " + std::to_string(m_nMaximum) + " characters";
    return {phrase};
}

CEnumForm::CEnumForm(const SOverrideAttribute& attribute)
{
    constexpr std::string_view kExtension = ".enum";
    const std::string_view data = attribute.data;
    m_bFile = data.size() >= kExtension.size() &&
              EqualAscii(data.substr(data.size() - kExtension.size()), kExtension);
    if (m_bFile)
        return;
    for (std::string_view word : SplitData(data))
        m_Words.push_back(word.substr(0, word.find_last_not_of(" \t\n\v\f\r") + 1));
}

void CEnumForm::Write(const SOverrideValue& value, std::string& out) const
{
    AppendText(out, value.text);
}

bool CEnumForm::Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const
{
    if (!cursor.TakeText(",", value.text, error))
        return false;
    if (std::find(m_Words.begin(), m_Words.end(), value.text) != m_Words.end())
        return true;
    // A game compares as it likes, so that it gets the word as the list has it.
    const auto known = std::find_if(m_Words.begin(), m_Words.end(),
                                    [&](std::string_view word) { return EqualAscii(word, value.text); });
    if (known != m_Words.end())
        value.text = *known;
    return true;
}

bool CEnumForm::Check(const SOverrideValue& value, const IOverrideUse& use, SOverrideError& error) const
{
    if (std::find(m_Words.begin(), m_Words.end(), value.text) != m_Words.end())
        return true;
    if (!m_bFile)
        return error.Set(EOverrideCause::OutOfLimits,
                         QuoteForMessage(value.text) + " is none of the words " + Join(m_Words));
    if (use.IsWordInUse(value.text))
        return true;
    return error.Set(EOverrideCause::OutOfLimits,
                     QuoteForMessage(value.text) + " is no word that the game uses for this setting");
}

std::vector<std::string> CEnumForm::Describe() const
{
    if (m_bFile)
        return {"A word that the game uses for this setting, in the same letter case"};
    return {"One of the words " + Join(m_Words)};
}

CLinkForm::CLinkForm(const SOverrideAttribute& attribute) : m_Schemas(SplitData(attribute.data)) {}

bool CLinkForm::IsNone(std::string_view path)
{
    return path.empty() || EqualAscii(path, "<none>");
}

void CLinkForm::Write(const SOverrideValue& value, std::string& out) const
{
    AppendText(out, IsNone(value.text) ? "<none>" : std::string_view(value.text));
}

bool CLinkForm::Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const
{
    return cursor.TakeText(",", value.text, error);
}

bool CLinkForm::Check(const SOverrideValue& value, const IOverrideUse& use, SOverrideError& error) const
{
    if (IsNone(value.text))
        return true;
    const std::optional<std::string_view> schema = use.FindSchemaOf(value.text);
    if (!schema)
        return error.Set(EOverrideCause::OutOfLimits, "there is no record " + QuoteForMessage(value.text));
    bool isPublic = false;
    for (std::string_view name : m_Schemas)
    {
        const bool isPrivate = TakePrefix(name, "private ");
        isPublic = isPublic || !isPrivate;
        if (!isPrivate)
            static_cast<void>(TakePrefix(name, "public "));
        if (EqualAscii(name, *schema))
            return true;
    }
    if (isPublic && use.IsSchemaInUse(*schema))
        return true;
    return error.Set(EOverrideCause::OutOfLimits,
                     "the record " + QuoteForMessage(value.text) + " is of a kind that is not allowed here");
}

std::vector<std::string> CLinkForm::Describe() const
{
    std::string line = "The path of a record, or <none>";
    if (!m_Schemas.empty())
        line += "; allowed kinds: " + Join(m_Schemas);
    return {line};
}
