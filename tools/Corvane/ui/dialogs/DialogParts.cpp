#include "DialogParts.h"

#include "QtText.h"
#include "Theme.h"

#include <QBoxLayout>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QStyle>
#include <algorithm>
#include <limits>

namespace
{
// Long enough for a line that reads well, short enough for a small screen.
constexpr int kNoteWidth = 420;
constexpr int kBuildDigits = 10;
constexpr std::size_t kLongestCell = 512;

QLabel* MakeText(std::u16string_view text)
{
    auto* label = new QLabel(ToQString(text));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(kNoteWidth);
    return label;
}

// The text below a radio button, which is part of it for the mouse.
class CChoiceText final : public QLabel
{
public:
    CChoiceText(const QString& text, QRadioButton& button) : QLabel(text), m_Button(button)
    {
        setTextFormat(Qt::PlainText);
        setWordWrap(true);
        setMinimumWidth(kNoteWidth);
    }

protected:
    void mousePressEvent(QMouseEvent*) override
    {
        m_Button.setFocus(Qt::MouseFocusReason);
        m_Button.click();
    }

private:
    QRadioButton& m_Button;
};
} // namespace

QBoxLayout& MakeDialogLayout(QDialog& dialog)
{
    auto* layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(CTheme::kMargin, CTheme::kMargin, CTheme::kMargin, CTheme::kMargin);
    layout->setSpacing(CTheme::kSpacing);
    return *layout;
}

QLabel& AddNote(QBoxLayout& layout, std::u16string_view text)
{
    QLabel* label = MakeText(text);
    layout.addWidget(label);
    return *label;
}

QRadioButton& AddChoice(QBoxLayout& layout, const char* objectName, std::u16string_view text)
{
    const QString whole = ToQString(text);
    auto* button = new QRadioButton(whole.section(u'\n', 0, 0));
    SetNames(*button, objectName, button->text().remove(u'&'));
    button->setAccessibleDescription(whole.section(u'\n', 1));
    QFont bold = button->font();
    bold.setBold(true);
    button->setFont(bold);
    auto* choice = new QVBoxLayout;
    choice->setSpacing(0);
    choice->addWidget(button);
    auto* row = new QHBoxLayout;
    const QStyle* style = button->style();
    row->setContentsMargins(style->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) +
                                style->pixelMetric(QStyle::PM_RadioButtonLabelSpacing),
                            0, 0, CTheme::kGrid);
    row->addWidget(new CChoiceText(button->accessibleDescription(), *button));
    choice->addLayout(row);
    layout.addLayout(choice);
    return *button;
}

QDialogButtonBox& AddOkCancel(QDialog& dialog, QBoxLayout& layout)
{
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    SetNames(*buttons->button(QDialogButtonBox::Ok), "Ok", QDialog::tr("OK"));
    SetNames(*buttons->button(QDialogButtonBox::Cancel), "Cancel", QDialog::tr("Cancel"));
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    layout.addSpacing(CTheme::kGrid);
    layout.addWidget(buttons);
    // The dialog has the button by now and takes it for its default.
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    return *buttons;
}

QString MakeCellText(std::u16string_view text)
{
    QString cell = ToQString(text.substr(0, kLongestCell));
    if (text.size() > kLongestCell)
    {
        if (cell.back().isHighSurrogate())
            cell.chop(1);
        cell += QChar(0x2026);
    }
    for (QChar& unit : cell)
    {
        if (unit == u'\n' || unit == u'\r' || unit == u'\t')
            unit = u' ';
    }
    return cell;
}

void SetNames(QWidget& control, const char* objectName, const QString& accessibleName)
{
    control.setObjectName(QString::fromLatin1(objectName));
    control.setAccessibleName(accessibleName);
}

QBoxLayout& AddGroup(QBoxLayout& layout, const QString& title)
{
    auto* group = new QGroupBox(title);
    auto* inside = new QVBoxLayout(group);
    inside->setContentsMargins(CTheme::kSpacing, CTheme::kSpacing, CTheme::kSpacing, CTheme::kSpacing);
    inside->setSpacing(CTheme::kSpacing);
    layout.addWidget(group);
    return *inside;
}

CBuildNumberEdit::CBuildNumberEdit(QWidget* parent) : QLineEdit(parent)
{
    setMaxLength(kBuildDigits);
    setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), this));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

std::uint32_t CBuildNumberEdit::GetBuild() const
{
    constexpr qulonglong kLargest = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(std::min(text().toULongLong(), kLargest));
}

QSize CBuildNumberEdit::sizeHint() const
{
    const int digits = fontMetrics().horizontalAdvance(QString(kBuildDigits, u'0'));
    return {digits + 4 * CTheme::kGrid, QLineEdit::sizeHint().height()};
}
