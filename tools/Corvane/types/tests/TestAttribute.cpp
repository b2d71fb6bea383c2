#include "TestAttribute.h"

#include "Unicode.h"

#include <gtest/gtest.h>
#include <stdexcept>

CTestAttribute::CTestAttribute(std::u16string_view type, std::initializer_list<std::u16string_view> keys)
{
    std::u16string section = u"[Attrib.Value.0]\r\nType=" + std::u16string(type) + u"\r\n";
    for (const std::u16string_view key : keys)
        section.append(key).append(u"\r\n");
    const CCorvaneSchema* schema = m_Manager.AddSchema(u"Thing", section);
    if (schema == nullptr || schema->GetTemplate()->GetAttributeList().size() != 1)
        throw std::runtime_error("no attribute of type " + ToNarrow(type));
    m_pTemplate = dynamic_cast<CCorvaneType*>(schema->GetTemplate()->GetAttributeList()[0].Get());
    m_pRecord = &m_Manager.AddRecord(*schema);
    m_pAttrib = dynamic_cast<CCorvaneType*>(m_pRecord->GetAttributeList()[0].Get());
}

CCorvaneType& CTestAttribute::AddChild()
{
    return dynamic_cast<CCorvaneType&>(*m_Manager.AddReference(*m_pRecord).GetAttributeList()[0]);
}

std::vector<std::u16string> CTestAttribute::GetDefaultMessages() const
{
    std::vector<std::u16string> texts;
    for (const CQuestion& question : m_Manager.m_Questions.GetQuestions())
    {
        EXPECT_EQ(question.m_sTitle, u"Invalid Schema Default Value");
        texts.push_back(question.m_sText);
    }
    return texts;
}

void CRecordingSink::AddError(ESeverity severity, std::u16string_view type, std::u16string_view description,
                              CCorvaneAttrib*, std::size_t valueIndex)
{
    m_Errors.push_back(std::to_string(static_cast<int>(severity)) + ' ' + ToNarrow(type) + ' ' +
                       std::to_string(valueIndex) + ": " + ToNarrow(description));
}
