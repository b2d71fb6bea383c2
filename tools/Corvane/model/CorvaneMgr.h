// The central manager: owns the schemas and the root categories, loads and closes a database, finds objects
// by path, name and file, and is the one event line. All of it runs on the main thread.
//
// Texts with '/' between names are database paths, not file paths; they never begin with a separator.
#pragma once

#include "CompiledHandles.h"
#include "Context.h"
#include "CorvaneCategory.h"
#include "CorvaneEvent.h"
#include "CorvaneRecord.h"
#include "CorvaneSchema.h"
#include "Guid.h"
#include "ObserverList.h"
#include "ProjectInfo.h"
#include "RestoreAction.h"
#include "TypeState.h"
#include "UnicodeFileParse_ReadOnly.h"
#include "UnicodeFileParse_ReadWrite.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class CBuildNumberCache;
class CCategoryNames;
class CCorvaneTypeMgr;
class CRecordLayout;
class CSourceGate;
class CorvaneSchemaAttribDataMgr;
class IProgress;
class IUndoRecorder;
struct SRecordPlace;
struct SSourceDirectory;
template <class T> class CPointerIndex;

// What the root file says.
struct SRootFile
{
    std::int32_t m_nVersion = 0;
    std::u16string m_sName;
    std::u16string m_sBuild;          // Target of a compile.
    std::u16string m_sStringDatabase; // Empty for none.
    std::u16string m_sPostBuildStep;  // Tokens replaced; empty for none.
    std::u16string m_sOverrideDatabase;
    std::u16string m_sOverrideConstraints;
    std::u16string m_sDatabase; // GUID text; empty while no database is open.
    CGuid m_Guid;
};

class CCorvaneMgr
{
public:
    // The registries, the gate and the recorder are not owned and outlive the manager.
    CCorvaneMgr(const CCorvaneContext& context, const CCorvaneTypeMgr& types,
                const CorvaneSchemaAttribDataMgr& attribData, CSourceGate& gate, IUndoRecorder& undo);
    ~CCorvaneMgr();
    CCorvaneMgr(const CCorvaneMgr&) = delete;
    CCorvaneMgr& operator=(const CCorvaneMgr&) = delete;

    // Load and close (CorvaneMgr_Load). A failed load has told why and leaves no database.
    [[nodiscard]] bool OpenDatabase(std::u16string_view path);
    // Asks about changes or commands since the database was opened, and saves when the user wants it. False
    // when the user cancels or the save fails.
    [[nodiscard]] bool AskSaveChanges();
    // The same, unless the program is closing and has asked; then releases everything, touching no source
    // file. Empties the undo list.
    [[nodiscard]] bool CloseDatabase();
    [[nodiscard]] bool LoadRootFile(std::u16string_view path);
    [[nodiscard]] bool LocateProject(std::u16string_view path);
    void ConnectHierarchalData(CCorvaneCategory* pParent);
    void UpdateHierarchalData(CCorvaneCategory* pParent);
    void EnumerateCustomFiles(const std::function<void(ICorvaneCustomFile&)>& callback);
    [[nodiscard]] bool IsOpen() const { return !m_Root.m_sDatabase.empty(); }

    // Save (CorvaneMgr_Save). `path` empty keeps the place; another one gets the categories and records, with
    // every directory that it needs, while schemas stay. What could not be written was told and waits, marked
    // as modified, for the next save.
    [[nodiscard]] bool SaveDatabase(std::u16string_view path, bool force);
    [[nodiscard]] bool SaveSchema(CCorvaneSchema* pSchema);
    [[nodiscard]] bool SaveCategory(CCorvaneCategory* pCategory, std::u16string* outDir);
    [[nodiscard]] bool SaveRecord(CCorvaneRecord* pRecord, bool onlyIfModified);
    // All records below the category, changed or not. False when one failed; the others are written.
    [[nodiscard]] bool SaveChildRecordsAsModified(CCorvaneCategory* pCategory);
    void MarkChildRecordsAsModified(CCorvaneCategory* pCategory);

