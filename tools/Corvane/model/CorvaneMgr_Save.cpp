// Writing the database back to its tree of files. The root file is never written.
#include "CorvaneMgr.h"

#include "FormatText.h"
#include "NameCompare.h"
#include "Path.h"
#include "SaveProgress.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <algorithm>

void CSaveProgress::AddDone(ESaveKind kind, std::uint64_t count)
{
    m_nDone[kind] = std::min(m_nDone[kind] + count, m_nTotals[kind]);
    Show();
}

void CSaveProgress::Show()
{
    m_Progress.SetPercent(GetPercent());
}

int CSaveProgress::GetPercent() const
{
    std::uint64_t done = 0;
    std::uint64_t total = 0;
    for (std::uint32_t kind = 0; kind < SAVE_KINDS; ++kind)
    {
        done += m_nDone[kind];
        total += m_nTotals[kind];
    }
    return total == 0 ? 0 : static_cast<int>(100 * done / total);
}

namespace
{

// One save of the whole tree.
class CTreeSave
{
public:
    CTreeSave(CCorvaneMgr& manager, IProgress& window, bool force)
        : m_Manager(manager), m_Window(window), m_Progress(window), m_bForce(force)
    {
    }

    void Count()
    {
        for (const CRef<CCorvaneSchema>& schema : m_Manager.GetSchemas())
            m_Progress.AddTotal(SAVE_SCHEMAS, m_bForce || schema->TestFlag(SCHEMA_FLAG_MODIFIED) ? 1 : 0);
        m_Manager.EnumerateCategories(
            [this](CCorvaneCategory& category)
            {
                m_Progress.AddTotal(SAVE_CATEGORIES, 1);
                m_Progress.AddTotal(SAVE_RECORDS, category.GetRecords().size());
                for (const CRef<CCorvaneRecord>& record : category.GetRecords())
                    m_Progress.AddTotal(SAVE_ATTRIBUTES, record->GetAttributeList().size());
            });
    }

    // False once the user has cancelled.
    bool Step(std::u16string_view text)
    {
        m_Window.SetText(text);
        m_Progress.Show();
        return !m_Window.Pump();
    }

    bool SaveSchemas()
    {
        for (const CRef<CCorvaneSchema>& schema : m_Manager.GetSchemas())
        {
            // A schema that could not be written has told so and does not fail the save.
            if (!schema->SaveToFile(schema->GetFile(), m_bForce))
                continue;
            m_Progress.AddDone(SAVE_SCHEMAS, 1);
            if (m_Window.Pump())
                return false;
        }
        return true;
    }

    // `home` is where the files of the nearest system category above belong.
    bool SaveCategoryTree(const std::u16string& directory, CCorvaneCategory& category, std::u16string home)
    {
        const bool special = category.GetCategoryType() != 0;
        bool good = special || category.SaveToFile(directory);
        m_Progress.AddDone(SAVE_CATEGORIES, 1);
        if (special)
            return true;
        const std::u16string below = directory + category.GetName() + GetSeparator(directory);
        if (category.IsSystem())
            home = below;
        // Copies of the lists: a check-out may bring a refresh with it.
        for (const CRef<CCorvaneRecord>& record :
             std::vector(category.GetRecords().begin(), category.GetRecords().end()))
        {
            good = SaveOne(*record, home) && good;
            m_Progress.AddDone(SAVE_RECORDS, 1);
        }
        for (const CRef<CCorvaneCategory>& child :
             std::vector(category.GetChildren().begin(), category.GetChildren().end()))
            good = SaveCategoryTree(below, *child, home) && good;
        return good;
    }

private:
    bool SaveOne(CCorvaneRecord& record, const std::u16string& home)
    {
        m_Progress.Show();
        const bool wanted = m_bForce || record.TestFlag(RECORD_FLAG_MODIFIED);
        if (m_Window.Pump() || (wanted && !HasHome(record, home)))
        {
            // It waits for the next save. Its former place, which may be another database's, is left alone.
            if (wanted && !EqualNames(GetDirectoryPart(record.GetFile()), home))
                record.SetModified(true);
            return false;
        }
        if (!record.SaveToFile(m_bForce))
            return false;
        m_Progress.AddDone(SAVE_ATTRIBUTES, record.GetAttributeList().size());
        return true;
    }

    // False when the category could not make its directory.
    [[nodiscard]] bool HasHome(const CCorvaneRecord& record, const std::u16string& home) const
    {
        const CCorvaneCategory* system = m_Manager.GetSystemCategory(record.GetCategory());
        return system != nullptr && EqualNames(GetDirectoryPart(system->GetFile()), home);
    }

    CCorvaneMgr& m_Manager;
    IProgress& m_Window;
    CSaveProgress m_Progress;
    bool m_bForce;
};
} // namespace

