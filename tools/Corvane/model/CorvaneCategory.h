// A category: a directory with a cvd.category file (a system category), or a virtual one that exists because
// records name it. It owns its records and its child categories.
#pragma once

#include "CorvaneRef.h"
#include "FileSystem.h"
#include "idatabasecreator.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CCategoryIndex;
class CCategoryNames;
class CCorvaneMgr;
class CCorvaneRecord;
class CCorvaneSchema;
template <class T> class CPointerIndex;

enum ECategoryFlags : std::uint32_t
{
    CATEGORY_FLAG_SYSTEM = 0x1,
    // All flags of a special category, which no file stands for.
    CATEGORY_FLAGS_SPECIAL = 0x7,
};

class CCorvaneCategory : public CCorvaneRef
{
public:
    CCorvaneCategory(CCorvaneMgr& manager, std::u16string_view name, std::u16string_view help,
                     std::u16string_view comment, CCorvaneSchema* schema, CCorvaneCategory* parent,
                     std::uint32_t flags);
    ~CCorvaneCategory() override;

    // `path` is the category file. Null when the category is not part of the database.
    [[nodiscard]] static CRef<CCorvaneCategory> CreateFromFile(CCorvaneMgr& manager, std::u16string_view path,
                                                               CCorvaneCategory* parent);
    // False has told why and leaves the category as it is.
    [[nodiscard]] bool ReloadFromFile();
    // `path` is the parent's directory with its last separator. Virtual categories have nothing to write. The
    // category takes another name where its directory would be another category's. False, having told why,
    // when there is no directory; a category file that cannot be written is told and does not count.
    [[nodiscard]] virtual bool SaveToFile(std::u16string_view path);
    [[nodiscard]] virtual CreatorHandle AddToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle database);
    // 0 for an ordinary category; others are not released by a delete.
    [[nodiscard]] virtual int GetCategoryType() const { return 0; }
    // Name, comment, flags, schema and parent; no help, file, records or children.
    [[nodiscard]] virtual CRef<CCorvaneCategory> Clone() const;
    virtual void Assign(const CCorvaneCategory& source);

    [[nodiscard]] bool TestFlag(std::uint32_t flag) const { return (m_dwFlags & flag) != 0; }
    [[nodiscard]] bool IsSystem() const { return TestFlag(CATEGORY_FLAG_SYSTEM); }
    [[nodiscard]] const std::u16string& GetName() const { return m_sName; }
    void SetName(std::u16string_view name);
    [[nodiscard]] const std::u16string& GetComment() const { return m_sComment; }
    void SetComment(std::u16string_view text) { m_sComment = text; }
    [[nodiscard]] const std::u16string& GetHelp() const { return m_sHelp; }
    void SetHelp(std::u16string_view text) { m_sHelp = text; }
    // Full path of cvd.category; empty in a virtual category and before the first save.
    [[nodiscard]] const std::u16string& GetFile() const { return m_sFile; }
    void SetFile(std::u16string_view path);
    // Null when the category holds only sub-categories.
    [[nodiscard]] CCorvaneSchema* GetSchema() const { return m_pSchema.Get(); }
    // Null for a root category.
    [[nodiscard]] CCorvaneCategory* GetParent() const { return m_pParent; }
    // True when the category hangs in the manager's tree.
    [[nodiscard]] bool IsAttached() const;
    [[nodiscard]] const SFileStamp& GetFileStamp() const { return m_Stamp; }
    void SetFileStamp(const SFileStamp& stamp) { m_Stamp = stamp; }
    [[nodiscard]] std::uint32_t GetFileTime() const { return GetDosTime(m_Stamp); }
    [[nodiscard]] CCorvaneMgr& GetManager() const { return m_Manager; }

    [[nodiscard]] std::span<const CRef<CCorvaneRecord>> GetRecords() const { return m_Records; }
    [[nodiscard]] std::span<const CRef<CCorvaneCategory>> GetChildren() const { return m_Children; }
    // Nothing happens when the record is in the list already. A position behind the list's end is its end.
    void AddRecord(CCorvaneRecord& record, std::size_t position = static_cast<std::size_t>(-1));
    bool RemoveRecord(CCorvaneRecord& record);
    void AddChildCategory(CCorvaneCategory& child);
    bool RemoveChildCategory(CCorvaneCategory& child);

    // First matches in list order, without regard to case; null for none.
    [[nodiscard]] CCorvaneRecord* FindRecordByName(std::u16string_view name) const;
    [[nodiscard]] CCorvaneRecord* FindRecordByFile(std::u16string_view path) const;
    [[nodiscard]] CCorvaneCategory* FindChild(std::u16string_view name) const;
    [[nodiscard]] CCorvaneCategory* FindVirtualChild(std::u16string_view name) const;
    // `name`, or "name (number)" with the lowest number from 2 on that no child has.
    [[nodiscard]] std::u16string MakeChildNameUnique(std::u16string_view name) const;
    // A record of this category or, depth first, of the virtual categories below it.
    [[nodiscard]] CCorvaneRecord* FindRecordInNamespace(std::u16string_view name) const;
    // True when the namespace of this category (its system category and all virtual ones below that) holds
    // the name. `except` does not count, but only in the system category's own list.
    [[nodiscard]] bool HasOtherInNamespace(std::u16string_view name, const CCorvaneRecord* except) const;
    // The lowest number from 2 on that makes "Name (number)" a free name of the namespace.
    [[nodiscard]] int FindFreeNumberInNamespace(std::u16string_view name) const;
    // True when a record of the namespace other than `except` has this file.
    [[nodiscard]] bool IsFileTaken(std::u16string_view path, const CCorvaneRecord* except) const;
    [[nodiscard]] bool Contains(const CCorvaneRecord& record) const;

