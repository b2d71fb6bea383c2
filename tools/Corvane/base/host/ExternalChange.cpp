#include "host/ExternalChange.h"

CQuestion MakeExternalModificationQuestion(std::u16string_view path)
{
    CQuestion question = MakeQuestion(
        u"External File Modification",
        u"The following file has been modified by an external application.  This file has also been checked "
        u"out and/or edit since it was last loaded from disk.\n\nWould you like to reload the file from disk "
        u"or keep the contents stored in memory?",
        EButtons::YesNo, EIcon::Question);
    question.m_sFile = path;
    question.m_sWarning = u"WARNING: Reloading of the file from disk will result in the loss of all memory "
                          u"changes made to the file.";
    question.m_sYes = u"Reload From File";
    question.m_sNo = u"Keep Memory Changes";
    return question;
}

CQuestion MakeExternalDeletionQuestion(std::u16string_view path)
{
    CQuestion question = MakeQuestion(
        u"External File Deletion",
        u"The following file has been deleted by an external application.  This file has also been checked "
        u"out and/or edit since it was last loaded from disk.\n\nWould you like to remove the file from the "
        u"database?",
        EButtons::YesNo, EIcon::Question);
    question.m_sFile = path;
    question.m_sWarning = u"WARNING: Removing the file from the database will result in the loss of all "
                          u"memory changes made to the file.";
    question.m_sYes = u"Remove From Database";
    question.m_sNo = u"Keep Memory Changes";
    return question;
}
