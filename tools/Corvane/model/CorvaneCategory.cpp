#include "CorvaneCategory.h"

#include "CategoryNames.h"
#include "CorvaneMgr.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "NumberedNames.h"
#include "Path.h"
#include "PointerIndex.h"
#include "SourceFileWriter.h"
#include "Unicode.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <algorithm>
#include <utility>

// Records of one system category and of the virtual categories below it, whose files share one directory.
class CCategoryIndex
{
public:
    void Add(CCorvaneRecord& record)
    {
        m_Names.Add(HashName(record.GetName()), record);
        m_Files.Add(HashFile(record.GetFile()), record);
    }
    void Remove(const CCorvaneRecord& record)
    {
        RemoveName(record.GetName(), record);
        m_Files.Remove(HashFile(record.GetFile()), record);
    }
    bool RemoveName(std::u16string_view name, const CCorvaneRecord& record)
    {
        m_Numbers.OnFreed(name);
        return m_Names.Remove(HashName(name), record);
    }
    static std::size_t HashFile(std::u16string_view path) { return HashName(GetFileNamePart(path)); }

    CPointerIndex<CCorvaneRecord> m_Names;
    CPointerIndex<CCorvaneRecord> m_Files;
    CNumberedNames m_Numbers;
};

namespace
{
constexpr std::u16string_view kSection = u"Category";

template <class Function> void ForEachInNamespace(const CCorvaneCategory& category, const Function& function)
{
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
        function(*record);
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
    {
        if (!child->IsSystem())
            ForEachInNamespace(*child, function);
    }
}
} // namespace

CCorvaneCategory::CCorvaneCategory(CCorvaneMgr& manager, std::u16string_view name, std::u16string_view help,
                                   std::u16string_view comment, CCorvaneSchema* schema,
                                   CCorvaneCategory* parent, std::uint32_t flags)
    : m_Manager(manager), m_dwFlags(flags), m_sName(name), m_sComment(comment), m_sHelp(help),
      m_pSchema(schema), m_pParent(parent), m_pChildIndex(std::make_unique<CCategoryNames>()),
      m_pIndex(std::make_unique<CCategoryIndex>())
{
}

CCorvaneCategory::~CCorvaneCategory()
{
    SetFile({});
    // An undo entry may hold a child longer than this category lives.
    for (const CRef<CCorvaneCategory>& child : m_Children)
    {
        if (child->m_pParent == this)
            child->m_pParent = nullptr;
    }
}

CRef<CCorvaneCategory> CCorvaneCategory::CreateFromFile(CCorvaneMgr& manager, std::u16string_view path,
                                                        CCorvaneCategory* parent)
{
    CUnicodeFileParse_ReadOnly& parser = manager.GetLoadParser();
    if (!ImportSourceFile(manager, parser, path, u"Invalid Category File Format", u"category"))
        return nullptr;
    const std::u16string_view name = GetFileNamePart(WithoutLastSeparator(GetDirectoryPart(path)));
    std::u16string schemaName, comment, help;
    parser.ReadString(kSection, u"Schema", schemaName);
    parser.ReadString(kSection, u"Comment", comment);
    parser.ReadString(kSection, u"Help", help);
    CCorvaneSchema* schema = manager.FindSchema(schemaName);
    if (schema == nullptr && !schemaName.empty())
    {
        manager.GetContext().m_Questions.Tell(
            u"Invalid Schema",
            FormatText(u"The category '%s' uses an invalid schema '%s'.  The category will not be loaded.",
                       name, schemaName));
        return nullptr;
    }
    CRef<CCorvaneCategory> category(
        new CCorvaneCategory(manager, name, DecodeMultiLine(help), DecodeMultiLine(comment),
                             schemaName.empty() ? nullptr : schema, parent, CATEGORY_FLAG_SYSTEM));
    category->SetFile(path);
    category->m_Stamp = parser.GetFileInfo().m_Stamp;
    return category;
}

bool CCorvaneCategory::ReloadFromFile()
{
    if (m_sFile.empty())
        return false;
    CUnicodeFileParse_ReadOnly parser(m_Manager.GetContext().m_Files);
    if (!ImportSourceFile(m_Manager, parser, m_sFile, u"Invalid Category File Format", u"category"))
        return false;
    std::u16string comment, help;
    parser.ReadString(kSection, u"Comment", comment);
    parser.ReadString(kSection, u"Help", help);
    m_sComment = DecodeMultiLine(comment);
    m_sHelp = DecodeMultiLine(help);
    SetSystem(parser.ReadBoolean(kSection, u"System"));
    m_Stamp = parser.GetFileInfo().m_Stamp;
    return true;
}