private:
    friend class CCorvaneRecord;

    friend class CCorvaneMgr;

    // The index that covers this category: that of the nearest system category.
    [[nodiscard]] CCategoryIndex& GetIndex() const;
    void OnRecordNamed(CCorvaneRecord& record, std::u16string_view oldName);
    void OnRecordFiled(CCorvaneRecord& record, std::u16string_view oldFile);
    // Runs `change`, which may put the records of `root` and of the virtual categories below it under another
    // index, and takes them along.
    template <class Change> static void Rehome(CCorvaneCategory& root, Change change);
    [[nodiscard]] std::u16string MakeFilePath(std::u16string_view path) const;
    void TakeNameFrom(std::u16string_view file);
    [[nodiscard]] bool CreateOwnDirectory(std::u16string_view directory) const;
    void WriteOwnFile();
    [[nodiscard]] CCorvaneCategory* ScanChildren(std::u16string_view name, bool virtualOnly) const;
    [[nodiscard]] CCorvaneRecord* ScanNamespace(std::u16string_view name) const;
    void SetSystem(bool system);
    // Empty the lists for a close; the indexes are of no use any more.
    [[nodiscard]] std::vector<CRef<CCorvaneRecord>> TakeRecords();
    [[nodiscard]] std::vector<CRef<CCorvaneCategory>> TakeChildren();

    CCorvaneMgr& m_Manager;
    std::uint32_t m_dwFlags;
    std::u16string m_sName;
    std::u16string m_sComment;
    std::u16string m_sHelp;
    std::u16string m_sFile;
    std::vector<std::u16string> m_FormerFiles; // Still on the disk when it was renamed, moved or saved as.
    CRef<CCorvaneSchema> m_pSchema;
    CCorvaneCategory* m_pParent;
    SFileStamp m_Stamp;
    std::vector<CRef<CCorvaneRecord>> m_Records;
    std::vector<CRef<CCorvaneCategory>> m_Children;
    bool m_bRoot = false; // In the manager's list of root categories.
    std::unique_ptr<CCategoryNames> m_pChildIndex;
    std::unique_ptr<CCategoryIndex> m_pIndex;
};
