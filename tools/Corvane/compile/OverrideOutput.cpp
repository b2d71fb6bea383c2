#include "OverrideOutput.h"

#include "CorvaneMgr.h"
#include "CreatorLibrary.h"
#include "FormatText.h"
#include "OverrideWorker.h"
#include "RecentPaths.h"
#include "RunState.h"
#include "Worker.h"
#include "host/Questions.h"
#include "izroutconverter.h"

namespace
{
constexpr std::u16string_view kDatabaseSection = u"Override.Database";
constexpr std::u16string_view kConstraintsSection = u"Override.Constraints";
} // namespace

SOverridePaths COverrideOutput::GetDefaultPaths() const
{
    const SRootFile& root = m_Manager.GetRootFile();
    return {root.m_sOverrideDatabase, root.m_sOverrideConstraints};
}

std::vector<std::u16string> COverrideOutput::GetRecentDatabases() const
{
    return CRecentPaths(m_Manager.GetPerUserFile(), kDatabaseSection).Load();
}

std::vector<std::u16string> COverrideOutput::GetRecentConstraints() const
{
    return CRecentPaths(m_Manager.GetPerUserFile(), kConstraintsSection).Load();
}

bool COverrideOutput::AcceptPaths(const SOverridePaths& paths)
{
    if (!CanBeTarget(paths.m_sDatabase, u"Invalid Database Path") ||
        !CanBeTarget(paths.m_sConstraints, u"Invalid Constraints Path"))
        return false;
    CRecentPaths(m_Manager.GetPerUserFile(), kDatabaseSection).Add(paths.m_sDatabase);
    CRecentPaths(m_Manager.GetPerUserFile(), kConstraintsSection).Add(paths.m_sConstraints);
    m_Manager.SavePerUserFile();
    return true;
}

bool COverrideOutput::CanBeTarget(std::u16string_view path, std::u16string_view title)
{
    const CCorvaneContext& context = m_Manager.GetContext();
    if (context.m_Files.Exists(path))
        return true;
    CFileError error;
    std::unique_ptr<IZROutStream> stream = context.m_Files.OpenStream(path, error);
    if (stream && context.m_Files.CloseStream(std::move(stream)).IsOk())
        return true;
    const std::u16string text =
        FormatText(u"The following path is invalid and cannot be used as a target file.\n\n%s", path);
    if (!context.m_Run.m_bSilent)
        context.m_Questions.Tell(title, text);
    return false;
}

bool COverrideOutput::CreateOverrideOutput(const SOverridePaths& paths, std::uint32_t build)
{
    const CCorvaneContext& context = m_Manager.GetContext();
    MakeWritable(paths.m_sDatabase);
    MakeWritable(paths.m_sConstraints);
    SOverrideParameters parameters;
    parameters.m_pManager = &m_Manager;
    parameters.m_pCreator =
        LoadUnpackedDatabaseCreator(context.m_Modules, m_Manager.GetProject().m_sGameDatabase);
    parameters.m_sDatabase = context.m_Files.GetNativePath(paths.m_sDatabase);
    parameters.m_sConstraints = context.m_Files.GetNativePath(paths.m_sConstraints);
    parameters.m_nBuild = build;
    const std::int32_t result =
        RunWorker(context.m_Questions, m_pRunner, u"Create Override Output",
                  [&](IWorkerEvents& events) { return SaveOverrides(&parameters, events); });
    if (result >= 0)
        return true;
    context.m_Questions.Tell(
        u"Compile Error", u"There were one or more errors encountered. Failed to compile the override ouput.",
        EIcon::Stop);
    return false;
}

void COverrideOutput::MakeWritable(std::u16string_view path)
{
    IFileSystem& files = m_Manager.GetContext().m_Files;
    SFileInfo info;
    // What stays read-only is told by the save that fails.
    if (files.GetInfo(path, info).IsOk() && info.m_bReadOnly && !info.m_bDirectory)
        static_cast<void>(files.SetReadOnly(path, false));
}
