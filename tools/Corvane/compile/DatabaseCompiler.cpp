#include "DatabaseCompiler.h"

#include "CompileProgress.h"
#include "CorvaneMgr.h"
#include "CreatorLibrary.h"
#include "DatabaseBuild.h"
#include "Path.h"
#include "RunState.h"
#include "SourceGate.h"
#include "ValidateCore.h"
#include "host/Questions.h"

namespace
{
constexpr std::u16string_view kPackedExtension = u".Gamdb00p";
constexpr std::u16string_view kServerFindings =
    u"Critical errors have been detected within the database.  All critical errors must be resolved prior to "
    u"performing a database compile.  The compile process has been aborted.\n\nWould you like to see a list "
    u"of "
    u"these errors?";
constexpr std::u16string_view kLocalFindings =
    u"Critical errors have been detected within the database.  All critical errors should be resolved prior "
    u"to "
    u"performing a database compile.\n\nWould you like to see a list of these errors?";
} // namespace

CDatabaseCompiler::CDatabaseCompiler(CCorvaneMgr& manager, ICompileView* view)
    : m_Manager(manager), m_pView(view)
{
}

bool CDatabaseCompiler::CompileDatabase(std::uint32_t flags, std::u16string_view target, std::uint32_t build)
{
    const std::u16string path = ResolveTarget(target);
    if ((flags & COMPILE_SAVE) != 0 && !m_Manager.SaveDatabase({}, false))
        return false;
    if ((flags & COMPILE_SYNCHRONIZE) != 0 && !Synchronize(build))
        return false;
    bool checkedOut = false;
    if (!PrepareTarget(path, (flags & COMPILE_SERVER) != 0, checkedOut))
        return false;
    if ((flags & COMPILE_SHOW_MODIFIED) != 0 && m_pView && m_Manager.GetContext().m_Run.Test(APP_EXPERT))
        m_pView->ShowModifiedAttributes(build);

    if (BuildDatabase(path, build, flags))
        return Submit(path, flags, checkedOut);
    // The build's own failure is the result, whatever becomes of the check-out.
    if (checkedOut)
        static_cast<void>(m_Manager.GetGate().UndoCheckOut(path));
    return false;
}

bool CDatabaseCompiler::Synchronize(std::uint32_t build)
{
    const std::uint32_t active = m_Manager.GetActiveBuild();
    m_Manager.SetActiveBuild(build);
    const bool synchronized = m_Manager.GetGate().SynchronizeToServer();
    m_Manager.SetActiveBuild(active);
    return synchronized;
}

bool CDatabaseCompiler::PrepareTarget(std::u16string_view target, bool server, bool& checkedOut)
{
    CSourceGate& gate = m_Manager.GetGate();
    if (server && gate.IsControlled(target))
    {
        checkedOut = gate.CheckOutForEdit(target);
        return checkedOut;
    }
    IFileSystem& files = m_Manager.GetContext().m_Files;
    SFileInfo info;
    const CFileError error = files.GetInfo(target, info);
    // What cannot be made writable is told when the file is opened.
    if (error.IsOk() && info.m_bExists && !info.m_bDirectory && info.m_bReadOnly)
        static_cast<void>(files.SetReadOnly(target, false));
    return true;
}

bool CDatabaseCompiler::Submit(std::u16string_view target, std::uint32_t flags, bool checkedOut)
{
    CSourceGate& gate = m_Manager.GetGate();
    const bool submitAll = (flags & COMPILE_SUBMIT) != 0;
    // An abort leaves the file checked out, so that the user can test it and submit it later.
    if ((checkedOut || submitAll) && m_pView && !m_pView->ConfirmTestBuild(target))
        return false;
    if (submitAll && !gate.SubmitAll())
    {
        if (checkedOut)
            static_cast<void>(gate.UndoCheckOut(target));
        return false;
    }
    if (checkedOut)
        return gate.CheckIn(target);
    return (flags & COMPILE_SERVER) == 0 || gate.AddFile(target);
}

bool CDatabaseCompiler::BuildDatabase(std::u16string_view target, std::uint32_t build, std::uint32_t flags)
{
    const CCorvaneContext& context = m_Manager.GetContext();
    const std::unique_ptr<IProgress> window = context.m_Questions.CreateProgress(u"Compile Database");
    CCompileProgress progress(*window, m_Manager);
    progress.SetText(u"Validating Database...");
    static_cast<void>(progress.Update()); // A cancel is remembered and ends the first pass.

    CValidateCore findings;
    const bool valid = findings.ValidateDatabase(m_Manager, build);
    if (!valid && findings.GetCriticalCount() != 0 &&
        !GoOnWithFindings(findings, (flags & COMPILE_SERVER) != 0))
        return false;

    IDatabaseCreatorMgr* creator =
        LoadDatabaseCreator(context.m_Modules, m_Manager.GetProject().m_sGameDatabase);
    if (!creator)
    {
        context.m_Questions.Tell(u"Error", u"Failed to locate the Game Database library.", EIcon::Stop);
        return false;
    }
    CDatabaseBuild run(m_Manager, *creator, progress, build);
    const bool built = run.Run(ResolveTarget(target));
    RunPostBuildStep(progress);
    progress.SetText(u"Done.");
    return built;
}

bool CDatabaseCompiler::GoOnWithFindings(const CValidateCore& findings, bool server)
{
    const CCorvaneContext& context = m_Manager.GetContext();
    if (context.m_Run.m_bSilent)
    {
        context.m_Run.m_nExitStatus = kExitCriticalFindings;
        return true;
    }
    if (server)
    {
        OfferFindings(findings, kServerFindings, false);
        return false;
    }
    OfferFindings(findings, kLocalFindings, true);
    const CQuestion goOn =
        MakeQuestion(u"Continue Build?", u"Would you like to continue building the database anyway?",
                     EButtons::YesNo, EIcon::Question);
    return context.m_Questions.Ask(goOn) == EAnswer::Yes;
}

void CDatabaseCompiler::OfferFindings(const CValidateCore& findings, std::u16string_view text, bool modal)
{
    const CQuestion show = MakeQuestion(u"Compile Error", text, EButtons::YesNo, EIcon::Stop);
    if (m_Manager.GetContext().m_Questions.Ask(show) == EAnswer::Yes && m_pView)
        m_pView->ShowFindings(findings, modal);
}

void CDatabaseCompiler::RunPostBuildStep(CCompileProgress& progress)
{
    const std::u16string& command = m_Manager.GetRootFile().m_sPostBuildStep;
    if (command.empty())
        return;
    progress.SetText(u"Performing Post Build Step...");
    const CCorvaneContext& context = m_Manager.GetContext();
    // A user who cancels does not want to sit through a step that hangs; a run without a window waits, since
    // its end is the end of what it has to tell.
    const auto stop = [&] { return context.m_Questions.HasWindow() && !progress.Update(); };
    m_PostBuild.Run(context.m_Files, context.m_Questions, command, m_Manager.GetToolsDirectory(), stop);
}

void CDatabaseCompiler::TellPostBuildOutcome()
{
    m_PostBuild.TellOutcomes(m_Manager.GetContext().m_Questions);
}

std::u16string CDatabaseCompiler::ResolveTarget(std::u16string_view target) const
{
    if (!target.empty())
        return std::u16string(target);
    // The name is free text; what cannot be in a file name is made safe.
    std::u16string path = m_Manager.GetDirectory();
    path.append(MakeFileBaseName(m_Manager.GetRootFile().m_sName)).append(kPackedExtension);
    return path;
}
