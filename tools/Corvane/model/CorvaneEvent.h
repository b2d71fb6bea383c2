// The event line's vocabulary: each code with its typed parameter. Codes are numbers that listeners outside
// the program rely on and never change.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <variant>

class CCorvaneAttrib;
class CCorvaneCategory;
class CCorvaneRecord;
class CCorvaneSchema;
class ICorvaneCustomFile;

enum class ECorvaneEvent : int
{
    LoadBegin = 0,
    LoadEnd = 1,
    CloseBegin = 2,
    CloseEnd = 3,
    ReloadBegin = 4,
    ReloadEnd = 5,
    SaveBegin = 6,
    SaveEnd = 7,
    CompileBegin = 8,
    CompileEnd = 9, // bool: the result.
    SchemasLoadBegin = 10,
    SchemasLoadEnd = 11,
    CategoriesLoadBegin = 12,
    CategoriesLoadEnd = 13,
    RecordsLoadBegin = 14,
    RecordsLoadEnd = 15,
    SchemasSaveBegin = 16,
    SchemasSaveEnd = 17,
    CategoriesSaveBegin = 18,
    CategoriesSaveEnd = 19,
    CompileCategoriesBegin = 20,
    CompileCategoriesEnd = 21,
    CompileRecordsBegin = 22,
    CompileRecordsEnd = 23,
    CompileAttributesBegin = 24,
    CompileAttributesEnd = 25,
    CategoryAdded = 26,          // category
    CategoryDeleting = 27,       // category
    CategoryDeleted = 28,        // category
    RecordAdded = 29,            // record
    RecordDeleting = 30,         // record; a non-zero answer means that something depends on it
    RecordDeleted = 31,          // record
    CategoryComplete = 32,       // category
    RecordComplete = 33,         // record
    RecordMoving = 34,           // record; a non-zero answer means that something depends on it
    RecordMoved = 35,            // record
    RecordRenamed = 36,          // SRecordRenamed
    CategoryMoving = 37,         // category
    CategoryMoved = 38,          // category
    CategoryRenamed = 39,        // SCategoryRenamed
    RecordControlAdded = 40,     // record
    RecordCheckedOut = 41,       // record
    RecordCheckedOutDelete = 43, // record
    RecordSubmitted = 44,        // record
    RecordCheckOutUndone = 45,   // record
    RecordLatest = 46,           // record
    CategoryControlAdded = 47,   // category
    CategoryCheckedOut = 48,     // category
    CategoryCheckedOutDelete = 50,
    CategorySubmitted = 51,
    CategoryCheckOutUndone = 52,
    CategoryLatest = 53,
    SchemaControlAdded = 54, // schema
    SchemaCheckedOut = 55,   // schema
    SchemaSubmitted = 56,    // schema
    SchemaCheckOutUndone = 57,
    StructMemberDeleted = 58, // attribute
    AttributeDeprecated = 59, // attribute
    AttributesChanged = 60,   // record, or null for all records
    AttributeDeleted = 62,    // attribute
    RecordReloaded = 63,      // record
    SaveComplete = 64,
    LoadComplete = 65,
    EnumerateCustomFiles = 66, // SEnumerateCustomFiles
    ActiveBuildChanged = 69,
    ChangeSetSubmitted = 70,
    ChangeSetReverted = 71,
};

struct SRecordRenamed
{
    CCorvaneRecord* m_pRecord;
    // Display paths.
    std::u16string_view m_sOldPath;
    std::u16string_view m_sNewPath;
};

struct SCategoryRenamed
{
    CCorvaneCategory* m_pCategory;
    std::u16string_view m_sOldName;
    std::u16string_view m_sNewName;
};

struct SEnumerateCustomFiles
{
    // Called once for each custom file.
    const std::function<void(ICorvaneCustomFile&)>* m_pCallback;
};

class CCorvaneEvent
{
public:
    using Parameter =
        std::variant<std::monostate, CCorvaneRecord*, CCorvaneCategory*, CCorvaneSchema*, CCorvaneAttrib*,
                     SRecordRenamed, SCategoryRenamed, SEnumerateCustomFiles, bool>;

    explicit CCorvaneEvent(ECorvaneEvent code) : m_Code(code) {}
    CCorvaneEvent(ECorvaneEvent code, Parameter parameter) : m_Code(code), m_Parameter(parameter) {}

    [[nodiscard]] ECorvaneEvent GetCode() const { return m_Code; }
    // Null when the event carries something else.
    [[nodiscard]] CCorvaneRecord* GetRecord() const { return Get<CCorvaneRecord*>(); }
    [[nodiscard]] CCorvaneCategory* GetCategory() const { return Get<CCorvaneCategory*>(); }
    [[nodiscard]] CCorvaneSchema* GetSchema() const { return Get<CCorvaneSchema*>(); }
    [[nodiscard]] CCorvaneAttrib* GetAttribute() const { return Get<CCorvaneAttrib*>(); }
    [[nodiscard]] const SRecordRenamed* GetRecordRenamed() const
    {
        return std::get_if<SRecordRenamed>(&m_Parameter);
    }
    [[nodiscard]] const SCategoryRenamed* GetCategoryRenamed() const
    {
        return std::get_if<SCategoryRenamed>(&m_Parameter);
    }
    [[nodiscard]] const SEnumerateCustomFiles* GetEnumerateCustomFiles() const
    {
        return std::get_if<SEnumerateCustomFiles>(&m_Parameter);
    }
    // The result that an end event carries.
    [[nodiscard]] bool GetResult() const { return std::holds_alternative<bool>(m_Parameter) && Get<bool>(); }

private:
    template <class T> T Get() const
    {
        const T* value = std::get_if<T>(&m_Parameter);
        return value ? *value : T{};
    }

    ECorvaneEvent m_Code;
    Parameter m_Parameter;
};
