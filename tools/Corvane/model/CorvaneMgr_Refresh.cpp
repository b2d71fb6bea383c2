// Refreshes: what changed on the disk while the database was open comes into memory. Objects without changes
// of their own follow the disk; for the others the user decides.
#include "CorvaneMgr.h"

#include "FormatText.h"
#include "NameCompare.h"
#include "Path.h"
#include "RecordDocument.h"
#include "RunState.h"
#include "SourceGate.h"
#include "SourceTree.h"
#include "host/ExternalChange.h"
#include "host/Questions.h"

#include <algorithm>
#include <unordered_set>

namespace
{
using CNameSet = std::unordered_set<std::u16string, CNameHash, CNameEqual>;

enum class EDiskState
{
    Same,
    Changed,
    Gone,
    Unknown, // The disk gave no answer, which is no reason to drop anything.
};

template <class T> std::vector<CRef<T>> CopyList(std::span<const CRef<T>> list)
{
    return {list.begin(), list.end()};
}
} // namespace

class CDatabaseRefresh
{
public:
    explicit CDatabaseRefresh(CCorvaneMgr& manager) : m_Manager(manager), m_Context(manager.GetContext()) {}

    void RefreshAll(SSourceDirectory& tree);
    void RefreshCategory(CCorvaneCategory& category);
    void RefreshRecord(CCorvaneRecord& record);
    // What vanished comes last: a record that was renamed elsewhere takes the links to its old name with it,
    // unless the files that were written with the new one have been read by then.
    void ResolveGone();
    // Parents of the records that came, went or were read again, and the values that they inherit.
    void ConnectHierarchy();
    // Once for all files: a directory that cannot be entered hides many.
    void TellUnseen() const;

private:
    [[nodiscard]] EDiskState Look(std::u16string_view path, const SFileStamp& known, SFileStamp& now);
    [[nodiscard]] bool IsMine(std::u16string_view path) const;
    [[nodiscard]] bool AskYes(const CQuestion& question) const
    {
        return m_Context.m_Questions.Ask(question) == EAnswer::Yes;
    }

    void RefreshSchema(CCorvaneSchema& schema);
    // False when nothing below the category is to be looked at.
    [[nodiscard]] bool RefreshCategoryFile(CCorvaneCategory& category);
    void OnCategoryGone(CCorvaneCategory& category);
    [[nodiscard]] bool HoldsWork(const CCorvaneCategory& category) const;
    void OnRecordGone(CCorvaneRecord& record);
    void OnRecordChanged(CCorvaneRecord& record, const SFileStamp& now);
    [[nodiscard]] bool IsHeld(const CCorvaneRecord& record) const;

    void IndexTree(const SSourceDirectory& directory, std::u16string_view path);
    void AddNewRecords(CCorvaneCategory& category);
    [[nodiscard]] std::vector<std::u16string> ListRecords(std::u16string_view directory);
    [[nodiscard]] bool IsTaken(const CCorvaneCategory& category, std::u16string_view path);
    void LoadNewSchemas(const SSourceDirectory& directory);
    // Those behind the first `known` ones.
    void ConnectNewSchemas(std::size_t known);
    void LoadNewCategories(SSourceDirectory& directory, CCorvaneCategory* parent);
    void TellRecords() const;

    CCorvaneMgr& m_Manager;
    const CCorvaneContext& m_Context;
    // What the walk over the directories found, by the directory with its last separator.
    std::unordered_map<std::u16string, const SSourceDirectory*, CNameHash, CNameEqual> m_Directories;
    std::vector<CRef<CCorvaneRecord>> m_GoneRecords;
    std::vector<CRef<CCorvaneCategory>> m_GoneCategories;
    std::vector<CRef<CCorvaneCategory>> m_NewCategories;
    CNameSet m_RecordFiles; // Of all records; filled when the first candidate for a new one is met.
    std::unique_ptr<IProgress> m_pProgress; // Made when there is something to read.
    bool m_bConnect = false;
    std::size_t m_nUnseen = 0;
    std::u16string m_sUnseen; // The first one.
    CFileError m_UnseenCause;
};

EDiskState CDatabaseRefresh::Look(std::u16string_view path, const SFileStamp& known, SFileStamp& now)
{
    SFileInfo info;
    const CFileError error = m_Context.m_Files.GetInfo(path, info);
    if (!error.IsOk())
    {
        if (m_nUnseen++ == 0)
        {
            m_sUnseen = path;
            m_UnseenCause = error;
        }
        return EDiskState::Unknown;
    }
    // A directory that took the file's place is somebody else's.
    if (!info.m_bExists || info.m_bDirectory)
        return EDiskState::Gone;
    now = info.m_Stamp;
    return now == known ? EDiskState::Same : EDiskState::Changed;
}

