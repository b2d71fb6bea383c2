// One attribute of one record: its values as texts, its marks, and how a value resolves through the parent
// record and the schema's default.
//
// An attribute is identified across records by its GUID and build, never by its name. Name and GUID are
// shared by all copies of a schema's template attribute; see SIdentity.
#pragma once

#include "CorvaneRef.h"
#include "CorvaneValueList.h"
#include "Guid.h"
#include "idatabasecreator.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneAttrib;
class CCorvaneMgr;
class CCorvaneRecord;
class CCorvaneSchemaAttribData;
class CUnicodeFileParse_ReadOnly;
class ICorvaneTypeView;
class IDependencySink;
class IUnicodeFileParse;
class IValidationSink;
struct SSectionKey;

// What a change in a parent record tells the symmetric attributes of its referencees.
enum class EHierarchyEvent : int
{
    ValueAdded = 0,
    ValueSet = 1,
    Connected = 2, // The record was connected to its parent.
    Refresh = 3,   // Inherited values shall be filled again, from the top down.
};

// The last build of an open range.
inline constexpr std::int64_t kBuildOpen = -1;

struct SBuildRange
{
    std::uint32_t m_nFirst = 0;
    std::int64_t m_nLast = kBuildOpen;
};

class CCorvaneAttrib : public CCorvaneRef
{
public:
    ~CCorvaneAttrib() override;

