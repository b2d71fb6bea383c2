#include "TestManager.h"

#include "RegisterTypes.h"

CTestManager::CTestManager()
    : m_Profile(m_Files, u"/config/Corvane.ini"), m_Modules(m_Files, u"/program/", u"/modules/")
{
    RegisterCorvaneTypes(m_Types, m_AttribData);
    const CCorvaneContext context{m_Files, m_Questions, m_Services, m_Run, m_Profile, m_Modules};
    m_pManager = std::make_unique<CCorvaneMgr>(context, m_Types, m_AttribData, m_Gate, m_Undo);
}

CTestManager::~CTestManager()
{
    m_Undo.Clear();
    for (const CRef<CCorvaneRecord>& record : m_Records)
        record->Clear();
}

CCorvaneSchema* CTestManager::AddSchema(std::u16string_view name, std::u16string_view sections)
{
    const std::u16string path = u"/database/" + std::u16string(name) + u".schema";
    m_Files.AddText(path,
                    u"[Schema]\r\nName=" + std::u16string(name) + u"\r\n\r\n" + std::u16string(sections));
    return m_pManager->AddSchemaFile(path) ? m_pManager->FindSchema(name) : nullptr;
}

CCorvaneRecord& CTestManager::AddRecord(const CCorvaneSchema& schema)
{
    m_Records.push_back(schema.CloneRecordFromTemplate());
    return *m_Records.back();
}

CCorvaneRecord& CTestManager::AddReference(CCorvaneRecord& parent)
{
    m_Records.push_back(parent.CreateReference());
    return *m_Records.back();
}
