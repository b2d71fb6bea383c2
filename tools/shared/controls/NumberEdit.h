// A field that holds the text of a number. Each time that it loses the focus, or Return is pressed, it reads
// its text and writes what it has read, so that it can never keep anything but a number. Texts are read and
// written as values of records are, whatever the user's locale is.
#pragma once

#include <QLineEdit>
#include <functional>
#include <limits>
#include <string>
#include <string_view>

// Reads any text and gives that of the number which it stands for.
using FNumberRule = std::function<std::u16string(std::u16string_view text)>;

// "%d", brought to the nearer limit. Limits are inclusive.
[[nodiscard]] FNumberRule MakeIntegerRule(std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                                          std::int32_t most = std::numeric_limits<std::int32_t>::max());
// "%f", brought to the nearer limit.
[[nodiscard]] FNumberRule MakeFloatRule(float least = std::numeric_limits<float>::lowest(),
                                        float most = std::numeric_limits<float>::max());
// Brought to the nearer limit as a float, then rounded down and written with "%d".
[[nodiscard]] FNumberRule MakeWholeRule(float least, float most);

class CNumberEdit : public QLineEdit
{
public:
    // Begins with what the rule makes of the empty text.
    explicit CNumberEdit(FNumberRule rule, QWidget* parent = nullptr);

    void SetRule(FNumberRule rule);
    // For integers: a number that the rule changes is corrected at once, while the user types. An empty field
    // stays empty until the focus goes.
    void SetCorrectWhileTyping(bool correct) { m_bCorrectWhileTyping = correct; }

    // By the rule, also while the field's text is not rewritten yet.
    [[nodiscard]] std::u16string GetNumberText() const;
    [[nodiscard]] std::int32_t GetInteger() const;
    [[nodiscard]] float GetFloat() const;
    // Shows what the rule makes of it.
    void SetNumberText(std::u16string_view text);
    void SetInteger(std::int32_t value);
    void SetFloat(float value);

    void Rewrite();
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    void CorrectTyped();

    FNumberRule m_Rule;
    bool m_bCorrectWhileTyping = false;
};