    // Category operations (CorvaneMgr_Category). Each tells the event line and gives a restore point to the
    // open undo group, but for the insert, which cannot be undone.
    //
    // A new system category; `pParent` is null for a root category, `pSchema` for one without records. Its
    // directory comes into being at the next save. Null below a virtual category, which is no directory; moves
    // and copies to one are refused too.
    CCorvaneCategory* InsertCategory(CCorvaneCategory* pParent, CCorvaneSchema* pSchema);
    // Gives a new name where the destination has the old one. A root category stays in the root list too. A
    // virtual category stays below its system category; a destination below the category is refused.
    [[nodiscard]] bool MoveCategory(CCorvaneCategory* pDest, CCorvaneCategory* pCategory);
    // Takes a root category out of the category that it was moved to.
    [[nodiscard]] bool MoveCategoryToRoot(CCorvaneCategory& category);
    // Does not look whether the name is free; see CheckCategoryRename. The records below a virtual category
    // are marked as modified when the user agrees.
    [[nodiscard]] bool RenameCategory(CCorvaneCategory& category, std::u16string_view name);
    // The test ahead of a user's rename. False has told that the name is taken.
    [[nodiscard]] bool CheckCategoryRename(const CCorvaneCategory& category, std::u16string_view name) const;
    // A copy with copies of all records and categories below; null where a virtual category's records would
    // be of another schema than the parent's. The prefix is "Clone of " or "Reference of ".
    CCorvaneCategory* CopyCategory_Clone(CCorvaneCategory* pParent, CCorvaneCategory* pSource,
                                         bool addPrefix);
    CCorvaneCategory* CopyCategory_Reference(CCorvaneCategory* pParent, CCorvaneCategory* pSource,
                                             bool addPrefix);
    // Sends a system category's file to the recycle bin and deletes every second record and child; the others
    // stay in the category outside the tree, and their files on the disk. `prompt` asks ahead of it. Without
    // an open undo group the category is emptied. A virtual category goes to DeleteVirtualRelativeCategory.
    [[nodiscard]] bool DeleteCategory(CCorvaneCategory& category, bool prompt);
    // Brings a category back into the tree, below `pParent` or, without one, among the root categories. False
    // when the parent has left the tree itself.
    bool ReinsertCategory(CCorvaneCategory& category, CCorvaneCategory* pParent = nullptr);
    // Empties a category outside the tree, so that it may end: what a delete passed over is still in it.
    void ReleaseDeletedCategory(CCorvaneCategory& category);

    // Special categories, which no file stands for. They outlive the databases and come into the tree by
    // ReinsertCategory.
    void AddSpecialCategory(CRef<CCorvaneCategory> category);
    // The one with this GetCategoryType(), or null.
    [[nodiscard]] CCorvaneCategory* GetSpecialCategory(int type) const;

    // Record operations (CorvaneMgr_Record). Each tells the event line and gives a restore point to the open
    // undo group. A failed one has told why where the user could not know, and leaves the tree as it was.
    //
    // The new record belongs to the category; null when the category has no schema, or for a copy to a
    // category of another schema.
    CCorvaneRecord* InsertRecord(CCorvaneCategory* pParent);
    CCorvaneRecord* CopyRecord_Clone(CCorvaneCategory* pParent, CCorvaneRecord* pSource, bool addPrefix);
    // The copy is a referencee of the source.
    CCorvaneRecord* CopyRecord_Reference(CCorvaneCategory* pParent, CCorvaneRecord* pSource, bool addPrefix);
    // Sends the record's file to the recycle bin. With `prompt` the user is asked when something depends on
    // the record. Without an open undo group the record is emptied.
    [[nodiscard]] bool DeleteRecord(CCorvaneRecord& record, bool prompt);
    // Takes a record to a category of the same schema; between directories it is written to the new one, and
    // the old file stays. `silent` leaves source control alone and writes a record that is modified only.
    [[nodiscard]] bool MoveRecord(CCorvaneCategory* dest, CCorvaneRecord& record, bool silent);
    // The move of a refresh: touches neither disk nor source control.
    bool MoveRecordUnchecked(CCorvaneCategory* dest, CCorvaneRecord& record, bool silent);
    // Does not look whether the name is free; see CheckRecordRename. The file follows unless source control
    // is connected.
    [[nodiscard]] bool RenameRecord(CCorvaneRecord& record, std::u16string_view name);
    // The test ahead of a user's rename. False has told that the name is taken.
    [[nodiscard]] bool CheckRecordRename(const CCorvaneRecord& record, std::u16string_view name) const;
    // Brings a deleted record back, in line with its schema as it is by now. False when its category is gone.
    [[nodiscard]] bool ReinsertRecord(CCorvaneRecord& record);

