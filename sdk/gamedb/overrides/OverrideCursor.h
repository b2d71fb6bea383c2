// Takes names and values off a line of an override text, and writes texts so that it finds them again.
//
// Blanks and tabs between the pieces do not count. A '#' outside quotes begins a note, which ends the line. A
// text stands in double quotes, with \" \\ \n \r \t and \uXXXX (four hexadecimal digits) inside, or bare.
#pragma once

#include <string>
#include <string_view>

struct SOverrideError;

class COverrideCursor
{
public:
    // `line` is well-formed UTF-8 and outlives the cursor.
    explicit COverrideCursor(std::string_view line) : m_sRest(line) {}

    // Nothing but a note is left.
    bool IsAtEnd();
    bool IsAtQuote();
    // Takes `c` when it comes next.
    bool Take(char c);
    // The run up to one of `stops`, a note or the end, without the blanks around it; may be empty.
    std::string_view TakeBare(std::string_view stops);
    // A quoted text, or a bare one up to one of `stops`. A bare text is not empty.
    [[nodiscard]] bool TakeText(std::string_view stops, std::string& text, SOverrideError& error);
    // What is left, whole or for a message.
    std::string_view GetAll() const { return m_sRest; }
    std::string GetRest() const;

private:
    void SkipBlanks();
    [[nodiscard]] bool TakeQuoted(std::string& text, SOverrideError& error);
    [[nodiscard]] bool TakeEscape(std::string& text, SOverrideError& error);
    [[nodiscard]] bool TakeCodeUnit(std::string& text, SOverrideError& error);

    std::string_view m_sRest;
};

// In quotes, with escapes for what cannot stand there.
void AppendQuoted(std::string& out, std::string_view text);
// Bare when a reader finds it again so, whatever stops it, else in quotes.
void AppendText(std::string& out, std::string_view text);
// A text for a message: in single quotes, cut to a length that suits it, without control characters.
[[nodiscard]] std::string QuoteForMessage(std::string_view text);
