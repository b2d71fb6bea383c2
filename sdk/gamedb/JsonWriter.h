// Writes JSON to a stream, token by token, and keeps nothing of it but the open brackets.
//
// The caller sees to the grammar: a key before each value in an object, one value at the top. The output is
// valid JSON for any text: a byte sequence that is not UTF-8 and a surrogate that stands alone become U+FFFD.
// A failed stream swallows the rest; look at its state at the end.
#pragma once

#include <cstdint>
#include <ostream>
#include <string_view>
#include <vector>

class CJsonWriter
{
public:
    // How the elements of an object or an array are laid out: one a line with two more blanks ahead, or all
    // on one line.
    enum class ELayout
    {
        Lines,
        Inline,
    };

    // `out` outlives the writer.
    explicit CJsonWriter(std::ostream& out) : m_Out(out) {}

    void BeginObject(ELayout layout) { Begin('{', layout); }
    void EndObject() { End('}'); }
    void BeginArray(ELayout layout) { Begin('[', layout); }
    void EndArray() { End(']'); }

    void Key(std::string_view name);
    void Text(std::string_view utf8);
    void Text(std::u16string_view utf16);
    void Integer(std::int64_t value);
    // The shortest digits that read back as the same value. JSON has no infinities and no NaN: they are
    // written as the texts "inf", "-inf" and "nan".
    void Float(float value);
    void Boolean(bool value);
    void Null();

private:
    struct SLevel
    {
        ELayout layout;
        bool isEmpty;
    };

    void Begin(char bracket, ELayout layout);
    void End(char bracket);
    // Separates the next key or value from what stands before it.
    void Separate();
    void NewLine();
    void Quoted(std::string_view utf8);

    std::ostream& m_Out;
    std::vector<SLevel> m_Levels;
    bool m_bAfterKey = false;
};
