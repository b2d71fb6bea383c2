// How a database comes into memory and leaves it. The directory tree is the database: nothing lists its
// files. The order of the walks is fixed, since record parents may lie in any category and inherited values
// may be filled only when every parent link exists.
#include "CorvaneMgr.h"

#include "CategoryNames.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "Path.h"
#include "PointerIndex.h"
#include "Profile.h"
#include "RecordLayout.h"
#include "RunState.h"
#include "SourceGate.h"
#include "SourceTree.h"
#include "UndoRecorder.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <optional>
#include <utility>

namespace
{
constexpr std::u16string_view kGeneral = u"General";
constexpr std::u16string_view kDatabaseSection = u"Database";
constexpr std::u16string_view kOverrides = u"Overrides";

std::u16string ReadOr(const IUnicodeFileParse& parser, std::u16string_view section, std::u16string_view key,
                      std::u16string_view fallback)
{
    std::u16string value(fallback);
    parser.ReadString(section, key, value);
    return value;
}

void ReplaceAll(std::u16string& text, std::u16string_view token, std::u16string_view value)
{
    for (std::size_t at = text.find(token); at != std::u16string::npos;
         at = text.find(token, at + value.size()))
        text.replace(at, token.size(), value);
}

// The path without its last element; unchanged when it has no separator.
std::u16string_view CutLastElement(std::u16string_view path)
{
    std::size_t cut = path.rfind(u'\\');
    if (cut == std::u16string_view::npos)
        cut = path.rfind(u'/');
    return path.substr(0, cut);
}
} // namespace

bool CCorvaneMgr::OpenDatabase(std::u16string_view path)
{
    if (!CloseDatabase())
        return false;
    const CStateScope loading(m_Context.m_Run, APP_LOADING);
    m_sRootFile = path;
    Notify(CCorvaneEvent(ECorvaneEvent::LoadBegin));
    m_sDirectory = CutBehindLastSeparator(path);

    if (!LocateProject(path))
    {
        m_Context.m_Questions.Tell(
            u"Project Error",
            FormatText(u"Failed to locate the locator file (*.proj00) for the following "
                       u"project.  The project could not be loaded.\n\n%s",
                       path),
            EIcon::Stop);
        return FailOpen();
    }
    if (!LoadRootFile(path))
    {
        m_Context.m_Questions.Tell(u"Invalid Game Database Root File",
                                   FormatText(u"The following file is not a valid game database root file "
                                              u"(*.Gamdb00s) or the file may be corrupt\n\n%s",
                                              path),
                                   EIcon::Stop);
        return FailOpen();
    }
    if (!ConnectSourceControl())
        return FailOpen();
    m_Context.m_Questions.PumpMessages();
    ReadPerUserFile();
    LoadTree();
    m_Gate.ReadCheckOutList(m_PerUser);
    Notify(CCorvaneEvent(ECorvaneEvent::LoadComplete));
    Notify(CCorvaneEvent(ECorvaneEvent::LoadEnd));
    ChooseActiveBuild();
    return true;
}

bool CCorvaneMgr::FailOpen()
{
    static_cast<void>(CloseDatabase());
    Notify(CCorvaneEvent(ECorvaneEvent::LoadEnd));
    return false;
}

std::u16string_view CCorvaneMgr::CutBehindLastSeparator(std::u16string_view path)
{
    std::size_t cut = path.rfind(u'\\');
    if (cut == std::u16string_view::npos)
        cut = path.rfind(u'/');
    return cut == std::u16string_view::npos ? std::u16string_view() : path.substr(0, cut + 1);
}

bool CCorvaneMgr::LocateProject(std::u16string_view path)
{
    CProjectInfo project;
    if (!::LocateProject(m_Context.m_Files, path, project))
        return false;
    m_Project = std::move(project);
    m_Gate.Configure(CGuid::Parse(m_Project.m_sProvider).value_or(CGuid()), m_Project.m_sDatabase);
    m_Context.m_Run.SetBasePath(m_Project.m_sResourceRoot);
    return true;
}

