// A schema: the description of one kind of record. Its list of attribute data and its template record's list
// of attributes have the same order; entries of one name are neighbours, the newest build first. A schema
// with a parent has the parent's template attributes ahead of its own.
#pragma once

#include "CorvaneRef.h"
#include "FileSystem.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneMgr;
class CCorvaneRecord;
class CCorvaneSchemaAttribData;
class CCorvaneType;
class CUnicodeFileParse_ReadOnly;
class IUnicodeFileParse;

enum ESchemaFlags : std::uint32_t
{
    SCHEMA_FLAG_MODIFIED = 0x1,
    SCHEMA_FLAG_MISSING = 0x2, // The file was gone at the last reload.
};

class CCorvaneSchema : public CCorvaneRef
{
public:
    CCorvaneSchema(CCorvaneMgr& manager, std::u16string_view name, std::u16string_view help,
                   std::u16string_view parent);
    ~CCorvaneSchema() override;

    // Reads the file into `existing`, or into a new schema when null; null when it cannot be one, and then an
    // existing schema stays as it was.
    [[nodiscard]] static CRef<CCorvaneSchema> CreateFromFile(CCorvaneMgr& manager, std::u16string_view path,
                                                             CCorvaneSchema* existing);
    // A schema without a file goes to `path`, a directory with its last separator.
    [[nodiscard]] bool SaveToFile(std::u16string_view path, bool force);
    // Reads the file again and brings all records in line. Entries with the same name, build and type keep
    // their identity, so that no record loses a value. False when there is no file to read.
    [[nodiscard]] bool ReloadFromFile();
    // Appends an instance to the template.
    [[nodiscard]] bool AddAttribute(std::u16string_view name, std::u16string_view type,
                                    std::u16string_view defaultText, CCorvaneSchemaAttribData& data);
    [[nodiscard]] CRef<CCorvaneRecord> CloneRecordFromTemplate() const;
    // Finds the parent by name and shares its template attributes; the parent's own parent first. False when
    // it is missing or the chain comes back to this schema.
    [[nodiscard]] bool ConnectParent();
    // Connects this schema and all others anew, since any of them may have gained or lost an ancestor, and
    // brings all records in line.
    void Reconnect();
    // Takes away the template entries of a deferral that the gate refused: the ones whose build is not that
    // of their data.
    void DropUnfinishedEntries();
    // Shares the attributes of the parent's template again, after that one has changed.
    void RefreshInherited();
    void Clear();

    [[nodiscard]] std::span<const CRef<CCorvaneSchemaAttribData>> GetAttribDataList() const
    {
        return m_AttribData;
    }
    // Where the data stands in the list, or -1.
    [[nodiscard]] std::ptrdiff_t FindAttribData(const CCorvaneSchemaAttribData& data) const;
    // The instance of an entry of the list; null when there is none.
    [[nodiscard]] CCorvaneType* FindTemplateAttribute(const CCorvaneSchemaAttribData& data) const;
    // Where the schema's own attributes begin in the template: behind those of its ancestors.
    [[nodiscard]] std::size_t GetFirstOwnAttribute() const;
    void InsertAttribData(std::size_t index, CRef<CCorvaneSchemaAttribData> data);
    void RemoveAttribData(std::size_t index);
    [[nodiscard]] CCorvaneRecord* GetTemplate() const { return m_pTemplateRecord.Get(); }
    [[nodiscard]] CCorvaneSchema* GetParent() const { return m_pParent; }
    // True when `ancestor` is this schema or stands above it.
    [[nodiscard]] bool IsDerivedFrom(const CCorvaneSchema& ancestor) const;
    [[nodiscard]] const std::u16string& GetName() const { return m_sName; }
    [[nodiscard]] const std::u16string& GetHelp() const { return m_sHelp; }
    [[nodiscard]] const std::u16string& GetParentName() const { return m_sParent; }
    [[nodiscard]] const std::u16string& GetFile() const { return m_sFile; }
    [[nodiscard]] bool TestFlag(std::uint32_t flag) const { return (m_dwFlags & flag) != 0; }
    void SetFlag(std::uint32_t flag, bool on) { m_dwFlags = on ? (m_dwFlags | flag) : (m_dwFlags & ~flag); }
    // The schema waits for a save, and so does the database.
    void SetModified();
    [[nodiscard]] const SFileStamp& GetFileStamp() const { return m_Stamp; }
    void SetFileStamp(const SFileStamp& stamp) { m_Stamp = stamp; }
    [[nodiscard]] std::uint32_t GetFileTime() const { return GetDosTime(m_Stamp); }
    [[nodiscard]] CCorvaneMgr& GetManager() const { return m_Manager; }

private:
    enum class EConnect
    {
        None,
        Connected,
        Failed
    };
    struct SOldEntry;

    [[nodiscard]] bool IsOnCycle() const;
    void DropInherited();
    void FillWriter(IUnicodeFileParse& writer) const;
    void ReadSection(const CUnicodeFileParse_ReadOnly& parser, std::size_t section, std::u16string_view path);
    [[nodiscard]] std::u16string MakeFilePath(std::u16string_view path) const;

    CCorvaneMgr& m_Manager;
    std::uint32_t m_dwFlags = 0;
    CCorvaneSchema* m_pParent = nullptr;
    std::u16string m_sName;
    std::u16string m_sHelp;
    std::u16string m_sParent;
    std::u16string m_sFile;
    CRef<CCorvaneRecord> m_pTemplateRecord;
    SFileStamp m_Stamp;
    std::vector<CRef<CCorvaneSchemaAttribData>> m_AttribData;
    EConnect m_Connect = EConnect::None;
};