bool CCorvaneCategory::SaveToFile(std::u16string_view path)
{
    if (!IsSystem())
        return true;
    ZRASSERT(EndsInSeparator(path));
    const std::u16string file = MakeFilePath(path);
    if (file.empty() || !CreateOwnDirectory(WithoutLastSeparator(GetDirectoryPart(file))))
        return false;
    TakeNameFrom(file);
    if (!EqualNames(file, m_sFile))
    {
        m_Stamp = {}; // A file that was never there must not look like one that vanished.
        m_FormerFiles.push_back(m_sFile);
    }
    SetFile(file);
    WriteOwnFile();
    return true;
}

std::u16string CCorvaneCategory::MakeFilePath(std::u16string_view path) const
{
    const std::u16string base = MakeFileBaseName(m_sName);
    const std::u16string tail = GetSeparator(std::u16string(path) + base) + std::u16string(u"cvd.category");
    // Another category's directory is as little this one's as a sibling's name that is still to be saved.
    const auto isTaken = [this](std::u16string_view file)
    {
        const std::u16string_view name = GetFileNamePart(WithoutLastSeparator(GetDirectoryPart(file)));
        return !EqualNames(name, m_sName) && !m_Manager.IsCategoryNameFree(m_pParent, name);
    };
    // A directory that it had before is its own: the undo of a rename leads back to it, or another Save As.
    const auto isOwn = [this](std::u16string_view file)
    {
        return EqualNames(file, m_sFile) ||
               std::any_of(m_FormerFiles.begin(), m_FormerFiles.end(),
                           [&](const std::u16string& former) { return EqualNames(file, former); });
    };
    return MakeFreePath(m_Manager, path, base, tail, isOwn, isTaken);
}

// The next load takes the name from the directory.
void CCorvaneCategory::TakeNameFrom(std::u16string_view file)
{
    const std::u16string_view name = GetFileNamePart(WithoutLastSeparator(GetDirectoryPart(file)));
    if (name == m_sName)
        return;
    const std::u16string old = m_sName;
    SetName(name);
    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::CategoryRenamed, SCategoryRenamed{this, old, m_sName}));
}

bool CCorvaneCategory::CreateOwnDirectory(std::u16string_view directory) const
{
    const CCorvaneContext& context = m_Manager.GetContext();
    const CFileError error = context.m_Files.CreateDirectory(directory);
    if (error.IsOk() || error.m_Code == EFileError::AlreadyExists)
        return true;
    context.m_Questions.Tell(
        u"Write Error",
        FormatText(u"The following directory could not be created: %s.\n\n%s", error.GetText(), directory),
        EIcon::Stop);
    return false;
}

void CCorvaneCategory::WriteOwnFile()
{
    const CCorvaneContext& context = m_Manager.GetContext();
    CUnicodeFileParse_ReadWrite writer(context.m_Files);
    writer.WriteString(kSection, u"Schema", m_pSchema ? m_pSchema->GetName() : std::u16string());
    writer.WriteString(kSection, u"Comment", EncodeMultiLine(m_sComment));
    writer.WriteString(kSection, u"Help", EncodeMultiLine(m_sHelp));
    writer.WriteBoolean(kSection, u"System", true);
    if (writer.Export(m_sFile, EXPORT_UTF16LE))
    {
        SFileInfo info;
        if (context.m_Files.GetInfo(m_sFile, info).IsOk())
            m_Stamp = info.m_Stamp;
        return;
    }
    // A category file that cannot be written stays as it was: it is written at every save, changed or not. A
    // read-only one is meant to stay.
    const CFileError& error = writer.GetLastError();
    if (error.m_Code != EFileError::ReadOnly)
        context.m_Questions.Tell(u"Write Error",
                                 FormatText(u"The following category file could not be written: %s.\n\n%s",
                                            error.GetText(), m_sFile),
                                 EIcon::Stop);
}

CreatorHandle CCorvaneCategory::AddToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle database)
{
    std::u16string path;
    m_Manager.GetCategoryPath(this, path);
    const std::string schema = m_pSchema ? ToNarrow(m_pSchema->GetName()) : std::string();
    return creator.CreateCategory(database, ToNarrow(path).c_str(), schema.c_str());
}

CRef<CCorvaneCategory> CCorvaneCategory::Clone() const
{
    CRef<CCorvaneCategory> copy(new CCorvaneCategory(m_Manager, {}, {}, {}, nullptr, nullptr, 0));
    copy->Assign(*this);
    return copy;
}

void CCorvaneCategory::Assign(const CCorvaneCategory& source)
{
    m_sName = source.m_sName;
    m_sComment = source.m_sComment;
    m_dwFlags = source.m_dwFlags;
    m_pSchema = source.m_pSchema;
    m_pParent = source.m_pParent;
}

