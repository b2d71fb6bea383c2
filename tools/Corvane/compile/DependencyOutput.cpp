#include "DependencyOutput.h"

#include "AssetLibrarySource.h"
#include "CorvaneMgr.h"
#include "DependencySink.h"
#include "DiskWrite.h"
#include "RunState.h"
#include "TargetFile.h"
#include "Unicode.h"
#include "Worker.h"
#include "ZRAHeapAllocator.h"
#include "ZRANodeBuilder.h"
#include "ZRANodePtr.h"
#include "ZRANodeWriter.h"
#include "ZRAUtil.h"

#include <algorithm>

namespace
{
constexpr const char* kRecordType = "Record";

// Narrows what attributes report on its way into the list.
class CListSink final : public IDependencySink
{
public:
    CListSink(CAssetLibrarySource& list, std::set<std::string>& inexact) : m_List(list), m_Inexact(inexact) {}

    void AddResource(std::u16string_view path)
    {
        ToNarrow(path, m_sSource);
        Check(m_sSource);
        m_List.AddResource(m_sSource.c_str(), kRecordType);
    }
    void AddDependency(std::u16string_view source, std::u16string_view resource,
                       std::u16string_view kind) override
    {
        ToNarrow(source, m_sSource); // Was checked as a resource.
        ToNarrow(resource, m_sResource);
        ToNarrow(kind, m_sKind);
        Check(m_sResource);
        m_List.AddDependency(m_sSource.c_str(), m_sResource.c_str(), m_sKind.c_str(), "", "");
    }

private:
    void Check(const std::string& text)
    {
        if (!CZRAUtil::IsTextExact(text, true))
            m_Inexact.insert(text);
    }

    CAssetLibrarySource& m_List;
    std::set<std::string>& m_Inexact;
    // Kept for their capacity.
    std::string m_sSource;
    std::string m_sResource;
    std::string m_sKind;
};

// The walk over one database, on the worker's thread.
class CDependencyWalk
{
public:
    CDependencyWalk(const CCorvaneMgr& manager, IWorkerEvents& events, CListSink& sink)
        : m_Manager(manager), m_Events(events), m_Sink(sink)
    {
    }

    [[nodiscard]] std::int32_t Run()
    {
        const std::int32_t listed = RunPass(u"Generating resource list...", &CDependencyWalk::AddResource);
        return listed < 0 ? listed
                          : RunPass(u"Generating dependency list...", &CDependencyWalk::AddDependencies);
    }

private:
    using FVisit = bool (CDependencyWalk::*)(CCorvaneRecord&);

    [[nodiscard]] std::int32_t RunPass(std::u16string_view status, FVisit visit)
    {
        m_Events.SetStatus(status);
        m_nDone = m_nTotal = 0;
        for (const CRef<CCorvaneCategory>& category : m_Manager.GetRootCategories())
            CountCategory(*category);
        m_Events.SetPosition(0);
        for (const CRef<CCorvaneCategory>& category : m_Manager.GetRootCategories())
        {
            if (const std::int32_t result = VisitCategory(*category, visit); result < 0)
                return result;
        }
        return kExitOk;
    }

    // Special categories are the editor's own and no part of any output.
    void CountCategory(const CCorvaneCategory& category)
    {
        if (category.GetCategoryType() != 0)
            return;
        m_nTotal += 1 + category.GetRecords().size();
        for (const CRef<CCorvaneCategory>& child : category.GetChildren())
            CountCategory(*child);
    }

    [[nodiscard]] std::int32_t VisitCategory(const CCorvaneCategory& category, FVisit visit)
    {
        if (category.GetCategoryType() != 0)
            return kExitOk;
        for (const CRef<CCorvaneRecord>& record : category.GetRecords())
        {
            if (m_Events.IsCancelled())
                return kResultCancelled;
            if (!(this->*visit)(*record))
                return kExitFailed;
            CountDone();
        }
        for (const CRef<CCorvaneCategory>& child : category.GetChildren())
        {
            if (const std::int32_t result = VisitCategory(*child, visit); result < 0)
                return result;
        }
        CountDone();
        return m_Events.IsCancelled() ? kResultCancelled : kExitOk;
    }

    void CountDone()
    {
        ++m_nDone;
        m_Events.SetPosition(static_cast<int>(m_nDone * 100 / m_nTotal));
    }

    [[nodiscard]] bool AddResource(CCorvaneRecord& record)
    {
        m_Manager.GetRecordPath(&record, m_sPath);
        m_Sink.AddResource(m_sPath);
        return true;
    }

    [[nodiscard]] bool AddDependencies(CCorvaneRecord& record)
    {
        const std::uint32_t build = m_Manager.GetActiveBuild();
        const auto attributes = record.GetAttributeList();
        return std::all_of(attributes.begin(), attributes.end(),
                           [&](const CRef<CCorvaneAttrib>& attrib)
                           {
                               return !m_Manager.IsAttributeAvailableForBuild(attrib.Get(), build) ||
                                      attrib->SaveToDependency(m_Sink, build);
                           });
    }

    const CCorvaneMgr& m_Manager;
    IWorkerEvents& m_Events;
    CListSink& m_Sink;
    std::u16string m_sPath;
    std::size_t m_nTotal = 0;
    std::size_t m_nDone = 0;
};

// Writes the tree of the list under the system's own name for a file, and down to the disk.
bool SaveList(const CAssetLibrarySource& list, const std::string& file, bool compressed, CFileError& error)
{
    CZRAHeapAllocator allocator;
    CZRANodeBuilder builder(&allocator);
    const bool built = list.Save(builder);
    const CZRANodePtr root(built ? builder.DetachHead() : nullptr, {&allocator});
    error = {EFileError::OutOfMemory, 0};
    if (!root)
        return false;
    int code = 0;
    const bool saved = CZRANodeWriter::SaveNode(root.get(), file.c_str(), compressed, false, &code);
    error = saved ? FlushFile(file) : CFileError::FromErrno(code);
    return saved && error.IsOk();
}
} // namespace

std::int32_t CDependencyOutput::Fail(const CFileError& error)
{
    m_sFailure = error.GetText();
    if (m_sFailure.empty())
        m_sFailure = u"the write failed";
    return kExitFailed;
}

std::int32_t CDependencyOutput::SaveDependencies(std::u16string_view file)
{
    m_InexactNames.clear();
    m_sFailure.clear();
    const CCorvaneContext& context = m_Manager.GetContext();
    CTargetFile target(context.m_Files, file);
    CFileError error = target.Check();
    if (!error.IsOk())
        return Fail(error);
    // The file layer is the main thread's: the worker gets a name that it need not look up.
    const std::string name = context.m_Files.GetNativePath(target.GetTemporary());
    const bool compressed = CZRAUtil::IsFileCompressed(ToNarrow(file));
    bool walked = false;
    const auto work = [&](IWorkerEvents& events)
    {
        CAssetLibrarySource list;
        CListSink sink(list, m_InexactNames);
        if (const std::int32_t result = CDependencyWalk(m_Manager, events, sink).Run(); result < 0)
            return result;
        walked = true;
        events.SetStatus(u"Saving file...");
        events.SetPosition(100);
        target.SetWritten();
        return SaveList(list, name, compressed, error) ? kExitOk : kExitFailed;
    };
    const std::int32_t result = RunWorker(context.m_Questions, m_pRunner, u"Save Dependencies", work);
    if (result == kExitFailed && !walked)
        m_sFailure = u"an attribute refused";
    if (result < 0)
        return walked ? Fail(error) : result;
    error = target.Commit();
    return error.IsOk() ? kExitOk : Fail(error);
}
