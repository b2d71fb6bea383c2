#include "host/ExternalChange.h"

namespace
{
// `yes` is the answer that gives up what memory holds.
CQuestion MakeExternalChangeQuestion(std::u16string_view title, std::u16string_view text,
                                     std::u16string_view path, std::u16string_view warning,
                                     std::u16string_view yes)
{
    CQuestion question = MakeQuestion(title, text, EButtons::YesNo, EIcon::Question);
    question.m_sFile = path;
    question.m_sWarning = warning;
    question.m_sYes = yes;
    question.m_sNo = u"Keep Memory Changes";
    return question;
}
} // namespace

CQuestion MakeExternalModificationQuestion(std::u16string_view path)
{
    return MakeExternalChangeQuestion(
        u"External File Modification",
        u"The following file has been modified by an external application.  This file has also been checked "
        u"out and/or edit since it was last loaded from disk.\n\nWould you like to reload the file from disk "
        u"or keep the contents stored in memory?",
        path,
        u"WARNING: Reloading of the file from disk will result in the loss of all memory changes made to "
        u"the file.",
        u"Reload From File");
}

CQuestion MakeExternalDeletionQuestion(std::u16string_view path)
{
    return MakeExternalChangeQuestion(
        u"External File Deletion",
        u"The following file has been deleted by an external application.  This file has also been checked "
        u"out and/or edit since it was last loaded from disk.\n\nWould you like to remove the file from the "
        u"database?",
        path,
        u"WARNING: Removing the file from the database will result in the loss of all memory changes made "
        u"to the file.",
        u"Remove From Database");
}
