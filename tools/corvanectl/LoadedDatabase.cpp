#include "LoadedDatabase.h"

#include "Command.h"
#include "CorvaneDoc.h"
#include "JsonReport.h"
#include "Output.h"
#include "ProgramStart.h"

CLoadedDatabase::CLoadedDatabase(std::u16string_view root)
    : m_sRootFile(MakeDocumentPath(root)), m_Session(m_Questions)
{
}

bool CLoadedDatabase::Load()
{
    CCorvaneDoc document(m_Session.GetManager());
    m_bLoaded = document.OnOpenDocument(m_sRootFile) && document.IsLoaded();
    return m_bLoaded;
}

int TellNotLoaded(const CLoadedDatabase& database, bool json)
{
    if (json)
    {
        CJsonReport report(database.GetRootFile(), false);
        if (PrintResult(report.Finish(database.GetMessages())) != kStatusOk)
            return kStatusNotWritten;
    }
    PrintError(kNotLoaded);
    return kStatusNotLoaded;
}
