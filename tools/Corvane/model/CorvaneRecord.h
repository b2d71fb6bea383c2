// A record: a named, ordered list of attributes in the order of its schema's template, one file on disk, and
// perhaps a parent record (its referencer) whose values it inherits.
#pragma once

#include "CorvaneAttrib.h"
#include "FileSystem.h"
#include "ObserverList.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneCategory;
class CCorvaneMgr;
class CCorvaneSchema;
class CRecordLayout;
class CUnicodeFileParse_ReadOnly;
class IRecordDocument;
enum class EWriteResult;

enum ERecordFlags : std::uint32_t
{
    RECORD_FLAG_MODIFIED = 0x1,
    RECORD_FLAG_COMPARE_TARGET = 0x2,
    RECORD_FLAG_COMPARE = 0x10000,
};

class CCorvaneRecord : public CCorvaneRef
{
public:
    explicit CCorvaneRecord(CCorvaneMgr& manager);
    ~CCorvaneRecord() override;

    // A record from its file. `category` is the system category; the record's own may be a virtual one below
    // it, which is made when it is missing. Null when the record is not part of the database.
    [[nodiscard]] static CRef<CCorvaneRecord> CreateFromFile(std::u16string_view path,
                                                             CCorvaneCategory& category,
                                                             const CRecordLayout* layout = nullptr);
    // Brings the record in line with its changed file; false has told why and leaves it as it is.
    [[nodiscard]] virtual bool ReloadFromFile();
    // Writes the record's file in its system category's directory. Without `force` an unmodified record is
    // done at once. A record that is not written stays modified, or becomes so where its file is to lie in
    // another place.
    [[nodiscard]] virtual bool SaveToFile(bool force);
    // The record's handle in an output; 0 is a refusal.
    [[nodiscard]] virtual CreatorHandle AddToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle category);
    // A value of `attrib` changed: tells the change callbacks.
    virtual void OnAttributeChanged(CCorvaneAttrib& attrib, std::size_t index);
    virtual void NotifyReferencees(EHierarchyEvent code, CCorvaneAttrib& attrib);
    virtual void OnReferencerNotify(EHierarchyEvent code, CCorvaneRecord& record, CCorvaneAttrib& attrib);
    // Lets go of everything: attributes, parent, referencees, document, category. An emptied record holds no
    // reference, so that clearing it breaks every cycle.
    virtual void Clear();
    [[nodiscard]] virtual CRef<CCorvaneRecord> Clone() const;
    // A copy that is a referencee of this record and inherits where the schema lets it.
    [[nodiscard]] virtual CRef<CCorvaneRecord> CreateReference();
    virtual void Assign(const CCorvaneRecord& source);

    // Puts the attributes of a parent schema's template ahead of this template's own; they are shared.
    void InheritAttributes(const CCorvaneRecord& parent);
    // Turns the path read from the file into the parent link.
    bool ConnectHierarchy();
    // Sends Refresh to all attributes of every record below this one.
    void UpdateHierarchy();
    // Forgets parent and referencees without telling them; for a close, when every record does so.
    void DropLinks();
    // Takes `child` out of the referencees; its attributes stay as they are.
    bool DisconnectReferencee(CCorvaneRecord& child);
    // Disconnects all referencees, the last one first, and returns them in the order of the list.
    std::vector<CRef<CCorvaneRecord>> DisconnectReferencees();
    // For a new path of this record, which the files of the referencees name.
    void MarkReferenceesModified();
    // For a record that leaves the tree and may come back: its document closes, and its parent forgets it.
    // The record itself remembers the parent.
    void LeaveTree();
    // The way back, also for a copy of a referencee: takes its place among the parent's referencees. When the
    // parent is no longer in the tree, the record stands alone with its own values.
    void JoinParent();

    [[nodiscard]] std::span<const CRef<CCorvaneAttrib>> GetAttributeList() const { return m_Attribs; }
    void AppendAttribute(CRef<CCorvaneAttrib> attrib);
    void InsertAttribute(std::size_t index, CRef<CCorvaneAttrib> attrib);
    void RemoveAttribute(std::size_t index);
    void SetAttributes(std::vector<CRef<CCorvaneAttrib>> attribs);
    [[nodiscard]] std::span<const CRef<CCorvaneRecord>> GetReferencees() const { return m_Referencees; }

    [[nodiscard]] bool TestFlag(std::uint32_t flag) const { return (m_dwFlags & flag) != 0; }
    void SetFlag(std::uint32_t flag, bool on) { m_dwFlags = on ? (m_dwFlags | flag) : (m_dwFlags & ~flag); }
    // True also makes the database dirty.
    void SetModified(bool modified);
    [[nodiscard]] const std::u16string& GetName() const { return m_sName; }
    [[nodiscard]] bool SetName(std::u16string_view name);
    [[nodiscard]] const std::u16string& GetComment() const { return m_sComment; }
    [[nodiscard]] bool SetComment(std::u16string_view text);
    // Full path of the file; empty until it was saved once.
    [[nodiscard]] const std::u16string& GetFile() const { return m_sFile; }
    void SetFile(std::u16string_view path);
    // The parent's path as read from the file; empty once connected.
    [[nodiscard]] const std::u16string& GetHierarchy() const { return m_sHierarchy; }
    // The category in the tree, virtual or system.
    [[nodiscard]] CCorvaneCategory* GetCategory() const { return m_pCategory.Get(); }
    [[nodiscard]] bool SetCategory(CCorvaneCategory* category, bool silent);
    // True when the record is in the list of a category that hangs in the manager's tree.
    [[nodiscard]] bool IsInTree() const;
    [[nodiscard]] CCorvaneRecord* GetParent() const { return m_pParent.Get(); }
    [[nodiscard]] CCorvaneSchema* GetSchema() const;
    [[nodiscard]] IRecordDocument* GetDocument() const { return m_pDocument; }
    void SetDocument(IRecordDocument* document) { m_pDocument = document; }
    // DOS date and time of the file; 0 when it could not be opened.
    [[nodiscard]] std::uint32_t GetFileTime() const { return GetDosTime(m_Stamp); }
    [[nodiscard]] const SFileStamp& GetFileStamp() const { return m_Stamp; }
    void SetFileStamp(const SFileStamp& stamp) { m_Stamp = stamp; }
    [[nodiscard]] CCorvaneMgr& GetManager() const { return m_Manager; }

    // `directory` + `base` + `extension`, numbered where that is the file of something else: neither on the
    // disk nor in memory may two records have one file. `system` is the category of the directory. Empty,
    // having told why, when the disk gives no answer.
    [[nodiscard]] std::u16string MakeFreeFilePath(const CCorvaneCategory& system,
                                                  std::u16string_view directory, std::u16string_view base,
                                                  std::u16string_view extension) const;

    // Called on each change of a value.
    CObserverList<CCorvaneAttrib&, std::size_t>& GetChangeObservers();

