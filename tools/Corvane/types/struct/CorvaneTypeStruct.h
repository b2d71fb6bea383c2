// A Struct attribute: each value is a row of other attributes, its members, declared in a struct file. It
// holds no texts: it owns the members and forwards to them.
//
// An attribute has two lists of rows: its own, and what it shows while it inherits, which is as long as what
// its parent record shows. Row `i` is the same row in both, so that its members keep their marks and their
// own values while they are hidden behind the parent's; what the lists differ in is their count. A member of
// a shown row reads its value from the parent's row of that number. The first write to one makes the shown
// rows the record's own, with all that they show. A row that changes its number stops to follow the parent's.
//
// Rows and members are counted from 0. An attribute without a struct file has no rows, and its operations do
// nothing; it keeps the sections of a record file that it cannot read, and writes them back.
#pragma once

#include "CorvaneType.h"
#include "struct/CorvaneTypeStructData.h"
#include "struct/StructRows.h"

#include <algorithm>
#include <memory>
#include <vector>

class CKeptSections;

class CCorvaneTypeStruct final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeStructData;
    static constexpr CGuid kTypeGuid{
        {0x5D, 0x31, 0x8E, 0xA4, 0x0B, 0x6F, 0x4C, 0x7E, 0x93, 0x2A, 0xD1, 0x58, 0x77, 0x40, 0xE6, 0x1B}};
    // Member instances that a fixed count may make at once; nested counts multiply.
    static constexpr std::uint64_t kMaxFixedMembers = 65535;

    CCorvaneTypeStruct();
    ~CCorvaneTypeStruct() override;

    // The rows that are in force: the second list while the attribute inherits, otherwise the first.
    [[nodiscard]] CStructRows GetAttributePointerList() const;
    // Inserts a row of default members; only an attribute of variable size grows. False changed nothing.
    [[nodiscard]] bool InsertRow(std::size_t index);
    // Null when the file could not be read.
    [[nodiscard]] CStructFile* GetStructFile() const;
    [[nodiscard]] const CCorvaneTypeStructData* GetStructAttribData() const;

    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    void Clear() override;
    void GetSectionName(std::u16string& out, std::u16string_view prefix) const override;
    void GetHelp(std::size_t index, std::u16string& out) const override;
    // True when a member of a row in force has the mark.
    [[nodiscard]] bool GetOverride() const override;
    void SetInherit(bool value, bool recursive) override;
    [[nodiscard]] bool GetChildBuildRange(const CCorvaneAttrib& child, SBuildRange& range) const override;
    [[nodiscard]] bool IsChildDeferred(const CCorvaneAttrib& child) const override;

    // Appends a row of default members; the text is ignored.
    [[nodiscard]] bool AddValue(std::u16string_view text) override;
    // These two fire an assertion and change nothing.
    [[nodiscard]] bool InsertValue(std::size_t index, std::u16string_view text) override;
    [[nodiscard]] bool SetValue(std::size_t index, std::u16string_view text) override;
    [[nodiscard]] bool RemoveValue(std::size_t index) override;
    // Always the empty text.
    [[nodiscard]] std::u16string_view GetValue(std::size_t index) const override;
    [[nodiscard]] bool MoveValueUp(std::size_t index) override;
    [[nodiscard]] bool MoveValueDown(std::size_t index) override;
    // The count of rows in force.
    [[nodiscard]] std::size_t GetValueCount() const override;
    void CopyValuesFrom(const CCorvaneAttrib& older) override;

    [[nodiscard]] std::ptrdiff_t FindChildAttribute(const CCorvaneAttrib& child,
                                                    std::ptrdiff_t& valueIndex) const override;
    [[nodiscard]] CCorvaneAttrib* GetChildAttribute(std::size_t valueIndex, const CGuid& guid) const override;
    [[nodiscard]] CCorvaneAttrib* GetChildAttributeAt(std::size_t valueIndex,
                                                      std::size_t member) const override;
    [[nodiscard]] bool IsMemberShown(const CCorvaneAttrib& child) const override;
    [[nodiscard]] CCorvaneAttrib* FindChildIn(const CCorvaneAttrib& child,
                                              const CCorvaneAttrib& other) const override;
    void OnMemberWrite(CCorvaneAttrib& child) override;
    void OnMemberInheritEnd(CCorvaneAttrib& child) override;
    void KeepShownValues() override;
    void SetParentRecord(CCorvaneRecord* record) override;
    void SetAttribData(CCorvaneSchemaAttribData* data) override;

    bool LoadFromFile(CCorvaneRecord& record, CCorvaneAttrib* parentAttrib,
                      const CUnicodeFileParse_ReadOnly& parser, std::size_t section) override;
    // An attribute that inherits in a record without a parent writes its own rows, so that they are not lost.
    [[nodiscard]] bool SaveToFile(IUnicodeFileParse& writer, std::u16string_view prefix) const override;
    // Outputs and checks ask the members that are in force at the build.
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    // Members that refuse do not stop the others, nor the output.
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] bool SaveToDependency(IDependencySink& sink, std::uint32_t build) override;
    bool Validate(IValidationSink* pCore) override;

    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Struct"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;
    void Assign(const CCorvaneAttrib& source) override;
    [[nodiscard]] bool DeferDeprecateAttribute(CCorvaneAttrib& child, std::uint32_t build) override;
    [[nodiscard]] bool DeferDeleteAttribute(CCorvaneAttrib& child, std::uint32_t build) override;
    [[nodiscard]] bool EnumerateChildren(const std::function<bool(CCorvaneAttrib&)>& callback) override;
    void OnHierarchyEvent(EHierarchyEvent code, CCorvaneRecord& record, CCorvaneAttrib* attrib) override;