bool CDatabaseRefresh::IsMine(std::u16string_view path) const
{
    return m_Manager.GetGate().IsMine(path);
}

void CDatabaseRefresh::TellUnseen() const
{
    if (m_nUnseen != 0)
        m_Context.m_Questions.Tell(
            u"File Open Failed",
            FormatText(u"What became of %d files could not be found out: %s.  They stay as they are in "
                       u"memory.  The first one:\n\n%s",
                       m_nUnseen, m_UnseenCause.GetText(), m_sUnseen));
}

void CDatabaseRefresh::RefreshAll(SSourceDirectory& tree)
{
    IndexTree(tree, m_Manager.GetDirectory());
    const auto schemas = CopyList(m_Manager.GetSchemas());
    for (auto schema = schemas.rbegin(); schema != schemas.rend(); ++schema)
        RefreshSchema(**schema);
    const auto categories = CopyList(m_Manager.GetRootCategories());
    for (auto category = categories.rbegin(); category != categories.rend(); ++category)
        RefreshCategory(**category);
    ResolveGone();

    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::ReloadBegin));
    const std::size_t known = m_Manager.GetSchemas().size();
    LoadNewSchemas(tree);
    ConnectNewSchemas(known);
    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::CategoriesLoadBegin));
    LoadNewCategories(tree, nullptr);
    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::CategoriesLoadEnd));
    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::RecordsLoadBegin));
    for (const CRef<CCorvaneCategory>& category : m_NewCategories)
        AddNewRecords(*category);
    ConnectHierarchy();
    TellRecords();
    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::RecordsLoadEnd));
    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::ReloadEnd));
    TellUnseen();
}

void CDatabaseRefresh::RefreshSchema(CCorvaneSchema& schema)
{
    if (schema.GetFile().empty())
        return;
    SFileStamp now;
    const EDiskState state = Look(schema.GetFile(), schema.GetFileStamp(), now);
    if (state == EDiskState::Unknown)
        return;
    schema.SetFlag(SCHEMA_FLAG_MISSING, state == EDiskState::Gone);
    if (state != EDiskState::Changed)
        return;
    const bool held = schema.TestFlag(SCHEMA_FLAG_MODIFIED) || IsMine(schema.GetFile());
    if (held && !AskYes(MakeExternalModificationQuestion(schema.GetFile())))
        schema.SetFileStamp(now);
    else
        static_cast<void>(schema.ReloadFromFile()); // It tells what is wrong with the file.
}

void CDatabaseRefresh::RefreshCategory(CCorvaneCategory& category)
{
    const CRef<CCorvaneCategory> keepAlive(&category);
    if (category.GetCategoryType() != 0 || !RefreshCategoryFile(category))
        return;
    const auto records = CopyList(category.GetRecords());
    for (auto record = records.rbegin(); record != records.rend(); ++record)
        RefreshRecord(**record);
    AddNewRecords(category);
    const auto children = CopyList(category.GetChildren());
    for (auto child = children.rbegin(); child != children.rend(); ++child)
        RefreshCategory(**child);
}

bool CDatabaseRefresh::RefreshCategoryFile(CCorvaneCategory& category)
{
    const std::u16string file = category.GetFile();
    if (file.empty())
        return true;
    SFileStamp now;
    const EDiskState state = Look(file, category.GetFileStamp(), now);
    // Without a stamp the file could not be written at the last save, and is none that vanished.
    if (state == EDiskState::Gone && category.GetFileStamp() != SFileStamp{})
    {
        m_GoneCategories.emplace_back(&category);
        return false;
    }
    if (state != EDiskState::Changed)
        return true;
    if (IsMine(file) && !AskYes(MakeExternalModificationQuestion(file)))
        category.SetFileStamp(now);
    else
        static_cast<void>(category.ReloadFromFile());
    return true;
}

void CDatabaseRefresh::OnCategoryGone(CCorvaneCategory& category)
{
    if (!HoldsWork(category) || AskYes(MakeExternalDeletionQuestion(category.GetFile())))
    {
        m_bConnect = m_Manager.DeleteCategory(category, false) || m_bConnect;
        return;
    }
    const CCorvaneCategory* above = m_Manager.GetSystemCategory(category.GetParent());
    const std::u16string_view directory =
        above ? GetDirectoryPart(above->GetFile()) : std::u16string_view(m_Manager.GetDirectory());
    static_cast<void>(category.SaveToFile(directory));
}

// A category has no mark of its own for changes; what its records wait with would go with it.
bool CDatabaseRefresh::HoldsWork(const CCorvaneCategory& category) const
{
    const auto records = category.GetRecords();
    const auto children = category.GetChildren();
    return (!category.GetFile().empty() && IsMine(category.GetFile())) ||
           std::any_of(records.begin(), records.end(), [&](const auto& record) { return IsHeld(*record); }) ||
           std::any_of(children.begin(), children.end(),
                       [&](const auto& child) { return HoldsWork(*child); });
}