    // Refreshes from the disk (CorvaneMgr_Refresh). What changed, came or went there does so in memory;
    // objects that are modified or checked out by this user only when he agrees. Nothing that the disk gives
    // no answer about is dropped. False when there was nothing to look at: no database, no directory, or a
    // refresh is running already.
    bool RefreshDatabase();
    // What lies below the category is refreshed too, and its new records are read; no new category is.
    bool RefreshCategory(CCorvaneCategory& category);
    bool RefreshRecord(CCorvaneRecord& record);

    // Look-ups (CorvaneMgr_Find), each as a scan in list order would answer.
    [[nodiscard]] CCorvaneSchema* FindSchema(std::u16string_view name) const;
    [[nodiscard]] CCorvaneCategory* FindCategoryByFile(std::u16string_view path) const;
    [[nodiscard]] CCorvaneCategory* GetCategoryForRecord(const CCorvaneRecord* pRecord) const;
    [[nodiscard]] CCorvaneRecord* FindRecord(std::u16string_view path, CCorvaneCategory* category) const;
    [[nodiscard]] CCorvaneCategory* FindCategory(std::u16string_view path, CCorvaneCategory* category) const;
    [[nodiscard]] CCorvaneRecord* FindRecordByFile(std::u16string_view path) const;
    bool GetRecordPath(const CCorvaneRecord* record, std::u16string& out) const;
    bool GetRecordDisplayPath(const CCorvaneRecord* record, std::u16string& out) const;
    bool GetCategoryPath(const CCorvaneCategory* category, std::u16string& out) const;
    [[nodiscard]] bool IsCategoryNameFree(const CCorvaneCategory* parent, std::u16string_view name) const;
    [[nodiscard]] bool IsRecordNameFree(const CCorvaneCategory& category, std::u16string_view name,
                                        const CCorvaneRecord* except) const;
    [[nodiscard]] std::u16string MakeCategoryNameUnique(const CCorvaneCategory* parent,
                                                        std::u16string_view name) const;
    [[nodiscard]] std::u16string MakeRecordNameUnique(const CCorvaneCategory& category,
                                                      std::u16string_view name,
                                                      const CCorvaneRecord* except) const;
    // Maps an attribute, also one nested in struct values, onto the equal one of another record.
    [[nodiscard]] bool FindSymmetricAttribute(const CCorvaneRecord* pRecordFrom,
                                              const CCorvaneAttrib* pAttribFrom,
                                              const CCorvaneRecord* pRecordTo, CCorvaneAttrib*& out) const;

    // Walks (CorvaneMgr_Enumerate). Categories: parents first, all visited. Records: a category's own, then
    // its children's; a false result ends the walk and is returned.
    void EnumerateCategories(const std::function<void(CCorvaneCategory&)>& fn) const;
    bool EnumerateRecords(const std::function<bool(CCorvaneRecord&)>& fn) const;
    bool EnumerateSchemas(const std::function<bool(CCorvaneSchema&)>& fn) const;

