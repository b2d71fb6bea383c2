// The action of a run that ends by itself.
#include "CorvaneApp.h"

#include "CorvaneDoc.h"
#include "DatabaseCompiler.h"
#include "DependencyUpdate.h"
#include "FormatText.h"
#include "NumberText.h"
#include "ProgramStart.h"

bool CCorvaneApp::RunBatchAction()
{
    if (m_CommandLine.m_bPack)
    {
        Pack();
        return true;
    }
    if (m_CommandLine.m_sUpdateDependency.empty())
        return false;
    UpdateDependencies();
    return true;
}

// The status of the run says nothing of the walk, so that its failures are told even by a silent one.
void CCorvaneApp::UpdateDependencies()
{
    const auto open = [this](std::u16string_view rootFile)
    {
        const CCorvaneDoc* document = OpenDocumentFile(rootFile);
        return document && document->IsLoaded();
    };
    IQuestions& failures = m_Run.m_bSilent ? static_cast<IQuestions&>(m_Console) : m_Questions;
    CDependencyUpdate(m_Manager, open, failures).Run(MakeDocumentPath(m_CommandLine.m_sUpdateDependency));
}

void CCorvaneApp::Pack()
{
    // A document whose load failed is no valid one: packing it would replace a good output by an empty one.
    if (m_pOpenedDocument == nullptr || !m_pOpenedDocument->IsLoaded())
    {
        m_Questions.Tell(
            u"Packing Failed",
            u"The pack switch was detected on the command line but there is no valid document to pack.  "
            u"The document either failed to load or was not specified at the command line.",
            EIcon::Stop);
        m_Run.m_nExitStatus = kExitFailed;
    }
    if (m_Run.m_nExitStatus != kExitOk)
        return;

    const std::u16string& given = m_CommandLine.m_sBuildNumber;
    const std::uint32_t build =
        given.empty() ? m_Manager.GetBuildNumber() : static_cast<std::uint32_t>(ParseInteger(given));
    const std::u16string& target =
        m_CommandLine.m_sOutput.empty() ? m_Manager.GetRootFile().m_sBuild : m_CommandLine.m_sOutput;
    CDatabaseCompiler compiler(m_Manager);
    if (!compiler.CompileDatabase(0, target, build))
        m_Run.m_nExitStatus = kExitFailed;
    compiler.TellPostBuildOutcome();
    TellRunningPostBuildStep(compiler.GetRunningPostBuildStep());
}

void CCorvaneApp::TellRunningPostBuildStep(std::u16string_view command)
{
    if (!command.empty())
        m_Questions.Tell(u"Post Build Step", FormatText(u"The step still runs: %s", command),
                         EIcon::Information);
}
