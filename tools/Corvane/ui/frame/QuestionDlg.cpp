#include "QuestionDlg.h"

#include "IconSet.h"
#include "QtText.h"
#include "Theme.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>
#include <span>

namespace
{
constexpr int kIconSize = 32;
constexpr int kTextWidth = 440;
// A longer text scrolls, and of one without end a part is shown.
constexpr qsizetype kLongText = 1200;
constexpr qsizetype kManyLines = 16;
constexpr qsizetype kLongestText = 100000;

struct SButton
{
    EAnswer m_Answer;
    const char* m_sLabel;
};

constexpr SButton kOk[] = {{EAnswer::Ok, QT_TR_NOOP("OK")}};
constexpr SButton kOkCancel[] = {{EAnswer::Ok, QT_TR_NOOP("OK")}, {EAnswer::Cancel, QT_TR_NOOP("Cancel")}};
constexpr SButton kYesNo[] = {{EAnswer::Yes, QT_TR_NOOP("&Yes")}, {EAnswer::No, QT_TR_NOOP("&No")}};
constexpr SButton kYesNoCancel[] = {{EAnswer::Yes, QT_TR_NOOP("&Yes")},
                                    {EAnswer::No, QT_TR_NOOP("&No")},
                                    {EAnswer::Cancel, QT_TR_NOOP("Cancel")}};
constexpr SButton kAbortRetryIgnore[] = {{EAnswer::Abort, QT_TR_NOOP("&Abort")},
                                         {EAnswer::Retry, QT_TR_NOOP("&Retry")},
                                         {EAnswer::Ignore, QT_TR_NOOP("&Ignore")}};

std::span<const SButton> GetButtons(EButtons buttons)
{
    switch (buttons)
    {
    case EButtons::Ok:
        return kOk;
    case EButtons::OkCancel:
        return kOkCancel;
    case EButtons::YesNo:
        return kYesNo;
    case EButtons::YesNoCancel:
        return kYesNoCancel;
    case EButtons::AbortRetryIgnore:
        break;
    }
    return kAbortRetryIgnore;
}

bool HasAnswer(EButtons buttons, EAnswer answer)
{
    const std::span<const SButton> all = GetButtons(buttons);
    return std::any_of(all.begin(), all.end(),
                       [&](const SButton& button) { return button.m_Answer == answer; });
}

const char* GetIconName(EIcon icon)
{
    switch (icon)
    {
    case EIcon::Information:
        return "information";
    case EIcon::Question:
        return "question";
    case EIcon::Exclamation:
        return "warning";
    case EIcon::Stop:
        return "error";
    case EIcon::None:
        break;
    }
    return nullptr;
}

QString GetButtonLabel(const CQuestion& question, const SButton& button)
{
    if (button.m_Answer == EAnswer::Yes && !question.m_sYes.empty())
        return ToQString(question.m_sYes);
    if (button.m_Answer == EAnswer::No && !question.m_sNo.empty())
        return ToQString(question.m_sNo);
    return CQuestionDlg::tr(button.m_sLabel);
}
} // namespace

CQuestionDlg::CQuestionDlg(const CQuestion& question, QWidget* parent)
    : QDialog(parent), m_Question(question), m_pButtons(new QDialogButtonBox(this)),
      m_Answer(question.m_Unattended)
{
    setObjectName(QStringLiteral("CQuestionDlg"));
    setWindowTitle(ToQString(question.m_sTitle));
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(CTheme::kMargin, CTheme::kMargin, CTheme::kMargin, CTheme::kMargin);
    layout->setHorizontalSpacing(CTheme::kMargin);
    layout->setVerticalSpacing(CTheme::kMargin);
    layout->setColumnStretch(1, 1);
    if (const char* name = GetIconName(question.m_Icon))
    {
        auto* icon = new QLabel(this);
        icon->setPixmap(GetIcon(name).pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
        layout->addWidget(icon, 0, 0, Qt::AlignTop);
    }
    int row = 0;
    layout->addWidget(MakeText(ToQString(question.m_sText)), row++, 1);
    if (!question.m_sFile.empty())
        layout->addWidget(MakeFile(ToQString(question.m_sFile)), row++, 1);
    if (!question.m_sWarning.empty())
        layout->addWidget(MakeWarning(ToQString(question.m_sWarning)), row++, 1);
    layout->setRowStretch(row++, 1);
    AddButtons(question);
    layout->addWidget(m_pButtons, row, 0, 1, 2);
}

QWidget* CQuestionDlg::MakeText(const QString& text)
{
    const QString shown = text.size() > kLongestText ? text.left(kLongestText) + QChar(0x2026) : text;
    if (shown.size() <= kLongText && shown.count(u'\n') <= kManyLines)
        return MakeLabel(shown, "text");
    auto* edit = new QPlainTextEdit(shown, this);
    edit->setObjectName(QStringLiteral("text"));
    edit->setAccessibleName(windowTitle());
    edit->setReadOnly(true);
    edit->setMinimumSize(kTextWidth, kTextWidth / 2);
    return edit;
}

QLabel* CQuestionDlg::MakeLabel(const QString& text, const char* name)
{
    auto* label = new QLabel(text, this);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A short text gives a small box; a long one, which may be one long path, breaks anywhere.
    const int width = label->sizeHint().width();
    label->setWordWrap(true);
    label->setMinimumWidth(std::min(width, kTextWidth));
    return label;
}

QWidget* CQuestionDlg::MakeFile(const QString& path)
{
    auto* edit = new QLineEdit(path, this);
    edit->setObjectName(QStringLiteral("file"));
    edit->setAccessibleName(tr("File"));
    edit->setReadOnly(true);
    edit->setToolTip(path.left(kLongText));
    edit->setMinimumWidth(kTextWidth);
    return edit;
}

QWidget* CQuestionDlg::MakeWarning(const QString& warning)
{
    QLabel* label = MakeLabel(warning, "warning");
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, CTheme::Get().GetColor(EThemeColor::Critical));
    label->setPalette(palette);
    return label;
}

void CQuestionDlg::AddButtons(const CQuestion& question)
{
    for (const SButton& entry : GetButtons(question.m_Buttons))
    {
        // All have one role, so that they stand in the order in which they are told.
        QPushButton* button =
            m_pButtons->addButton(GetButtonLabel(question, entry), QDialogButtonBox::ActionRole);
        button->setObjectName(QStringLiteral("answer%1").arg(static_cast<int>(entry.m_Answer)));
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, [this, answer = entry.m_Answer] { Answer(answer); });
        if (entry.m_Answer != question.m_Unattended)
            continue;
        button->setDefault(true);
        button->setFocus();
    }
}

void CQuestionDlg::Answer(EAnswer answer)
{
    m_Answer = answer;
    accept();
}

void CQuestionDlg::reject()
{
    m_Answer = HasAnswer(m_Question.m_Buttons, EAnswer::Cancel) ? EAnswer::Cancel : m_Question.m_Unattended;
    QDialog::reject();
}

void CQuestionDlg::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        Copy();
    else
        QDialog::keyPressEvent(event);
}

// For a bug report or a colleague.
void CQuestionDlg::Copy() const
{
    std::u16string text = m_Question.m_sTitle;
    for (const std::u16string* part : {&m_Question.m_sText, &m_Question.m_sFile, &m_Question.m_sWarning})
        if (!part->empty())
            text.append(u"\n\n").append(*part);
    QGuiApplication::clipboard()->setText(ToQString(text));
}
