#include "DependencyUpdate.h"

#include "CorvaneMgr.h"
#include "DependencyOutput.h"
#include "FormatText.h"
#include "Path.h"
#include "RunState.h"
#include "SignalHold.h"
#include "host/Interrupt.h"
#include "host/Questions.h"

#include <algorithm>

namespace
{
constexpr std::u16string_view kTitle = u"Update Dependency";
constexpr std::u16string_view kRootExtension = u"Gamdb00s";
constexpr std::u16string_view kDependencyExtension = u"Gamdb00dc";
} // namespace

bool CDependencyUpdate::Run(std::u16string_view directory)
{
    if (directory.size() > 1 && EndsInSeparator(directory))
        directory.remove_suffix(1);
    m_Walked.clear();
    SFileInfo info;
    // What is wrong with the directory shows when it is listed.
    static_cast<void>(m_Manager.GetContext().m_Files.GetInfo(directory, info));
    return WalkDirectory(directory, {info.m_nDevice, info.m_nNode});
}

bool CDependencyUpdate::WalkDirectory(std::u16string_view directory, const DirectoryId& id)
{
    // Where the file layer knows no numbers there are no links either.
    if (id != DirectoryId{} && !m_Walked.insert(id).second)
        return true;
    SDirectoryFilter filter;
    filter.m_sExtension = kRootExtension;
    std::vector<SDirectoryEntry> entries;
    const CCorvaneContext& context = m_Manager.GetContext();
    const CFileError error = context.m_Files.ListDirectory(directory, filter, entries);
    if (!error.IsOk())
        m_Failures.Tell(kTitle,
                        FormatText(u"The directory '%s' could not be read: %s.", directory, error.GetText()),
                        EIcon::Stop);
    return std::all_of(entries.begin(), entries.end(),
                       [&](const SDirectoryEntry& entry) { return Visit(directory, entry); });
}

bool CDependencyUpdate::Visit(std::u16string_view directory, const SDirectoryEntry& entry)
{
    const std::u16string path = JoinPath(directory, entry.m_sName);
    return entry.m_bDirectory ? WalkDirectory(path, {entry.m_nDevice, entry.m_nNode}) : UpdateRoot(path);
}

bool CDependencyUpdate::UpdateRoot(std::u16string_view rootFile)
{
    if (CInterrupt::IsRaised())
        return TellCancel();
    const std::u16string target = WithExtension(rootFile, kDependencyExtension);
    if (!m_Open(rootFile))
    {
        m_Failures.Tell(
            kTitle,
            FormatText(u"The root file '%s' could not be loaded. '%s' was not written.", rootFile, target),
            EIcon::Stop);
        return true;
    }
    CDependencyOutput output(m_Manager);
    const CSignalHold hold({SIGTERM, SIGHUP}); // They wait for the end of the file.
    const std::int32_t result = output.SaveDependencies(target);
    if (result == kResultCancelled)
        return TellCancel();
    if (result < 0)
        m_Failures.Tell(kTitle,
                        FormatText(u"The file '%s' could not be written: %s.", target, output.GetFailure()),
                        EIcon::Stop);
    else
        m_Manager.GetContext().m_Questions.Tell(kTitle, FormatText(u"The file '%s' was written.", target),
                                                EIcon::Information);
    return true;
}

bool CDependencyUpdate::TellCancel() const
{
    m_Failures.Tell(kTitle, u"The update was cancelled.", EIcon::Stop);
    return false;
}