void CCorvaneCategory::SetName(std::u16string_view name)
{
    const std::u16string old = std::exchange(m_sName, std::u16string(name));
    const auto rename = [&](CCategoryNames& index)
    {
        if (index.Remove(old, *this))
            index.Add(*this);
    };
    // A root category that was moved stands in both lists.
    if (m_pParent)
        rename(*m_pParent->m_pChildIndex);
    if (m_bRoot)
        rename(*m_Manager.m_pRootIndex);
}

void CCorvaneCategory::SetFile(std::u16string_view path)
{
    const std::u16string old = std::exchange(m_sFile, std::u16string(path));
    m_Manager.OnCategoryFiled(*this, old);
}

bool CCorvaneCategory::IsAttached() const
{
    // A root category that was moved stays in the root list, whatever becomes of its parent.
    const CCorvaneCategory* category = this;
    while (category && !category->m_bRoot)
        category = category->m_pParent;
    return category != nullptr;
}

CCategoryIndex& CCorvaneCategory::GetIndex() const
{
    const CCorvaneCategory* category = this;
    while (!category->IsSystem() && category->m_pParent)
        category = category->m_pParent;
    return *category->m_pIndex;
}

template <class Change> void CCorvaneCategory::Rehome(CCorvaneCategory& root, Change change)
{
    CCategoryIndex& before = root.GetIndex();
    ForEachInNamespace(root, [&before](const CCorvaneRecord& record) { before.Remove(record); });
    change();
    CCategoryIndex& after = root.GetIndex();
    ForEachInNamespace(root, [&after](CCorvaneRecord& record) { after.Add(record); });
}

void CCorvaneCategory::SetSystem(bool system)
{
    if (system != IsSystem())
        Rehome(*this,
               [&] {
                   m_dwFlags = system ? m_dwFlags | CATEGORY_FLAG_SYSTEM : m_dwFlags & ~CATEGORY_FLAG_SYSTEM;
               });
}

std::vector<CRef<CCorvaneRecord>> CCorvaneCategory::TakeRecords()
{
    for (const CRef<CCorvaneRecord>& record : m_Records)
        GetIndex().Remove(*record);
    return std::exchange(m_Records, {});
}

std::vector<CRef<CCorvaneCategory>> CCorvaneCategory::TakeChildren()
{
    m_pChildIndex->Clear();
    return std::exchange(m_Children, {});
}

void CCorvaneCategory::AddRecord(CCorvaneRecord& record, std::size_t position)
{
    if (Contains(record))
        return;
    const auto place = m_Records.begin() + static_cast<std::ptrdiff_t>(std::min(position, m_Records.size()));
    m_Records.emplace(place, &record);
    GetIndex().Add(record);
}

bool CCorvaneCategory::RemoveRecord(CCorvaneRecord& record)
{
    const auto found = std::find(m_Records.begin(), m_Records.end(), CRef<CCorvaneRecord>(&record));
    if (found == m_Records.end())
        return false;
    GetIndex().Remove(record);
    m_Records.erase(found);
    return true;
}

void CCorvaneCategory::AddChildCategory(CCorvaneCategory& child)
{
    if (child.IsSystem())
        child.m_pParent = this;
    else
        Rehome(child, [&] { child.m_pParent = this; });
    m_Children.emplace_back(&child);
    m_pChildIndex->Add(child);
}

bool CCorvaneCategory::RemoveChildCategory(CCorvaneCategory& child)
{
    const auto found = std::find(m_Children.begin(), m_Children.end(), CRef<CCorvaneCategory>(&child));
    if (found == m_Children.end())
        return false;
    const CRef<CCorvaneCategory> keepAlive(&child);
    m_pChildIndex->Remove(child.m_sName, child);
    m_Children.erase(found);
    if (child.IsSystem())
        child.m_pParent = nullptr;
    else
        Rehome(child, [&] { child.m_pParent = nullptr; });
    return true;
}

void CCorvaneCategory::OnRecordNamed(CCorvaneRecord& record, std::u16string_view oldName)
{
    CCategoryIndex& index = GetIndex();
    if (index.RemoveName(oldName, record))
        index.m_Names.Add(HashName(record.GetName()), record);
}

void CCorvaneCategory::OnRecordFiled(CCorvaneRecord& record, std::u16string_view oldFile)
{
    CPointerIndex<CCorvaneRecord>& files = GetIndex().m_Files;
    if (files.Remove(CCategoryIndex::HashFile(oldFile), record))
        files.Add(CCategoryIndex::HashFile(record.GetFile()), record);
}

bool CCorvaneCategory::Contains(const CCorvaneRecord& record) const
{
    if (!GetIndex().m_Names.Contains(HashName(record.GetName()), record))
        return false;
    // The index covers the whole namespace; the record's own link narrows it down, the list decides.
    return record.GetCategory() == this &&
           std::find_if(m_Records.rbegin(), m_Records.rend(),
                        [&](const auto& held) { return held == &record; }) != m_Records.rend();
}

