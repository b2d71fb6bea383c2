#include "host/Questions.h"

namespace
{
EAnswer GetUnattendedAnswer(EButtons buttons)
{
    switch (buttons)
    {
    case EButtons::Ok:
        return EAnswer::Ok;
    case EButtons::OkCancel:
    case EButtons::YesNoCancel:
        return EAnswer::Cancel;
    case EButtons::YesNo:
        return EAnswer::No;
    case EButtons::AbortRetryIgnore:
        break;
    }
    return EAnswer::Abort;
}
} // namespace

CQuestion MakeQuestion(std::u16string_view title, std::u16string_view text, EButtons buttons, EIcon icon)
{
    CQuestion question;
    question.m_sTitle = title;
    question.m_sText = text;
    question.m_Buttons = buttons;
    question.m_Icon = icon;
    question.m_Unattended = GetUnattendedAnswer(buttons);
    return question;
}

void IQuestions::Tell(std::u16string_view title, std::u16string_view text, EIcon icon)
{
    static_cast<void>(Ask(MakeQuestion(title, text, EButtons::Ok, icon)));
}