bool CCorvaneMgr::LoadRootFile(std::u16string_view path)
{
    CUnicodeFileParse_ReadOnly parser(m_Context.m_Files);
    // A file that cannot be read gives all defaults and has no identity.
    static_cast<void>(parser.Import(path, 0));
    SRootFile root;
    root.m_nVersion = parser.ReadInteger(kGeneral, u"Version");
    root.m_sName = ReadOr(parser, kGeneral, u"Name", u"Unknown Database");
    const auto inRoot = [&](std::u16string_view value) { return JoinCanonical(m_sDirectory, value); };
    root.m_sBuild = inRoot(ReadOr(parser, kGeneral, u"Build", u"Database.Gamdb00p"));
    root.m_sOverrideDatabase = inRoot(ReadOr(parser, kOverrides, u"Database", u"MPCustomizations.txt"));
    root.m_sOverrideConstraints = inRoot(ReadOr(parser, kOverrides, u"Constraints", u"DBConstraints.dat"));
    if (parser.IsKey(kGeneral, u"StringDatabase"))
        root.m_sStringDatabase =
            JoinCanonical(GetDirectoryPart(path), ReadOr(parser, kGeneral, u"StringDatabase", u""));
    if (parser.IsKey(kGeneral, u"PostBuildStep"))
        root.m_sPostBuildStep =
            JoinCanonical(m_sToolsDirectory, ReadOr(parser, kGeneral, u"PostBuildStep", u""));
    const std::u16string identity = ReadOr(parser, kGeneral, u"Database", u"");
    const std::optional<CGuid> guid = CGuid::Parse(identity);
    if (!guid)
        return false;
    root.m_sDatabase = identity;
    root.m_Guid = *guid;
    m_Root = std::move(root);
    ReplacePostBuildTokens();
    SetActiveBuild(GetBuildNumber());
    return true;
}

void CCorvaneMgr::ReplacePostBuildTokens()
{
    std::u16string& command = m_Root.m_sPostBuildStep;
    if (command.empty())
        return;
    const std::u16string& basePath = m_Context.m_Run.GetBasePath();
    ReplaceAll(command, u"%GAMEDIR%", basePath);
    ReplaceAll(command, u"%RUNTIMEDIR%", CutLastElement(basePath));
    ReplaceAll(command, u"%TOOLSDIR%", WithoutLastSeparator(m_sToolsDirectory));
    ReplaceAll(command, u"%SOURCECONTROLPROVIDER%", m_Gate.GetProvider().ToText());
    ReplaceAll(command, u"%SOURCECONTROLDATABASE%", m_Gate.GetProject());
    ReplaceAll(command, u"%SILENT%", m_Context.m_Run.m_bSilent ? u"1" : u"0");
}

bool CCorvaneMgr::ConnectSourceControl()
{
    while (!m_Gate.Connect())
    {
        const EAnswer answer = m_Context.m_Questions.Ask(
            MakeQuestion(u"Source Control Integration", u"Failed to initialize source control integration.",
                         EButtons::AbortRetryIgnore, EIcon::Stop));
        if (answer == EAnswer::Ignore)
            return true;
        if (answer != EAnswer::Retry)
            return false;
    }
    return true;
}

void CCorvaneMgr::ReadPerUserFile()
{
    m_PerUser.Clear();
    const std::u16string path = GetPerUserFilePath(m_Root.m_sDatabase);
    const bool read = m_PerUser.Import(path, 0);
    // A user's first load has no such file. One that is there but cannot be read may hold what the user
    // needs, so that it is not written over at the close.
    m_bPerUserRead = read || m_PerUser.GetLastError().m_Code == EFileError::NotFound;
    if (!m_bPerUserRead)
        m_Context.m_Questions.Tell(
            u"File Open Failed",
            FormatText(u"Your settings of this database could not be read and stay as they are: %s.\n\n%s",
                       m_PerUser.GetLastError().GetText(), path));
    m_PerUser.WriteString(kGeneral, u"Database", m_Root.m_sName);
    // A raised version of the database discards the build that the user had chosen before.
    if (m_PerUser.ReadInteger(kDatabaseSection, u"Version") < m_Root.m_nVersion)
        m_PerUser.DeleteKey(kDatabaseSection, u"Active.Build");
    ApplyStoredBuild();
}