bool CCorvaneMgr::SaveDatabase(std::u16string_view path, bool force)
{
    const std::unique_ptr<IProgress> window = m_Context.m_Questions.CreateProgress(u"Save Database");
    CTreeSave save(*this, *window, force);
    save.Count();
    static_cast<void>(save.Step(u"Initializing..."));
    const std::u16string formerRoot = m_sRootFile;
    if (!path.empty() && !MoveToPlace(path))
        return false;
    // Cancelled before anything went to the other place, the database stays where it is.
    const auto cancel = [&]
    {
        m_sRootFile = formerRoot;
        m_sDirectory = CutBehindLastSeparator(formerRoot);
        return false;
    };
    Notify(CCorvaneEvent(ECorvaneEvent::SaveBegin));
    if (!save.Step(u"Saving Schema Files..."))
        return cancel();
    Notify(CCorvaneEvent(ECorvaneEvent::SchemasSaveBegin));
    if (!save.SaveSchemas())
        return cancel();
    Notify(CCorvaneEvent(ECorvaneEvent::SchemasSaveEnd));
    if (!save.Step(u"Saving Category and Record Files..."))
        return cancel();
    Notify(CCorvaneEvent(ECorvaneEvent::CategoriesSaveBegin));
    bool good = true;
    for (const CRef<CCorvaneCategory>& category : std::vector(m_RootCategories))
        good = save.SaveCategoryTree(m_sDirectory, *category, {}) && good;
    if (!good)
        m_Context.m_Questions.Tell(u"Save Failed",
                                   u"The database failed to save.  There were 1 or more errors encountered.",
                                   EIcon::Stop);
    static_cast<void>(save.Step(u"Done."));
    Notify(CCorvaneEvent(ECorvaneEvent::CategoriesSaveEnd));
    Notify(CCorvaneEvent(ECorvaneEvent::SaveComplete));
    Notify(CCorvaneEvent(ECorvaneEvent::SaveEnd));
    return good;
}

// From now on the database lies where `path` says. False leaves it where it is.
bool CCorvaneMgr::MoveToPlace(std::u16string_view path)
{
    const CFileError error = m_Context.m_Files.CreateDirectoryTree(path);
    if (!error.IsOk())
    {
        m_Context.m_Questions.Tell(
            u"Write Error",
            FormatText(u"The directory of the following file could not be created: %s.\n\n%s",
                       error.GetText(), path),
            EIcon::Stop);
        return false;
    }
    m_sRootFile = path;
    m_sDirectory = CutBehindLastSeparator(path);
    return true;
}

bool CCorvaneMgr::SaveSchema(CCorvaneSchema* pSchema)
{
    ZRASSERT(pSchema);
    if (pSchema == nullptr || pSchema->GetFile().empty())
        return false;
    return pSchema->SaveToFile(pSchema->GetFile(), true);
}

bool CCorvaneMgr::SaveCategory(CCorvaneCategory* pCategory, std::u16string* outDir)
{
    ZRASSERT(pCategory);
    if (pCategory == nullptr || m_sDirectory.empty())
        return false;
    std::vector<CCorvaneCategory*> chain;
    for (CCorvaneCategory* category = pCategory; category != nullptr; category = category->GetParent())
        chain.push_back(category);
    std::u16string directory = m_sDirectory;
    for (auto category = chain.rbegin(); category != chain.rend(); ++category)
    {
        if (!(*category)->IsSystem())
            continue;
        if (!(*category)->SaveToFile(directory))
            return false;
        directory += (*category)->GetName() + GetSeparator(m_sDirectory);
    }
    if (outDir)
        *outDir = directory;
    return true;
}

bool CCorvaneMgr::SaveRecord(CCorvaneRecord* pRecord, bool onlyIfModified)
{
    ZRASSERT(pRecord);
    if (pRecord == nullptr || m_sDirectory.empty() || pRecord->GetCategory() == nullptr)
        return false;
    return SaveCategory(pRecord->GetCategory(), nullptr) && pRecord->SaveToFile(!onlyIfModified);
}

bool CCorvaneMgr::SaveChildRecordsAsModified(CCorvaneCategory* pCategory)
{
    ZRASSERT(pCategory);
    if (pCategory == nullptr)
        return false;
    bool good = true;
    // Copies of the lists: a check-out may bring a refresh with it.
    const std::vector<CRef<CCorvaneRecord>> records(pCategory->GetRecords().begin(),
                                                    pCategory->GetRecords().end());
    for (const CRef<CCorvaneRecord>& record : records)
        good = SaveRecord(record.Get(), false) && good;
    const std::vector<CRef<CCorvaneCategory>> children(pCategory->GetChildren().begin(),
                                                       pCategory->GetChildren().end());
    for (const CRef<CCorvaneCategory>& child : children)
        good = SaveChildRecordsAsModified(child.Get()) && good;
    return good;
}

void CCorvaneMgr::MarkChildRecordsAsModified(CCorvaneCategory* pCategory)
{
    ZRASSERT(pCategory);
    if (pCategory == nullptr)
        return;
    for (const CRef<CCorvaneRecord>& record : pCategory->GetRecords())
        record->SetModified(true);
    for (const CRef<CCorvaneCategory>& child : pCategory->GetChildren())
        MarkChildRecordsAsModified(child.Get());
}