    // The gate before any change that must reach the disk; false means that the change must not happen.
    [[nodiscard]] virtual bool PrepareForEdit();
    // Takes the shared attribute data, fills the values with `defaultText` and gets a new GUID.
    virtual bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data);
    // The section of this attribute in a record file; `prefix` is the enclosing struct row's section or
    // empty.
    virtual void GetSectionName(std::u16string& out, std::u16string_view prefix) const;
    // "prefix.name", or the name alone.
    virtual void GetQualifiedName(std::u16string& out, std::u16string_view prefix) const;
    // Back to the state of an attribute that was never loaded: default values, no marks, no record.
    virtual void Clear();
    [[nodiscard]] const std::u16string& GetName() const;
    void SetName(std::u16string_view name);
    [[nodiscard]] std::u16string_view GetComment() const;
    [[nodiscard]] bool SetComment(std::u16string_view text);
    [[nodiscard]] std::u16string_view GetLockUser() const;
    // A view without data takes the lock away.
    void SetLockUser(std::u16string_view name);
    virtual void GetHelp(std::size_t index, std::u16string& out) const;
    // True also for a member of a struct value that inherits as a whole.
    [[nodiscard]] bool GetInherit() const
    {
        return m_bInherit || (m_pParentAttrib != nullptr && m_pParentAttrib->GetInherit());
    }
    [[nodiscard]] virtual bool GetOverride() const { return m_bOverride; }
    // Taking a member out of inheritance takes the values that it lies in out of it, as they are shown.
    virtual void SetInherit(bool value, bool recursive);
    // The builds in which this entry is in force. False when the attribute is not in its record's list.
    [[nodiscard]] bool GetBuildRange(SBuildRange& range) const;
    [[nodiscard]] virtual bool GetChildBuildRange(const CCorvaneAttrib& child, SBuildRange& range) const;
    [[nodiscard]] virtual bool IsChildDeferred(const CCorvaneAttrib& child) const;

    // Values. A fixed-size attribute refuses to grow or shrink. Setting a value ends inheritance. A false
    // result changed nothing.
    [[nodiscard]] virtual bool AddValue(std::u16string_view text);
    [[nodiscard]] virtual bool InsertValue(std::size_t index, std::u16string_view text);
    [[nodiscard]] virtual bool SetValue(std::size_t index, std::u16string_view text);
    [[nodiscard]] virtual bool RemoveValue(std::size_t index);
    // The effective value: inherited, own, or the default's first. A view without data when an inheriting
    // attribute has no counterpart in the parent record.
    [[nodiscard]] virtual std::u16string_view GetValue(std::size_t index) const;
    // Whether the attribute may hold `text`.
    [[nodiscard]] virtual bool IsValueValid(std::u16string_view text) const;
    [[nodiscard]] virtual bool MoveValueUp(std::size_t index);
    [[nodiscard]] virtual bool MoveValueDown(std::size_t index);
    // Count of the effective values.
    [[nodiscard]] virtual std::size_t GetValueCount() const;
    [[nodiscard]] bool IsValueSet(std::size_t index) const;
    // The list whose values are in force, this attribute's own or a parent record's.
    [[nodiscard]] const CCorvaneValueList& GetValueList() const;
    [[nodiscard]] const CCorvaneValueList& GetOwnValues() const { return m_Values; }
    // Takes over values as they stand, without gate or notification; used while a file is read.
    void ReplaceValues(const CCorvaneValueList& values);
    // The same with the effective values of `older`, an older entry of this attribute's name.
    virtual void CopyValuesFrom(const CCorvaneAttrib& older);

    // Members of struct values: where `child` stands (-1 for "not mine"), and the member at a place.
    [[nodiscard]] virtual std::ptrdiff_t FindChildAttribute(const CCorvaneAttrib& child,
                                                            std::ptrdiff_t& valueIndex) const;
    [[nodiscard]] virtual CCorvaneAttrib* GetChildAttribute(std::size_t valueIndex, const CGuid& guid) const;
    [[nodiscard]] virtual CCorvaneAttrib* GetChildAttributeAt(std::size_t valueIndex,
                                                              std::size_t member) const;
    // Whether `child` lies in a row that is in force, and not in one that inheritance hides.
    [[nodiscard]] virtual bool IsMemberShown(const CCorvaneAttrib& child) const;
    // The member of `other`, this attribute's counterpart in another record, that stands where `child` stands
    // here; null when there is none.
    [[nodiscard]] virtual CCorvaneAttrib* FindChildIn(const CCorvaneAttrib& child,
                                                      const CCorvaneAttrib& other) const;
    // The equal attribute of another record, build included: of a record at the same place of its list, of a
    // struct value in the same row. Null when there is none.
    [[nodiscard]] CCorvaneAttrib* FindCounterpart(const CCorvaneRecord& other) const;
    // `child`, a member shown in this attribute's values, is about to be written or leaves inheritance.
    virtual void OnMemberWrite(CCorvaneAttrib& child);
    virtual void OnMemberInheritEnd(CCorvaneAttrib& child);
    // Makes the values that are shown through inheritance the attribute's own; the marks stay as they are.
    virtual void KeepShownValues();
    virtual void SetParentRecord(CCorvaneRecord* record);

    // Reads the attribute from section `section` (an index of the parser) of a record file.
    virtual bool LoadFromFile(CCorvaneRecord& record, CCorvaneAttrib* parentAttrib,
                              const CUnicodeFileParse_ReadOnly& parser, std::size_t section);
    // False leaves the record unwritten.
    [[nodiscard]] virtual bool SaveToFile(IUnicodeFileParse& writer, std::u16string_view prefix) const;

    // Hands the values to the outputs; `prefix` is that of the enclosing struct row or empty. False is a
    // refusal and ends the output.
    [[nodiscard]] virtual bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record,
                                              std::uint32_t build, CreatorHandle& handle,
                                              std::u16string_view prefix) = 0;
    [[nodiscard]] virtual bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                              std::u16string_view prefix, std::u16string_view location) = 0;
    // Reports what the values in force at `build` refer to outside their record. False when the attribute
    // lies in no record.
    [[nodiscard]] virtual bool SaveToDependency(IDependencySink& sink, std::uint32_t build);
    // Reports every value that is not usable; false when one is critical.
    virtual bool Validate(IValidationSink* pCore);
    // Identity of the attribute's type.
    [[nodiscard]] virtual const CGuid& GetTypeGuid() const = 0;

    // Copies everything but the modified mark.
    virtual void Assign(const CCorvaneAttrib& source);
    [[nodiscard]] bool IsSameAttribute(const CCorvaneAttrib& other) const;
    [[nodiscard]] virtual bool DeferDeprecateAttribute(CCorvaneAttrib& child, std::uint32_t build);
    [[nodiscard]] virtual bool DeferDeleteAttribute(CCorvaneAttrib& child, std::uint32_t build);
    // Visits member attributes; a false from the callback ends the walk with false.
    [[nodiscard]] virtual bool EnumerateChildren(const std::function<bool(CCorvaneAttrib&)>& callback);
    virtual void OnHierarchyEvent(EHierarchyEvent code, CCorvaneRecord& record, CCorvaneAttrib* attrib);

    // The attribute whose first value stands in for a missing one: the template's, or this one itself.
    void SetDefaultRecord(CCorvaneAttrib* pDefault);
    [[nodiscard]] const CCorvaneAttrib* GetDefault() const { return m_bOwnDefault ? this : m_pDefault.Get(); }

    // Marks. SetModified passes the gate when the mark changes; the others assign.
    [[nodiscard]] bool SetModified(bool modified);
    void SetPlaceHolder(bool on) { m_bPlaceHolder = on; }
    void SetTodo(bool on) { m_bTodo = on; }
    void SetOverride(bool on) { m_bOverride = on; }
    [[nodiscard]] bool IsModified() const { return m_bModified; }
    [[nodiscard]] bool IsPlaceHolder() const { return m_bPlaceHolder; }
    [[nodiscard]] bool IsTodo() const { return m_bTodo; }
    [[nodiscard]] bool IsLocked() const { return m_bLocked; }
    // Locked itself, or a member of a struct value that is.
    [[nodiscard]] bool IsUnderLock() const
    {
        return m_bLocked || (m_pParentAttrib != nullptr && m_pParentAttrib->IsUnderLock());
    }

    virtual void SetAttribData(CCorvaneSchemaAttribData* data);
    [[nodiscard]] CCorvaneSchemaAttribData* GetAttribData() const { return m_pAttribData.Get(); }
    [[nodiscard]] std::uint32_t GetBuild() const { return m_nBuild; }
    void SetBuild(std::uint32_t build) { m_nBuild = build; }
    [[nodiscard]] CGuid GetGuid() const;
    // Takes over name and GUID of an attribute that stands for the same entry of the schema.
    void AdoptIdentity(const CCorvaneAttrib& other) { m_pIdentity = other.m_pIdentity; }
    [[nodiscard]] CCorvaneRecord* GetParentRecord() const { return m_pParentRecord.Get(); }
    // The attribute whose value this one is a member of; null outside structs. Not owned.
    [[nodiscard]] CCorvaneAttrib* GetParentAttrib() const { return m_pParentAttrib; }
    void SetParentAttrib(CCorvaneAttrib* attrib) { m_pParentAttrib = attrib; }
    // The record that the attribute lies in, through enclosing structs; null when it has none.
    [[nodiscard]] CCorvaneRecord* GetOwnerRecord() const;
    // The manager of the record or the schema; null for an attribute that has neither.
    [[nodiscard]] CCorvaneMgr* GetManager() const;
    // Position in the parent record's list, or -1; always -1 for a member of a struct value.
    [[nodiscard]] std::ptrdiff_t GetIndexInRecord() const;