bool CDatabaseRefresh::IsHeld(const CCorvaneRecord& record) const
{
    return record.TestFlag(RECORD_FLAG_MODIFIED) || IsMine(record.GetFile());
}

void CDatabaseRefresh::RefreshRecord(CCorvaneRecord& record)
{
    if (record.GetFile().empty())
        return;
    SFileStamp now;
    const EDiskState state = Look(record.GetFile(), record.GetFileStamp(), now);
    if (state == EDiskState::Gone)
        m_GoneRecords.emplace_back(&record);
    else if (state == EDiskState::Changed)
        OnRecordChanged(record, now);
}

void CDatabaseRefresh::OnRecordChanged(CCorvaneRecord& record, const SFileStamp& now)
{
    if (IsHeld(record) && !AskYes(MakeExternalModificationQuestion(record.GetFile())))
    {
        record.SetFileStamp(now);
        return;
    }
    const CRef<CCorvaneRecord> keepAlive(&record);
    if (!record.ReloadFromFile())
        return;
    m_bConnect = true;
    if (IRecordDocument* document = record.GetDocument())
        document->UpdateViews(ERecordUpdate::Reloaded);
}

void CDatabaseRefresh::OnRecordGone(CCorvaneRecord& record)
{
    if (!IsHeld(record) || AskYes(MakeExternalDeletionQuestion(record.GetFile())))
    {
        m_bConnect = m_Manager.DeleteRecord(record, false) || m_bConnect;
        return;
    }
    // Meanwhile somebody may have put a file there, which must not be written over unasked.
    SFileStamp now;
    const EDiskState state = Look(record.GetFile(), record.GetFileStamp(), now);
    if (state == EDiskState::Gone)
        static_cast<void>(record.SaveToFile(true)); // It tells why it could not.
    else if (state == EDiskState::Changed)
        OnRecordChanged(record, now);
}

void CDatabaseRefresh::ResolveGone()
{
    for (const CRef<CCorvaneRecord>& record : m_GoneRecords)
        OnRecordGone(*record);
    for (const CRef<CCorvaneCategory>& category : m_GoneCategories)
        OnCategoryGone(*category);
}

void CDatabaseRefresh::IndexTree(const SSourceDirectory& directory, std::u16string_view path)
{
    for (const SSourceDirectory::SEntry& entry : directory.m_Entries)
    {
        if (entry.m_pDirectory)
            IndexTree(*entry.m_pDirectory, entry.m_sPath + GetSeparator(entry.m_sPath));
    }
    m_Directories.emplace(path, &directory);
}

std::vector<std::u16string> CDatabaseRefresh::ListRecords(std::u16string_view directory)
{
    if (const auto found = m_Directories.find(directory); found != m_Directories.end())
        return found->second->m_Records;
    if (!m_Directories.empty())
        return {}; // The walk over the directories has told why it could not see this one.
    std::vector<SDirectoryEntry> entries;
    const CFileError error = m_Context.m_Files.ListDirectory(directory, {false, true, u"record"}, entries);
    if (!error.IsOk())
        m_Context.m_Questions.Tell(
            u"Directory Error",
            FormatText(u"The following directory could not be read: %s.\n\n%s", error.GetText(), directory));
    std::vector<std::u16string> names;
    for (SDirectoryEntry& entry : entries)
        names.push_back(std::move(entry.m_sName));
    return names;
}

void CDatabaseRefresh::AddNewRecords(CCorvaneCategory& category)
{
    // Records that no schema describes were told when the category was loaded.
    if (category.GetFile().empty() || !category.IsSystem() || category.GetSchema() == nullptr)
        return;
    const std::u16string directory(GetDirectoryPart(category.GetFile()));
    std::vector<std::u16string> names = ListRecords(directory);
    std::erase_if(names, [&](const std::u16string& name) { return IsTaken(category, directory + name); });
    if (names.empty())
        return;
    if (!m_pProgress)
        m_pProgress = m_Context.m_Questions.CreateProgress(u"Refresh Database");
    m_pProgress->SetText(u"Loading Records...");
    m_Manager.LoadRecords(category, names, *m_pProgress);
    m_bConnect = true;
}

// Nearly every file is that of a record of its own directory. The others may belong to one that was moved in
// memory and waits for a save.
bool CDatabaseRefresh::IsTaken(const CCorvaneCategory& category, std::u16string_view path)
{
    if (category.IsFileTaken(path, nullptr))
        return true;
    if (m_RecordFiles.empty())
        m_Manager.EnumerateRecords(
            [this](CCorvaneRecord& record)
            {
                m_RecordFiles.insert(record.GetFile());
                return true;
            });
    return m_RecordFiles.count(std::u16string(path)) != 0;
}

