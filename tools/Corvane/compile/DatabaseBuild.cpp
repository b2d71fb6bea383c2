#include "DatabaseBuild.h"

#include "CallGuarded.h"
#include "CompileProgress.h"
#include "CorvaneMgr.h"
#include "FormatText.h"
#include "OutConverter.h"
#include "PackedOutput.h"
#include "SourceGate.h"
#include "host/Questions.h"

CDatabaseBuild::CDatabaseBuild(CCorvaneMgr& manager, IDatabaseCreatorMgr& creator, CCompileProgress& progress,
                               std::uint32_t build)
    : m_Manager(manager), m_Creator(creator), m_Progress(progress), m_nBuild(build), m_Filter(manager, build)
{
}

bool CDatabaseBuild::Run(std::u16string_view target)
{
    m_Manager.GetCompiledCategories().Clear();
    m_Manager.GetCompiledRecords().Clear();
    const bool built = CreateAndSave(target);
    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::CompileEnd, built));
    Release();
    return built;
}

bool CDatabaseBuild::CreateAndSave(std::u16string_view target)
{
    m_nDatabase = CallGuarded([this] { return m_Creator.CreateDatabase(); });
    if (m_nDatabase == 0)
        return Fail(u"Failed to create new database.");
    return RunPasses() && Save(target);
}

bool CDatabaseBuild::RunPasses()
{
    const auto notify = [this](ECorvaneEvent code) { m_Manager.Notify(CCorvaneEvent(code)); };

    notify(ECorvaneEvent::CompileBegin);
    m_Progress.BeginPhase(PHASE_CATEGORIES, u"Compiling Categories...");
    notify(ECorvaneEvent::CompileCategoriesBegin);
    if (!RunPass(&CDatabaseBuild::CompileCategory, u"Failed to compile category files"))
        return false;

    notify(ECorvaneEvent::CompileCategoriesEnd);
    notify(ECorvaneEvent::CompileRecordsBegin);
    m_Progress.BeginPhase(PHASE_RECORDS, u"Compiling Records...");
    if (!RunPass(&CDatabaseBuild::CompileRecords, u"Failed to compile record files"))
        return false;

    notify(ECorvaneEvent::CompileRecordsEnd);
    notify(ECorvaneEvent::CompileAttributesBegin);
    m_Progress.BeginPhase(PHASE_ATTRIBUTES, u"Compiling Attributes...");
    if (!RunPass(&CDatabaseBuild::CompileAttributes, u"Failed to compile attribute files"))
        return false;

    notify(ECorvaneEvent::CompileAttributesEnd);
    return true;
}

bool CDatabaseBuild::RunPass(FCompile compile, std::u16string_view failure)
{
    if (!m_Progress.Update())
        return false;
    for (const CRef<CCorvaneCategory>& category : m_Manager.GetRootCategories())
    {
        // A special category stands for no file and takes no part in any output.
        if (category->GetCategoryType() == 0 && !(this->*compile)(*category))
            return Fail(failure);
    }
    return true;
}

bool CDatabaseBuild::CompileCategory(CCorvaneCategory& category)
{
    if (!m_Progress.Step())
        return false;
    m_Progress.Count(PHASE_CATEGORIES);
    // A virtual category exists in the tree only; one on its way out takes its whole sub-tree with it.
    if (!category.IsSystem() || m_Manager.GetGate().IsDeletePending(category))
        return true;
    const CreatorHandle handle = CallGuarded([&] { return category.AddToDatabase(m_Creator, m_nDatabase); });
    if (handle == 0)
        return false;
    m_Manager.GetCompiledCategories().Add(category, handle);
    return CompileChildren(category, &CDatabaseBuild::CompileCategory);
}

bool CDatabaseBuild::CompileRecords(CCorvaneCategory& category)
{
    if (!m_Progress.Step())
        return false;
    const CCorvaneCategory* system = m_Manager.GetSystemCategory(&category);
    const CreatorHandle handle = system ? m_Manager.GetCompiledCategories().Find(*system) : 0;
    if (handle == 0)
    {
        m_Progress.Count(PHASE_RECORDS, category.GetRecords().size());
        return true;
    }
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
    {
        if (!m_Progress.Step() || !CompileRecord(*record, handle))
            return false;
    }
    return CompileChildren(category, &CDatabaseBuild::CompileRecords);
}

bool CDatabaseBuild::CompileRecord(CCorvaneRecord& record, CreatorHandle category)
{
    m_Progress.Count(PHASE_RECORDS);
    if (m_Manager.GetGate().IsDeletePending(record))
        return true;
    const CreatorHandle handle = CallGuarded([&] { return record.AddToDatabase(m_Creator, category); });
    if (handle == 0)
        return false;
    m_Manager.GetCompiledRecords().Add(record, handle);
    return true;
}

bool CDatabaseBuild::CompileAttributes(CCorvaneCategory& category)
{
    if (!m_Progress.Step())
        return false;
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
    {
        if (!m_Progress.Step() || !CompileRecordAttributes(*record))
            return false;
    }
    return CompileChildren(category, &CDatabaseBuild::CompileAttributes);
}

bool CDatabaseBuild::CompileRecordAttributes(CCorvaneRecord& record)
{
    m_Progress.Count(PHASE_ATTRIBUTES, record.GetAttributeList().size());
    const CreatorHandle handle = m_Manager.GetCompiledRecordHandle(record);
    if (handle == 0)
        return true;
    m_Filter.TakeRecord(record);
    const auto save = [&]
    {
        const auto attribs = record.GetAttributeList();
        for (std::size_t i = 0; i < attribs.size(); ++i)
        {
            CreatorHandle created = 0;
            if (m_Filter.IsAvailable(i) &&
                !attribs[i]->SaveToDatabase(m_Creator, handle, m_nBuild, created, {}))
                return false;
        }
        return true;
    };
    return CallGuarded(save);
}

bool CDatabaseBuild::CompileChildren(CCorvaneCategory& category, FCompile compile)
{
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
    {
        if (!(this->*compile)(*child))
            return false;
    }
    return true;
}

bool CDatabaseBuild::Save(std::u16string_view target)
{
    m_Progress.SetText(u"Saving to disk...");
    if (!m_Progress.Update())
        return false;
    CPackedOutput output(m_Manager.GetContext().m_Files, target);
    if (const CFileError error = output.Open(); !error.IsOk())
        return Fail(FormatText(u"The packed database could not be opened for writing: %s.\n\n%s",
                               error.GetText(), target));
    CZROutConverter converter(output.GetStream());
    const bool saved = CallGuarded([&] { return m_Creator.SaveDatabase(m_nDatabase, &converter); });
    if (!saved || !output.Commit())
        return Fail(u"Failed to save database to file.  The file may be locked.");
    m_Progress.SetText(u"Done.");
    return true;
}

void CDatabaseBuild::Release()
{
    const auto release = [this]
    {
        m_Creator.ReleaseDatabase(m_nDatabase);
        return true;
    };
    if (m_nDatabase != 0)
        static_cast<void>(CallGuarded(release));
    m_nDatabase = 0;
    m_Manager.GetCompiledCategories().Clear();
    m_Manager.GetCompiledRecords().Clear();
}

bool CDatabaseBuild::Fail(std::u16string_view text) const
{
    if (!m_Progress.IsCancelled())
        m_Manager.GetContext().m_Questions.Tell(u"Error", text, EIcon::Stop);
    return false;
}
