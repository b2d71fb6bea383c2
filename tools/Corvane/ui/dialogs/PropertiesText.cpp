#include "PropertiesText.h"

#include "QtText.h"
#include "Theme.h"
#include "TipText.h"

#include <QTextDocument>

namespace
{
constexpr int kLines = 4;
constexpr int kMinLines = 2;

QSize GetSize(const QPlainTextEdit& edit, int lines)
{
    const int height = lines * edit.fontMetrics().lineSpacing();
    return {20 * CTheme::kRowHeight, height + 2 * edit.frameWidth() + 2 * CTheme::kGrid};
}
} // namespace

CPropertiesText::CPropertiesText(QWidget* parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
}

void CPropertiesText::SetText(std::u16string_view text, const QString& whyNot)
{
    const bool tooLong = text.size() > kMaxText;
    const bool fixed = tooLong || !whyNot.isEmpty();
    setPlainText(LimitText(ToQString(text), kMaxText));
    setReadOnly(fixed);
    // A read-only text can still be read with the keyboard.
    if (fixed)
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    viewport()->setBackgroundRole(fixed ? QPalette::Window : QPalette::Base);
    setToolTip(tooLong ? tr("The text is too long to be changed here.") : whyNot);
    document()->setModified(false);
}

bool CPropertiesText::IsChanged() const
{
    return !isReadOnly() && document()->isModified();
}

std::u16string CPropertiesText::GetText() const
{
    return ToText(toPlainText().replace(u'\n', QStringLiteral("\r\n")));
}

QSize CPropertiesText::sizeHint() const
{
    return GetSize(*this, kLines);
}

QSize CPropertiesText::minimumSizeHint() const
{
    return {0, GetSize(*this, kMinLines).height()};
}