    // Virtual relative categories (CorvaneMgr_VirtualRelativeCategory).
    [[nodiscard]] CCorvaneCategory* CreateVirtualRelativeCategory(CCorvaneCategory* pParent,
                                                                  std::u16string_view name);
    bool GetVirtualRelativeCategoryOffset(const CCorvaneRecord* pRecord, std::u16string& out) const;
    [[nodiscard]] CCorvaneCategory* GetVirtualRelativeCategory(CCorvaneCategory* pParent,
                                                               std::u16string_view offset);
    [[nodiscard]] CCorvaneCategory* GetSystemCategory(CCorvaneCategory* category) const;
    // Deletes no record: what is below the category moves to its parent and is written. False when something
    // could not move, which leaves the category in the tree with it. `prompt` is not used.
    [[nodiscard]] bool DeleteVirtualRelativeCategory(CCorvaneCategory* pCategory, bool prompt);
    // A move inside one directory, written at once; with `silent` without a check-out of its own. False when
    // the directories differ or the check-out was refused.
    [[nodiscard]] bool MoveRecordVirtual(CCorvaneCategory* pDest, CCorvaneRecord* pRecord, bool silent);

    // Builds (CorvaneMgr_Build).
    // The number that a game's library exports; an empty path means the project's own. 0 when there is none.
    // The library is loaded again only when its file has changed.
    [[nodiscard]] std::uint32_t GetBuildNumber(std::u16string_view library = {});
    [[nodiscard]] std::uint32_t GetActiveBuild() const { return m_nActiveBuild; }
    void SetActiveBuild(std::uint32_t build);
    // Expert mode takes the user's choice, the other mode the game's number.
    void ChooseActiveBuild();
    // Turns expert mode on or off, writes that to the profile and chooses the active build.
    void ToggleExpertMode();
    // Expert mode follows the game's number all the same; kept in the per-user file.
    [[nodiscard]] bool IsGameBuildUsed() const;
    void UseGameBuild(bool use);
    // The profile's wish that a compile starts from the game's number.
    [[nodiscard]] bool IsGameBuildDefault() const;
    // Writes the database's version and the active build to the per-user file; see SavePerUserFile.
    void WriteBuildSettings();
    [[nodiscard]] bool IsAttributeAvailableForBuild(const CCorvaneAttrib* pAttrib, std::uint32_t build) const;
    [[nodiscard]] bool IsAttributeModifiedForBuild(const CCorvaneAttrib* pAttrib, std::uint32_t build) const;
    // For a change of `pAttrib`: marks it and its record when a newer entry has taken over. False when it is
    // in no list.
    bool MarkAttributeAsModified(CCorvaneAttrib* pAttrib);

    // Deferred attributes (CorvaneMgr_Defer). Each works on the schema that declares the attribute, passes
    // the gate for its file, and carries the outcome on to all derived schemas and all records, so that it
    // equals that of a save and a load. A false result has told why when the gate refused.
    //
    // A new entry of the attribute takes over from `build` on and starts from the older one's values.
    [[nodiscard]] bool DeferDeprecateAttribute(CCorvaneAttrib* pAttrib, std::uint32_t build);
    // The attribute is gone from `build` on.
    [[nodiscard]] bool DeferDeleteAttribute(CCorvaneAttrib* pAttrib, std::uint32_t build);
    // Gives the entry another first build; records that hold it wait for a save. The order of entries is
    // restored at the next load of the schema.
    [[nodiscard]] bool UpdateAttributeBuild(CCorvaneAttrib* pAttrib, std::uint32_t build, bool deleted);
    // Final removal: takes entry `index` of the schema's own attribute data list out of the schema and of all
    // records, which are written. Cannot be undone; the undo list is emptied.
    [[nodiscard]] bool DeleteDeferredAttribute(CCorvaneSchema* pSchema, std::size_t index);
    // The same for member `index` of a struct file, through the data of any attribute that uses the file.
    [[nodiscard]] bool DeleteDeferredAttribute(CCorvaneSchemaAttribData* pStructData, std::size_t index);
    // The place for a new entry of `name` at `build` that keeps the falling order of builds. False for an
    // unknown name, and for an entry older than all in a group that ends the list.
    [[nodiscard]] static bool ComputeDeferAttributeLocation(const CCorvaneRecord& templateRecord,
                                                            std::u16string_view name, std::uint32_t build,
                                                            std::size_t* piDeferIndex);

