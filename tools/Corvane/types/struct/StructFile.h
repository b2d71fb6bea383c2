// A struct file: the declarations of the members that the values of Struct attributes consist of. Several
// schemas and other struct files may refer to one file; in a database there is one object for it, kept by
// CStructFileRegistry. Its form is described in docs/formats/struct-files.md.
//
// Members stand in file order. Each has attribute data and a default instance, whose identity (GUID and
// build) all its copies in rows share. The file knows every live attribute that is made of it, and brings
// them in line when its members change.
#pragma once

#include "CorvaneRef.h"
#include "CustomFile.h"
#include "FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneAttrib;
class CCorvaneMgr;
class CCorvaneSchemaAttribData;
class CCorvaneType;
class CCorvaneTypeStruct;
class CUnicodeFileParse_ReadOnly;
class IUnicodeFileParse;

struct SStructMember
{
    static constexpr std::size_t kNone = SIZE_MAX;

    CRef<CCorvaneSchemaAttribData> m_pData;
    CRef<CCorvaneType> m_pDefault;
    std::u16string m_sBuild; // The first build as section names hold it.
    // Filled by CStructFile::Index.
    std::int64_t m_nLast = -1;               // The last build in force, or kBuildOpen.
    std::size_t m_nOlder = kNone;            // The next older entry of the same name.
    bool m_bDeferred = false;                // There is a newer entry of the same name.
    CCorvaneTypeStruct* m_pStruct = nullptr; // The default instance when the member is itself a struct.
};

class CStructFile final : public CCorvaneRef, public ICorvaneCustomFile
{
public:
    CStructFile(CCorvaneMgr& manager, std::u16string_view path);
    ~CStructFile() override;

    // Reads the declarations; `owner` names who refers to the file, for messages. False, having told why,
    // leaves the file as it was.
    [[nodiscard]] bool Load(std::u16string_view owner);
    [[nodiscard]] std::span<const SStructMember> GetMembers() const { return m_Members; }
    [[nodiscard]] const std::u16string& GetPath() const { return m_sPath; }
    [[nodiscard]] CCorvaneMgr& GetManager() const { return m_Manager; }
    // The member with the identity of `attrib`, or SStructMember::kNone.
    [[nodiscard]] std::size_t FindMember(const CCorvaneAttrib& attrib) const;
    // Attribute instances that one new row makes, those of nested structs among them.
    [[nodiscard]] std::uint64_t GetRowSize() const { return m_nRowSize; }
    [[nodiscard]] bool HasNestedStructs() const { return m_nDepth > 1; }
    // Files on the longest way down from this one, itself included.
    [[nodiscard]] std::size_t GetDepth() const { return m_nDepth; }
    // True when `file` is this one or can be reached through nested structs.
    [[nodiscard]] bool Reaches(const CStructFile& file) const;

    // Where a section of `name` for `build` belongs: behind the first entries of that name whose build is not
    // below it. False when no member has the name.
    [[nodiscard]] bool ComputeDeferAttributeLocation(std::u16string_view name, std::uint32_t build,
                                                     std::size_t& index) const;
    // Changes of the declarations. Each marks the file as changed; none brings live attributes in line.
    // A copy of the member `source` for another build, which keeps its GUID, goes to place `index`.
    void InsertCopy(std::size_t source, std::size_t index, std::uint32_t build, bool deleted);
    void RemoveMember(std::size_t index);
    void SetMemberDeleted(std::size_t index, bool deleted);
    // Gives every live attribute one member instance for each declaration, in order, and tells the event
    // line.
    void SynchronizeStructAttributes();

    // Live attributes enter and leave in constant time.
    void Enter(CCorvaneTypeStruct& attrib);
    void Leave(CCorvaneTypeStruct& attrib);

    [[nodiscard]] bool IsModified() const { return m_bModified; }

    // ICorvaneCustomFile. Reload keeps the identity of each member with the same name, build and type.
    [[nodiscard]] bool IsOpen() const override { return m_bOpen; }
    void SetModified(bool modified) override;
    [[nodiscard]] bool CanSave() const override { return true; }
    [[nodiscard]] bool Save() override;
    [[nodiscard]] std::uint32_t GetSourceControlFlags() override;
    [[nodiscard]] bool AddToSourceControl() override;
    [[nodiscard]] bool Submit() override;
    [[nodiscard]] bool CheckOut() override;
    [[nodiscard]] bool UndoCheckOut() override;
    [[nodiscard]] bool SaveAndSubmit() override;
    [[nodiscard]] bool Revert() override;
    [[nodiscard]] bool Reload() override;
    void GetDisplayName(std::u16string& out) const override;
    void GetFilePath(std::u16string& out) const override;
    void GetTypeName(std::u16string& out) const override;

private:
    struct SDeclaration;

    void TellUnreadable(bool wrongFormat) const;
    [[nodiscard]] std::vector<SDeclaration> FindDeclarations(const CUnicodeFileParse_ReadOnly& parser) const;
    void AddMember(std::vector<SStructMember>& members, const CUnicodeFileParse_ReadOnly& parser,
                   const SDeclaration& declaration, std::u16string_view owner) const;
    void TakeMembers(std::vector<SStructMember> members);
    void Index();
    void IndexBuilds();
    void FillWriter(IUnicodeFileParse& writer) const;

    CCorvaneMgr& m_Manager;
    std::u16string m_sPath;
    std::vector<SStructMember> m_Members;
    std::uint64_t m_nRowSize = 0;
    std::size_t m_nDepth = 1;
    SFileStamp m_Stamp;
    bool m_bOpen = false;
    bool m_bModified = false;
    // The live attributes in the order in which they came; the links lie in the attributes.
    CCorvaneTypeStruct* m_pFirst = nullptr;
    CCorvaneTypeStruct* m_pLast = nullptr;
};
