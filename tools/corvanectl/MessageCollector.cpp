#include "MessageCollector.h"

EAnswer CMessageCollector::Ask(const CQuestion& question)
{
    m_Messages.push_back({question.m_sTitle, question.m_sText});
    return m_Console.Ask(question);
}