    // Brings every record of a schema in line with its template (CorvaneMgr_FixRecords); `save` writes each.
    // Attributes that a record lacks start from the next older entry's values. Empties the undo list when a
    // record loses an attribute.
    bool FixRecords(CCorvaneSchema& schema, bool save);
    // The same for one record that was out of the tree while its schema may have changed.
    void FixRecord(CCorvaneRecord& record);

    // What the attributes of one type share in this database: T, an ITypeState that is built from the manager
    // at the first call and lives as long as the manager.
    template <class T> [[nodiscard]] T& GetTypeState()
    {
        return m_TypeStates.Get<T>([this] { return std::make_unique<T>(*this); });
    }

    // Event line.
    [[nodiscard]] CObserverHandle AddObserver(CObserverList<const CCorvaneEvent&>::FCallback callback);
    int Notify(const CCorvaneEvent& event) const { return m_Observers.Notify(event); }

    // Connects every schema from place `first` on to its parent and tells which parents are missing.
    void ConnectSchemaParents(std::size_t first = 0);
    // Tree building, for the loader and for operations. A category whose name is taken gives the one that is
    // there.
    CCorvaneCategory* AddCategory(CRef<CCorvaneCategory> category);
    bool AddSchemaFile(std::u16string_view path);
    bool AddRecordFile(std::u16string_view path, CCorvaneCategory& category,
                       const CRecordLayout* layout = nullptr);

    [[nodiscard]] std::span<const CRef<CCorvaneCategory>> GetRootCategories() const
    {
        return m_RootCategories;
    }
    [[nodiscard]] std::span<const CRef<CCorvaneSchema>> GetSchemas() const { return m_Schemas; }
    [[nodiscard]] const SRootFile& GetRootFile() const { return m_Root; }
    // The root file's directory with its last separator, and its full path.
    [[nodiscard]] const std::u16string& GetDirectory() const { return m_sDirectory; }
    [[nodiscard]] const std::u16string& GetRootFilePath() const { return m_sRootFile; }
    [[nodiscard]] const CProjectInfo& GetProject() const { return m_Project; }
    // The directory of the program, in which a post-build step runs.
    [[nodiscard]] const std::u16string& GetToolsDirectory() const { return m_sToolsDirectory; }
    // The user's own settings of this database; written at each close, and at once by SavePerUserFile, which
    // tells the user of a failure.
    [[nodiscard]] IUnicodeFileParse& GetPerUserFile() { return m_PerUser; }
    void SavePerUserFile();
    [[nodiscard]] bool IsDirty() const { return m_bDirty; }
    void SetDirty(bool dirty) { m_bDirty = dirty; }

    // Handles of the running compile; both empty otherwise.
    [[nodiscard]] CCompiledList<CCorvaneCategory>& GetCompiledCategories() { return m_CompiledCategories; }
    [[nodiscard]] CCompiledList<CCorvaneRecord>& GetCompiledRecords() { return m_CompiledRecords; }
    // 0 for a record that is not in the output.
    [[nodiscard]] CreatorHandle GetCompiledRecordHandle(const CCorvaneRecord& record) const
    {
        return m_CompiledRecords.Find(record);
    }