protected:
    CCorvaneAttrib();

    // The attribute's own values were changed, read or copied; for a type that keeps an index of them.
    virtual void OnOwnValuesChanged() {}

    // Name, kept also in UTF-8 for the outputs, and GUID.
    struct SIdentity final : CCorvaneRef
    {
        std::u16string m_sName;
        std::string m_sNarrowName;
        CGuid m_Guid;
    };
    // What few attributes have.
    struct SExtra
    {
        std::u16string m_sComment;
        std::u16string m_sLockUser;
        std::vector<CRef<ICorvaneTypeView>> m_Views;
    };

    [[nodiscard]] const std::string& GetNarrowName() const;
    [[nodiscard]] SExtra& GetExtra();
    // Gives the block up once nothing is in it: every attribute that was ever shown would keep one.
    void DropEmptyExtra();
    [[nodiscard]] const SExtra* FindExtra() const { return m_pExtra.get(); }
    [[nodiscard]] bool IsInheriting() const;
    // Null for a member whose row the parent record does not have; such a one has its own values.
    [[nodiscard]] CCorvaneAttrib* FindInParentRecord() const;
    // What every change of a value does first: a member's own values become those that are shown, so that no
    // other value changes with the one that is written.
    void BeginWrite();
    // The values that a change works on, as they will stand after BeginWrite.
    [[nodiscard]] const CCorvaneValueList& GetWritableValues() const
    {
        return m_pParentAttrib ? GetValueList() : m_Values;
    }
    // Where a member stands among all members of its struct value; the struct keeps it as a hint.
    [[nodiscard]] static std::size_t GetPlace(const CCorvaneAttrib& member) { return member.m_nIndex; }
    static void SetPlace(CCorvaneAttrib& member, std::size_t place)
    {
        member.m_nIndex = static_cast<std::uint32_t>(place);
    }
    void LoadMarks(const CUnicodeFileParse_ReadOnly& parser, std::size_t section);
    [[nodiscard]] bool SaveMarks(IUnicodeFileParse& writer, std::u16string_view section) const;
    [[nodiscard]] bool IsVariableSize() const;
    // The text that stands in for a value that is missing.
    [[nodiscard]] std::u16string_view GetDefaultText() const;
    // Brings a fixed list to its count.
    void FillDefaultValues();
    [[nodiscard]] bool ApplySetValue(std::size_t index, std::u16string_view text);

private:
    friend class CCorvaneRecord;

    void ClearMarks();
    void LoadMark(unsigned mark, std::u16string_view value);
    [[nodiscard]] bool LoadNextValue(const SSectionKey& key);
    void LoadValuesByName(const CUnicodeFileParse_ReadOnly& parser, std::size_t section);

    std::uint32_t m_nBuild = 0;
    // Where this attribute stands in its record's list; the record keeps it. A template attribute that a
    // derived schema shares stands elsewhere there, so that readers check it.
    std::uint32_t m_nIndex = 0;
    bool m_bInherit : 1 = false;
    bool m_bLocked : 1 = false;
    bool m_bOverride : 1 = false;
    bool m_bPlaceHolder : 1 = false;
    bool m_bTodo : 1 = false;
    bool m_bModified : 1 = false;
    bool m_bOwnDefault : 1 = false;
    CCorvaneAttrib* m_pParentAttrib = nullptr;
    CRef<CCorvaneRecord> m_pParentRecord;
    CRef<CCorvaneSchemaAttribData> m_pAttribData;
    CRef<CCorvaneAttrib> m_pDefault;
    CRef<SIdentity> m_pIdentity;
    std::unique_ptr<SExtra> m_pExtra;
    CCorvaneValueList m_Values;
};