void CCorvaneMgr::LoadTree()
{
    const std::unique_ptr<IProgress> progress = m_Context.m_Questions.CreateProgress(u"Open Database");
    progress->SetText(u"Reading Directories...");
    const std::unique_ptr<SSourceDirectory> tree =
        ReadSourceTree(m_Context.m_Files, m_Context.m_Questions, m_sDirectory);
    progress->SetText(u"Loading Schemas...");
    Notify(CCorvaneEvent(ECorvaneEvent::SchemasLoadBegin));
    LoadSchemas(*tree);
    ConnectSchemaParents();
    Notify(CCorvaneEvent(ECorvaneEvent::SchemasLoadEnd));

    progress->SetText(u"Loading Categories...");
    Notify(CCorvaneEvent(ECorvaneEvent::CategoriesLoadBegin));
    CategoryDirectories directories;
    LoadCategories(*tree, nullptr, directories);
    Notify(CCorvaneEvent(ECorvaneEvent::CategoriesLoadEnd));

    progress->SetText(u"Loading Records...");
    Notify(CCorvaneEvent(ECorvaneEvent::RecordsLoadBegin));
    LoadAllRecords(directories, *progress);
    for (const CRef<CCorvaneCategory>& category : m_RootCategories)
        ConnectHierarchalData(category.Get());
    for (const CRef<CCorvaneCategory>& category : m_RootCategories)
        UpdateHierarchalData(category.Get());
    Notify(CCorvaneEvent(ECorvaneEvent::RecordsLoadEnd));
}

void CCorvaneMgr::LoadSchemas(const SSourceDirectory& directory)
{
    for (const SSourceDirectory::SEntry& entry : directory.m_Entries)
    {
        if (entry.m_pDirectory)
            LoadSchemas(*entry.m_pDirectory);
        else
            AddSchemaFile(entry.m_sPath);
    }
}

void CCorvaneMgr::ConnectSchemaParents(std::size_t first)
{
    for (std::size_t i = first; i < m_Schemas.size(); ++i)
    {
        const CRef<CCorvaneSchema> schema = m_Schemas[i];
        if (schema->ConnectParent())
            continue;
        m_Context.m_Questions.Tell(
            u"Find Schema Failed",
            FormatText(u"Failed to find schema '%s'.  This schema is specified as the parent of schema '%s'.",
                       schema->GetParentName(), schema->GetName()));
    }
}

void CCorvaneMgr::LoadCategories(SSourceDirectory& directory, CCorvaneCategory* parent,
                                 CategoryDirectories& directories)
{
    for (SSourceDirectory::SEntry& entry : directory.m_Entries)
    {
        if (!entry.m_pDirectory || !entry.m_pDirectory->m_bCategory)
            continue;
        const std::u16string file = entry.m_sPath + GetSeparator(entry.m_sPath) + u"cvd.category";
        const CRef<CCorvaneCategory> loaded = CCorvaneCategory::CreateFromFile(*this, file, parent);
        if (!loaded)
            continue;
        CCorvaneCategory* category = AddCategory(loaded);
        directories.emplace(category, entry.m_pDirectory.get()); // The first directory of a name counts.
        LoadCategories(*entry.m_pDirectory, category, directories);
    }
}

void CCorvaneMgr::LoadAllRecords(const CategoryDirectories& directories, IProgress& progress)
{
    // The tree grows by virtual categories while records are read; only system categories have directories.
    std::vector<CCorvaneCategory*> categories;
    EnumerateCategories([&](CCorvaneCategory& category) { categories.push_back(&category); });
    for (std::size_t i = 0; i < categories.size(); ++i)
    {
        progress.SetPercent(static_cast<int>(100 * i / categories.size()));
        LoadRecords(*categories[i], directories.at(categories[i])->m_Records, progress);
    }
    progress.SetPercent(100);
}

void CCorvaneMgr::LoadRecords(CCorvaneCategory& category, std::span<const std::u16string> names,
                              IProgress& progress)
{
    std::u16string path(GetDirectoryPart(category.GetFile()));
    const std::size_t length = path.size();
    if (category.GetSchema() == nullptr && !names.empty())
        TellStrayRecords(path, names.size());
    const std::optional<CRecordLayout> layout =
        category.GetSchema() ? std::optional<CRecordLayout>(*category.GetSchema()) : std::nullopt;
    for (std::size_t i = 0; i < names.size(); ++i)
    {
        if (i % 512 == 0)
            static_cast<void>(progress.Pump()); // A load cannot be cancelled half-way.
        path.replace(length, std::u16string::npos, names[i]);
        AddRecordFile(path, category, layout ? &*layout : nullptr);
    }
}

void CCorvaneMgr::TellStrayRecords(std::u16string_view directory, std::size_t count)
{
    m_Context.m_Questions.Tell(
        u"Invalid Schema",
        FormatText(u"The category names no schema, so that its records (%d) are not loaded.\n\n%s", count,
                   directory));
}