    [[nodiscard]] const CCorvaneContext& GetContext() const { return m_Context; }
    [[nodiscard]] const CCorvaneTypeMgr& GetTypes() const { return m_Types; }
    [[nodiscard]] const CorvaneSchemaAttribDataMgr& GetAttribDataTypes() const { return m_AttribDataTypes; }
    [[nodiscard]] CSourceGate& GetGate() const { return m_Gate; }
    [[nodiscard]] IUndoRecorder& GetUndo() const { return m_Undo; }
    // A parser that the load uses for file after file.
    [[nodiscard]] CUnicodeFileParse_ReadOnly& GetLoadParser() { return m_LoadParser; }

private:
    friend class CCorvaneCategory;
    friend class CCorvaneSchema;
    friend class CDatabaseRefresh;

    [[nodiscard]] bool AskYes(std::u16string_view title, std::u16string_view text) const;
    // Sends a file to the recycle bin, or where there is none deletes it for good when the user agrees. False
    // when the file is still there.
    [[nodiscard]] bool RecycleFile(std::u16string_view path) const;
    [[nodiscard]] bool ConfirmRecordDelete(CCorvaneRecord& record, bool prompt) const;
    CCorvaneRecord* AddCopy(CCorvaneCategory& parent, CCorvaneRecord& copy, std::u16string_view name,
                            ERestoreAction action);
    void AddNewRecord(CCorvaneCategory& parent, CCorvaneRecord& record, ERestoreAction action);
    void RecordAction(CCorvaneRecord& record, ERestoreAction action);
    [[nodiscard]] bool MayMoveRecord(const CCorvaneCategory* dest, CCorvaneRecord& record) const;
    [[nodiscard]] bool TakeUnderControl(CCorvaneCategory& dest, CCorvaneRecord& record);
    [[nodiscard]] bool MoveToDirectory(CCorvaneCategory& dest, CCorvaneCategory& system,
                                       CCorvaneRecord& record, bool silent);
    void FinishRecordMove(CCorvaneRecord& record, SRecordPlace former);
    void RenameRecordFile(CCorvaneRecord& record);
    void TakeBackRecordFile(CCorvaneRecord& record);
    void AddRootCategory(CCorvaneCategory& category);
    [[nodiscard]] bool RemoveFromTree(CCorvaneCategory& category);
    [[nodiscard]] bool ConfirmCategoryDelete(const CCorvaneCategory& category) const;
    void DeleteContents(CCorvaneCategory& category, bool prompt);
    void FinishDelete(CCorvaneCategory& category, CCorvaneCategory* parent);
    void AddCategoryPoint(CCorvaneCategory& category, ERestoreAction action,
                          CCorvaneCategory* parent = nullptr);
    CCorvaneCategory* CopyCategory(CCorvaneCategory* pParent, CCorvaneCategory* pSource,
                                   std::u16string_view prefix, ERestoreAction kind);
    [[nodiscard]] bool MayCopyCategory(const CCorvaneCategory& parent, const CCorvaneCategory& source) const;
    [[nodiscard]] std::u16string MakeCopyName(const CCorvaneCategory& parent, std::u16string_view name,
                                              const CCorvaneCategory& source, ERestoreAction kind) const;
    // A name for a system category that is free on the disk too.
    [[nodiscard]] std::u16string MakeDirectoryNameUnique(const CCorvaneCategory* parent,
                                                         std::u16string_view name) const;
    [[nodiscard]] bool MayMoveCategory(CCorvaneCategory* pDest, CCorvaneCategory* pCategory) const;
    [[nodiscard]] bool PrepareVirtualRename(CCorvaneCategory& category);
    [[nodiscard]] bool CheckOutCategory(CCorvaneCategory& category) const;
    void MarkRecordsOfMoved(CCorvaneCategory& category);
    void TellRenameError(const CCorvaneCategory& category, std::u16string_view reason) const;