void CDatabaseRefresh::LoadNewSchemas(const SSourceDirectory& directory)
{
    for (const SSourceDirectory::SEntry& entry : directory.m_Entries)
    {
        if (entry.m_pDirectory)
            LoadNewSchemas(*entry.m_pDirectory);
        else
            m_Manager.AddSchemaFile(entry.m_sPath);
    }
}

void CDatabaseRefresh::ConnectNewSchemas(std::size_t known)
{
    const auto schemas = m_Manager.GetSchemas();
    const auto first = schemas.begin() + static_cast<std::ptrdiff_t>(known);
    // One that was there may have waited for its parent.
    const auto orphan =
        std::find_if(schemas.begin(), first,
                     [&](const auto& schema)
                     {
                         return schema->GetParent() == nullptr && !schema->GetParentName().empty() &&
                                std::find(first, schemas.end(),
                                          m_Manager.FindSchema(schema->GetParentName())) != schemas.end();
                     });
    if (orphan != first)
        (*orphan)->Reconnect();
    else
        m_Manager.ConnectSchemaParents(known);
}

void CDatabaseRefresh::LoadNewCategories(SSourceDirectory& directory, CCorvaneCategory* parent)
{
    for (SSourceDirectory::SEntry& entry : directory.m_Entries)
    {
        if (!entry.m_pDirectory || !entry.m_pDirectory->m_bCategory)
            continue;
        const std::u16string file = entry.m_sPath + GetSeparator(entry.m_sPath) + u"cvd.category";
        CCorvaneCategory* category = m_Manager.FindCategoryByFile(file);
        if (category == nullptr)
        {
            const CRef<CCorvaneCategory> loaded = CCorvaneCategory::CreateFromFile(m_Manager, file, parent);
            if (!loaded)
                continue;
            category = m_Manager.AddCategory(loaded);
            if (loaded == category)
                m_NewCategories.push_back(loaded);
        }
        LoadNewCategories(*entry.m_pDirectory, category);
    }
}

void CDatabaseRefresh::ConnectHierarchy()
{
    if (!m_bConnect)
        return;
    const auto categories = CopyList(m_Manager.GetRootCategories());
    for (const CRef<CCorvaneCategory>& category : categories)
        m_Manager.ConnectHierarchalData(category.Get());
    for (const CRef<CCorvaneCategory>& category : categories)
        m_Manager.UpdateHierarchalData(category.Get());
}

void CDatabaseRefresh::TellRecords() const
{
    std::vector<CRef<CCorvaneRecord>> records;
    m_Manager.EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            records.emplace_back(&record);
            return true;
        });
    for (auto record = records.rbegin(); record != records.rend(); ++record)
        m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::RecordReloaded, record->Get()));
}

bool CCorvaneMgr::RefreshDatabase()
{
    // A question lets the window breathe, and with it the wish for another refresh.
    if (!IsOpen() || m_Context.m_Run.Test(APP_RELOADING))
        return false;
    const CStateScope reloading(m_Context.m_Run, APP_RELOADING);
    // A disk that is not there holds no files either, and would take the whole database with it.
    if (!m_Context.m_Files.IsDirectory(m_sDirectory))
    {
        m_Context.m_Questions.Tell(
            u"Directory Error",
            FormatText(
                u"The directory of the database cannot be reached, so that nothing is refreshed.\n\n%s",
                m_sDirectory));
        return false;
    }
    const std::unique_ptr<SSourceDirectory> tree =
        ReadSourceTree(m_Context.m_Files, m_Context.m_Questions, m_sDirectory);
    CDatabaseRefresh(*this).RefreshAll(*tree);
    return true;
}

bool CCorvaneMgr::RefreshCategory(CCorvaneCategory& category)
{
    if (m_Context.m_Run.Test(APP_RELOADING))
        return false;
    const CStateScope reloading(m_Context.m_Run, APP_RELOADING);
    CDatabaseRefresh refresh(*this);
    refresh.RefreshCategory(category);
    refresh.ResolveGone();
    refresh.ConnectHierarchy();
    refresh.TellUnseen();
    return true;
}

bool CCorvaneMgr::RefreshRecord(CCorvaneRecord& record)
{
    if (m_Context.m_Run.Test(APP_RELOADING))
        return false;
    const CStateScope reloading(m_Context.m_Run, APP_RELOADING);
    CDatabaseRefresh refresh(*this);
    refresh.RefreshRecord(record);
    refresh.ResolveGone();
    refresh.ConnectHierarchy();
    refresh.TellUnseen();
    return true;
}