void CCorvaneMgr::ConnectHierarchalData(CCorvaneCategory* pParent)
{
    ZRASSERT_MSG(pParent, "Invalid category pointer");
    if (pParent == nullptr)
        return;
    for (const CRef<CCorvaneRecord>& record : pParent->GetRecords())
        record->ConnectHierarchy();
    for (const CRef<CCorvaneCategory>& child : pParent->GetChildren())
        ConnectHierarchalData(child.Get());
}

void CCorvaneMgr::UpdateHierarchalData(CCorvaneCategory* pParent)
{
    ZRASSERT_MSG(pParent, "Invalid category pointer");
    if (pParent == nullptr)
        return;
    for (const CRef<CCorvaneRecord>& record : pParent->GetRecords())
    {
        if (record->GetParent() == nullptr)
            record->UpdateHierarchy();
    }
    for (const CRef<CCorvaneCategory>& child : pParent->GetChildren())
        UpdateHierarchalData(child.Get());
}

bool CCorvaneMgr::CloseDatabase()
{
    if (!m_Context.m_Run.Test(APP_CLOSING) && !AskSaveChanges())
        return false;
    Notify(CCorvaneEvent(ECorvaneEvent::CloseBegin));
    m_bDirty = false;
    m_Undo.Clear();
    ReleaseTree();
    m_Root.m_sName.clear();
    m_Gate.Disconnect();
    WriteBuildSettings();
    m_bPerUserRead = false;
    m_PerUser.Clear();
    m_Root.m_sDatabase.clear();
    Notify(CCorvaneEvent(ECorvaneEvent::CloseEnd));
    return true;
}

void CCorvaneMgr::SavePerUserFile()
{
    if (!m_bPerUserRead)
        return;
    const std::u16string path = GetPerUserFilePath(m_Root.m_sDatabase);
    if (!m_PerUser.Export(path, EXPORT_UTF16LE))
        m_Context.m_Questions.Tell(
            u"Write Error", FormatText(u"Your settings of this database could not be written: %s.\n\n%s",
                                       m_PerUser.GetLastError().GetText(), path));
}

// A failed save is a false too: closing would lose the changes that the user wants to keep.
bool CCorvaneMgr::AskSaveChanges()
{
    if (!m_bDirty && !m_Undo.HasEntries())
        return true;
    CQuestion question = MakeQuestion(u"Save Changes", u"Save changes to this database?",
                                      EButtons::YesNoCancel, EIcon::Question);
    question.m_Unattended = EAnswer::No;
    const EAnswer answer = m_Context.m_Questions.Ask(question);
    if (answer == EAnswer::Yes)
        return SaveDatabase({}, false);
    return answer != EAnswer::Cancel;
}

void CCorvaneMgr::ReleaseTree()
{
    m_CompiledRecords.Clear();
    m_CompiledCategories.Clear();
    // All links at once: taking each record out of its parent's list would be quadratic in a list's length.
    EnumerateRecords(
        [](CCorvaneRecord& record)
        {
            record.DropLinks();
            return true;
        });
    while (!m_RootCategories.empty())
    {
        const CRef<CCorvaneCategory> category = m_RootCategories.back();
        ReleaseCategory(*category);
        category->m_bRoot = false; // A special category stays for the next database.
        m_RootCategories.pop_back();
    }
    // What a delete passed over in a special category that is not in the tree.
    for (const CRef<CCorvaneCategory>& special : m_SpecialCategories)
        ReleaseDeletedCategory(*special);
    m_pRootIndex->Clear();
    m_pSchemaNames->Clear();
    m_pSchemaFiles->Clear();
    for (const CRef<CCorvaneSchema>& schema : m_Schemas)
        schema->Clear();
    m_Schemas.clear();
}

void CCorvaneMgr::ReleaseCategory(CCorvaneCategory& category)
{
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryDeleting, &category));
    for (std::vector<CRef<CCorvaneRecord>> records = category.TakeRecords(); !records.empty();
         records.pop_back())
    {
        Notify(CCorvaneEvent(ECorvaneEvent::RecordDeleted, records.back().Get()));
        records.back()->Clear();
    }
    for (std::vector<CRef<CCorvaneCategory>> children = category.TakeChildren(); !children.empty();
         children.pop_back())
    {
        ReleaseCategory(*children.back());
        children.back()->m_pParent = nullptr; // A root category that was moved comes a second time.
    }
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryDeleted, &category));
}