private:
    void Renumber(std::size_t first);
    // True when this record is `record` or one of its ancestors.
    [[nodiscard]] bool IsAbove(const CCorvaneRecord& record) const;
    void LeaveOtherParent(const CCorvaneRecord& next);
    void AskStandAlone(std::u16string_view referencer);
    void AddReferencee(CCorvaneRecord& child);
    void LeaveParent();
    void OrphanReferencees();
    [[nodiscard]] bool PassTextGate();
    [[nodiscard]] EWriteResult WriteOwnFile();
    [[nodiscard]] bool FillWriter(IUnicodeFileParse& writer) const;
    [[nodiscard]] std::u16string MakeFilePath(const CCorvaneCategory& systemCategory) const;

    CCorvaneMgr& m_Manager;
    std::uint32_t m_dwFlags = 0;
    std::u16string m_sName;
    std::u16string m_sComment;
    std::u16string m_sHierarchy;
    std::u16string m_sFile;
    CRef<CCorvaneCategory> m_pCategory;
    CRef<CCorvaneRecord> m_pParent;
    std::vector<CRef<CCorvaneAttrib>> m_Attribs;
    std::vector<CRef<CCorvaneRecord>> m_Referencees;
    IRecordDocument* m_pDocument = nullptr;
    SFileStamp m_Stamp;
    std::unique_ptr<CObserverList<CCorvaneAttrib&, std::size_t>> m_pChangeObservers;
};

// Fills an entry that a record's file does not hold from the next older entry of the same name, which has
// been read by then. False when the attribute is in no record.
bool CopyValuesFromOlderBuild(CCorvaneAttrib& attrib);