CCorvaneRecord* CCorvaneCategory::FindRecordByName(std::u16string_view name) const
{
    bool ambiguous = false;
    CCorvaneRecord* found = GetIndex().m_Names.FindOnly(HashName(name), ambiguous,
                                                        [&](const CCorvaneRecord& record) {
                                                            return record.GetCategory() == this &&
                                                                   EqualNames(record.GetName(), name);
                                                        });
    if (!ambiguous)
        return found;
    const auto first = std::find_if(m_Records.begin(), m_Records.end(),
                                    [&](const auto& record) { return EqualNames(record->GetName(), name); });
    return first->Get();
}

CCorvaneRecord* CCorvaneCategory::FindRecordByFile(std::u16string_view path) const
{
    bool ambiguous = false;
    CCorvaneRecord* found = GetIndex().m_Files.FindOnly(CCategoryIndex::HashFile(path), ambiguous,
                                                        [&](const CCorvaneRecord& record) {
                                                            return record.GetCategory() == this &&
                                                                   EqualNames(record.GetFile(), path);
                                                        });
    if (!ambiguous)
        return found;
    const auto first = std::find_if(m_Records.begin(), m_Records.end(),
                                    [&](const auto& record) { return EqualNames(record->GetFile(), path); });
    return first->Get();
}

CCorvaneRecord* CCorvaneCategory::FindRecordInNamespace(std::u16string_view name) const
{
    if (!IsSystem())
        return ScanNamespace(name);
    bool ambiguous = false;
    CCorvaneRecord* found = m_pIndex->m_Names.FindOnly(HashName(name), ambiguous,
                                                       [&](const CCorvaneRecord& record)
                                                       { return EqualNames(record.GetName(), name); });
    return ambiguous ? ScanNamespace(name) : found;
}

CCorvaneRecord* CCorvaneCategory::ScanNamespace(std::u16string_view name) const
{
    if (CCorvaneRecord* own = FindRecordByName(name))
        return own;
    for (const CRef<CCorvaneCategory>& child : m_Children)
    {
        if (child->IsSystem())
            continue;
        if (CCorvaneRecord* found = child->ScanNamespace(name))
            return found;
    }
    return nullptr;
}

bool CCorvaneCategory::HasOtherInNamespace(std::u16string_view name, const CCorvaneRecord* except) const
{
    bool ambiguous = false;
    const CCorvaneRecord* found =
        GetIndex().m_Names.FindOnly(HashName(name), ambiguous,
                                    [&](const CCorvaneRecord& record)
                                    {
                                        const bool excepted = &record == except && record.GetCategory() &&
                                                              record.GetCategory()->IsSystem();
                                        return !excepted && EqualNames(record.GetName(), name);
                                    });
    return ambiguous || found != nullptr;
}

int CCorvaneCategory::FindFreeNumberInNamespace(std::u16string_view name) const
{
    return GetIndex().m_Numbers.FindFreeNumber(name, [this](std::u16string_view numbered)
                                               { return !HasOtherInNamespace(numbered, nullptr); });
}

bool CCorvaneCategory::IsFileTaken(std::u16string_view path, const CCorvaneRecord* except) const
{
    bool ambiguous = false;
    const auto sameFile = [&](const CCorvaneRecord& record)
    { return &record != except && EqualNames(record.GetFile(), path); };
    return GetIndex().m_Files.FindOnly(CCategoryIndex::HashFile(path), ambiguous, sameFile) || ambiguous;
}

CCorvaneCategory* CCorvaneCategory::FindChild(std::u16string_view name) const
{
    bool ambiguous = false;
    CCorvaneCategory* found = m_pChildIndex->FindOnly(name, ambiguous);
    return ambiguous ? ScanChildren(name, false) : found;
}

std::u16string CCorvaneCategory::MakeChildNameUnique(std::u16string_view name) const
{
    return m_pChildIndex->MakeUnique(name);
}

CCorvaneCategory* CCorvaneCategory::FindVirtualChild(std::u16string_view name) const
{
    bool ambiguous = false;
    CCorvaneCategory* found = m_pChildIndex->FindOnly(
        name, ambiguous, [](const CCorvaneCategory& child) { return !child.IsSystem(); });
    return ambiguous ? ScanChildren(name, true) : found;
}

CCorvaneCategory* CCorvaneCategory::ScanChildren(std::u16string_view name, bool virtualOnly) const
{
    for (const CRef<CCorvaneCategory>& child : m_Children)
    {
        if ((!virtualOnly || !child->IsSystem()) && EqualNames(child->m_sName, name))
            return child.Get();
    }
    return nullptr;
}