private:
    friend class CStructFile;
    friend class CStructRowRestorePoint;

    using Row = std::vector<CRef<CCorvaneType>>;

    // Removes a row and hands it out.
    [[nodiscard]] bool CutRow(std::size_t index, Row& row);

    [[nodiscard]] std::size_t GetStoredRows() const { return std::max(m_nOwnRows, m_nInheritedRows); }
    [[nodiscard]] CStructRows GetStored() const;
    [[nodiscard]] Row MakeRow();
    void AdoptMember(CCorvaneType& member);
    static void ReleaseMember(CCorvaneType& member);
    // Numbers the places of the members from row `first` on.
    void Renumber(std::size_t first);
    void PlaceRow(std::size_t index, Row row);
    [[nodiscard]] Row TakeRow(std::size_t index);
    [[nodiscard]] bool MoveRow(std::size_t index, std::size_t to);
    // Counts of the two lists; rows that neither of them needs go.
    void SetRowCounts(std::size_t own, std::size_t inherited);
    void SetDefaultRows();
    void TakeOverRows();
    [[nodiscard]] bool BeginRowChange();
    void UnfollowRows(std::size_t first);
    void OnRowsChanged(std::size_t index);
    [[nodiscard]] bool RefreshInherited();
    void RefreshBelow(std::size_t index);
    [[nodiscard]] std::ptrdiff_t FindPlace(const CCorvaneAttrib& child) const;
    [[nodiscard]] std::size_t FindMember(const CCorvaneAttrib& child) const;
    // Brings the rows in line with the members of the file.
    void Synchronize();
    void TellSynchronized();
    // Appends a row that takes over the members of an old one; `sources` tells where in it they are.
    void AppendMatchedRow(std::span<CRef<CCorvaneType>> old, std::span<const std::size_t> sources);
    void SortOldestFirst(std::vector<std::size_t>& indices) const;
    [[nodiscard]] bool IsRowOfFile(const Row& row) const;
    [[nodiscard]] bool DeferMember(CCorvaneAttrib& child, std::uint32_t build, bool deleted);

    // `rows` is the node of the sections below this attribute's; kNone for no rows.
    void LoadRows(CCorvaneRecord& record, CCorvaneAttrib* parentAttrib,
                  const CUnicodeFileParse_ReadOnly& parser, std::size_t section, std::uint32_t rows);
    void LoadRow(std::size_t row, CCorvaneRecord& record, const CUnicodeFileParse_ReadOnly& parser,
                 std::uint32_t node);
    // What a file holds, and what a change of the rows begins from: own rows also where there is no parent.
    [[nodiscard]] CStructRows GetSavedRows() const;
    // Calls `use(member, prefix)` for the members in force at the build, with the name of their row behind
    // `prefix`; a false result ends the walk.
    template <class Use>
    [[nodiscard]] bool ForEachInBuild(std::uint32_t build, std::u16string_view prefix, Use use) const;

    // The members of all rows, one row behind the other.
    std::vector<CRef<CCorvaneType>> m_Members;
    std::uint32_t m_nStride = 0; // Members of a row.
    std::uint32_t m_nOwnRows = 0;
    std::uint32_t m_nInheritedRows = 0;
    // Neighbours in the list of the struct file.
    CCorvaneTypeStruct* m_pPrevious = nullptr;
    CCorvaneTypeStruct* m_pNext = nullptr;
    std::unique_ptr<CKeptSections> m_pKept; // Null but in an attribute without a struct file.
};
