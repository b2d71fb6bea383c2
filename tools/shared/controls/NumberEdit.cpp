#include "NumberEdit.h"

#include "NumberText.h"
#include "QtText.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr int kShownDigits = 12;
constexpr int kFewestDigits = 4;

// A limit pair may come from a schema the wrong way round; the upper one counts then, as in a chain of
// clamps.
template <class T> T Clamp(T value, T least, T most)
{
    return std::min(std::max(value, least), most);
}
} // namespace

FNumberRule MakeIntegerRule(std::int32_t least, std::int32_t most)
{
    return [least, most](std::u16string_view text)
    { return FormatInteger(Clamp(ParseInteger(text), least, most)); };
}

FNumberRule MakeFloatRule(float least, float most)
{
    return [least, most](std::u16string_view text)
    { return FormatFloat(static_cast<double>(Clamp(ParseFloat(text), least, most))); };
}

FNumberRule MakeWholeRule(float least, float most)
{
    return [least, most](std::u16string_view text)
    {
        const double whole = std::floor(static_cast<double>(Clamp(ParseFloat(text), least, most)));
        return FormatInteger(static_cast<std::int32_t>(
            std::clamp(whole, static_cast<double>(std::numeric_limits<std::int32_t>::min()),
                       static_cast<double>(std::numeric_limits<std::int32_t>::max()))));
    };
}

CNumberEdit::CNumberEdit(FNumberRule rule, QWidget* parent) : QLineEdit(parent), m_Rule(std::move(rule))
{
    Rewrite();
    connect(this, &QLineEdit::editingFinished, this, [this] { Rewrite(); });
    connect(this, &QLineEdit::textEdited, this, [this] { CorrectTyped(); });
}

void CNumberEdit::SetRule(FNumberRule rule)
{
    m_Rule = std::move(rule);
    Rewrite();
}

std::u16string CNumberEdit::GetNumberText() const
{
    return m_Rule(ToText(text()));
}

std::int32_t CNumberEdit::GetInteger() const
{
    return ParseInteger(GetNumberText());
}

float CNumberEdit::GetFloat() const
{
    return ParseFloat(GetNumberText());
}

void CNumberEdit::SetNumberText(std::u16string_view text)
{
    const QString shown = ToQString(m_Rule(text));
    if (shown != QLineEdit::text())
        setText(shown);
}

void CNumberEdit::SetInteger(std::int32_t value)
{
    SetNumberText(FormatInteger(value));
}

void CNumberEdit::SetFloat(float value)
{
    SetNumberText(FormatFloat(static_cast<double>(value)));
}

void CNumberEdit::Rewrite()
{
    SetNumberText(ToText(text()));
}

void CNumberEdit::CorrectTyped()
{
    if (!m_bCorrectWhileTyping)
        return;
    const std::u16string typed = ToText(text());
    std::u16string_view rest = typed;
    std::int32_t value = 0;
    if (TakeInteger(rest, value) && value != GetInteger())
        Rewrite();
}

QSize CNumberEdit::sizeHint() const
{
    const int digits = std::min(maxLength(), kShownDigits);
    const int spare = QLineEdit::sizeHint().width() - 17 * fontMetrics().horizontalAdvance(u'x');
    return {fontMetrics().horizontalAdvance(QString(digits, u'8')) + std::max(spare, 0) + 4,
            QLineEdit::sizeHint().height()};
}

QSize CNumberEdit::minimumSizeHint() const
{
    const int spare = sizeHint().width() - fontMetrics().horizontalAdvance(QString(kShownDigits, u'8'));
    return {fontMetrics().horizontalAdvance(QString(kFewestDigits, u'8')) + std::max(spare, 0),
            QLineEdit::minimumSizeHint().height()};
}
