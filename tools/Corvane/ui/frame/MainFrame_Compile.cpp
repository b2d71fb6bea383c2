// The commands that make something of the whole database, or look through it.
#include "MainFrame.h"

#include "BuildDlg.h"
#include "CompileView.h"
#include "Context.h"
#include "CorvaneMgr.h"
#include "DeferredAttribDlg.h"
#include "DeferredModifiedDlg.h"
#include "DependencyOutput.h"
#include "FileDialogs.h"
#include "FileFilter.h"
#include "FormatText.h"
#include "OverrideDlg.h"
#include "Path.h"
#include "ProgressModalDlg.h"
#include "RunState.h"
#include "ValidateCore.h"
#include "ValidateDlg.h"
#include "WaitCursor.h"
#include "host/Questions.h"

#include <QApplication>
#include <QTimer>

namespace
{
constexpr std::uint32_t kServerFlags = COMPILE_SERVER | COMPILE_SYNCHRONIZE | COMPILE_SUBMIT;
constexpr int kBetweenLooks = 500; // At a post-build step that outlived its compile.
constexpr std::u16string_view kDependencyExtension = u"Gamdb00dc";
} // namespace

void CMainFrame::OnCompileLocal()
{
    Compile(0);
}

void CMainFrame::OnCompileServer()
{
    Compile(kServerFlags);
}

void CMainFrame::Compile(std::uint32_t flags)
{
    EndAllEdits();
    CBuildDlg dialog(*this, flags, kBuildOfSettings, GetManager().GetRootFile().m_sBuild, this);
    if (dialog.exec() != QDialog::Accepted || !GetManager().IsOpen())
        return;
    if (m_pCompiler->CompileDatabase(dialog.GetFlags(), dialog.GetTarget(), dialog.GetBuild()))
        ShowMessage(u"The database has been compiled.");
    else
        GetContext().m_Questions.Tell(
            u"Compile Error", u"There were one or more errors encountered. Failed to compile the database.",
            EIcon::Stop);
    WatchPostBuildStep();
}

// A step that goes on after its compile tells of a failure later.
void CMainFrame::WatchPostBuildStep()
{
    if (m_pCompiler->GetRunningPostBuildStep().empty())
        return;
    QTimer::singleShot(kBetweenLooks, this,
                       [this]
                       {
                           if (!IsWorking() && QApplication::activeModalWidget() == nullptr)
                               m_pCompiler->TellPostBuildOutcome();
                           WatchPostBuildStep();
                       });
}

void CMainFrame::OnOverrideOutput()
{
    EndAllEdits();
    COverrideDlg dialog(*this, this);
    if (dialog.exec() != QDialog::Accepted || !GetManager().IsOpen())
        return;
    CModalWorkerRunner runner(this);
    COverrideOutput output(GetManager(), &runner);
    if (output.CreateOverrideOutput(dialog.GetPaths(), GetManager().GetActiveBuild()))
        ShowMessage(u"The override output has been written.");
}

void CMainFrame::OnSaveDependencies()
{
    EndAllEdits();
    SFileDialog dialog{u"Save Dependencies",
                       WithExtension(GetManager().GetRootFilePath(), kDependencyExtension),
                       std::u16string(kDependencyExtension),
                       {}};
    BuildFileFilter(dialog.m_sFilter, {FILE_FILTER_DATABASE_DEPENDENCY, FILE_FILTER_ALL});
    const std::u16string path = m_Dialogs.SaveFile(this, dialog);
    if (path.empty() || !GetManager().IsOpen())
        return;
    CModalWorkerRunner runner(this);
    CDependencyOutput output(GetManager(), &runner);
    const std::int32_t result = output.SaveDependencies(path);
    // No box tells of a failure, but the user must not believe in a file that is not there.
    if (result >= 0)
        ShowMessage(FormatText(u"The file '%s' was written.", path));
    else if (result != kResultCancelled)
        ShowMessage(FormatText(u"The file '%s' could not be written: %s.", path, output.GetFailure()));
}

CValidateDlg& CMainFrame::GetValidation()
{
    if (m_pValidation == nullptr)
        m_pValidation = new CValidateDlg(*this, this);
    return *m_pValidation;
}

void CMainFrame::OnValidateDatabase()
{
    EndAllEdits();
    GetValidation().SetBuild(GetManager().GetActiveBuild());
    BringUpValidation();
}

void CMainFrame::ShowValidation(const CValidateCore& core)
{
    GetValidation().PopulateList(&core);
    BringUpValidation();
}

void CMainFrame::BringUpValidation()
{
    CValidateDlg& dialog = GetValidation();
    dialog.show();
    dialog.raise();
    dialog.activateWindow();
}

void CMainFrame::OnDeferredAttributes()
{
    EndAllEdits();
    CDeferredAttribDlg(*this, this).exec();
}

void CMainFrame::OnModifiedAttributes()
{
    EndAllEdits();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    CDeferredModifiedDlg dialog(*this, GetManager().GetActiveBuild(), this);
    QApplication::restoreOverrideCursor();
    dialog.exec();
}