    [[nodiscard]] bool MoveToPlace(std::u16string_view path);
    [[nodiscard]] bool FailOpen();
    [[nodiscard]] bool ConnectSourceControl();
    void ReadPerUserFile();
    // The user's own choice of the active build; none leaves it as it is.
    void ApplyStoredBuild();
    enum class EDeferral
    {
        Deprecate,
        Delete
    };
    [[nodiscard]] bool DeferAttribute(CCorvaneAttrib* pAttrib, std::uint32_t build, EDeferral kind);
    [[nodiscard]] bool DeferInSchema(CCorvaneSchema& schema, CCorvaneSchemaAttribData& data,
                                     std::uint32_t build, EDeferral kind);
    enum class EFixPurpose
    {
        Reload,
        Defer,  // Marks records whose values only a save keeps.
        Remove, // Writes every record.
    };
    void FixRecordsOf(CCorvaneSchema& schema, EFixPurpose purpose);
    [[nodiscard]] bool CheckOutSchema(CCorvaneSchema& schema, std::u16string_view abortTitle);
    // The schema and all that are derived from it, ancestors first.
    [[nodiscard]] std::vector<CCorvaneSchema*> GetFamily(CCorvaneSchema& schema) const;
    void SetBuildInRecords(CCorvaneSchema& schema, const CCorvaneAttrib& entry, std::uint32_t build);
    // Which directory each category was loaded from.
    using CategoryDirectories = std::unordered_map<const CCorvaneCategory*, SSourceDirectory*>;
    void LoadTree();
    void LoadSchemas(const SSourceDirectory& directory);
    void LoadCategories(SSourceDirectory& directory, CCorvaneCategory* parent,
                        CategoryDirectories& directories);
    void LoadAllRecords(const CategoryDirectories& directories, IProgress& progress);
    void LoadRecords(CCorvaneCategory& category, std::span<const std::u16string> names, IProgress& progress);
    void TellStrayRecords(std::u16string_view directory, std::size_t count);
    [[nodiscard]] static std::u16string_view CutBehindLastSeparator(std::u16string_view path);
    void ReplacePostBuildTokens();
    void ReleaseTree();
    void ReleaseCategory(CCorvaneCategory& category);
    [[nodiscard]] CCorvaneCategory* FindRootCategory(std::u16string_view name) const;
    // Keep the indexes true; for the objects themselves.
    void OnCategoryFiled(CCorvaneCategory& category, std::u16string_view oldFile);
    void OnSchemaNamed(CCorvaneSchema& schema, std::u16string_view oldName);

    CCorvaneContext m_Context;
    const CCorvaneTypeMgr& m_Types;
    const CorvaneSchemaAttribDataMgr& m_AttribDataTypes;
    CSourceGate& m_Gate;
    IUndoRecorder& m_Undo;

    std::vector<CRef<CCorvaneCategory>> m_RootCategories;
    std::vector<CRef<CCorvaneCategory>> m_SpecialCategories;
    std::vector<CRef<CCorvaneSchema>> m_Schemas;
    std::unique_ptr<CCategoryNames> m_pRootIndex;
    std::unique_ptr<CPointerIndex<CCorvaneCategory>> m_pCategoryFiles;
    std::unique_ptr<CPointerIndex<CCorvaneSchema>> m_pSchemaNames;
    std::unique_ptr<CPointerIndex<CCorvaneSchema>> m_pSchemaFiles;
    CCompiledList<CCorvaneCategory> m_CompiledCategories;
    CCompiledList<CCorvaneRecord> m_CompiledRecords;
    CObserverList<const CCorvaneEvent&> m_Observers;
    CTypeStates m_TypeStates;
    std::unique_ptr<CBuildNumberCache> m_pBuildNumbers;

    std::u16string m_sDirectory;
    std::u16string m_sRootFile;
    std::u16string m_sToolsDirectory;
    SRootFile m_Root;
    CProjectInfo m_Project;
    std::uint32_t m_nActiveBuild = 0;
    bool m_bDirty = false;
    bool m_bPerUserRead = false; // The per-user file was read and may be written.
    CUnicodeFileParse_ReadWrite m_PerUser;
    CUnicodeFileParse_ReadOnly m_LoadParser;
};
