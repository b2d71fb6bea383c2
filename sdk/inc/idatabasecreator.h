// The border between the system and a game's creator library, which builds the packed database.
//
// A creator library exports two C functions without arguments, each returning an interface that the library
// owns and that lives until the process ends. The system calls from one thread, in the order of its passes:
// a database, all categories, all records, all attributes with their values, then the save.
//
// Handles are non-zero numbers of the library's choice and stay valid from creation until ReleaseDatabase;
// 0 means failure. Narrow text is UTF-8, terminated, and valid only during the call. A library must not let
// an exception cross this border; the system treats one as a refusal.
#pragma once

#include <cstdint>

class IZROutConverter;

using CreatorHandle = std::uint64_t;

// Kinds of value. The numbers are stored in packed files and never change.
enum EDatabaseValueType : std::int32_t
{
    DBVALUE_BOOLEAN = 1,
    DBVALUE_FLOAT = 2,
    DBVALUE_INTEGER = 3,
    DBVALUE_TEXT = 4,
    DBVALUE_WIDETEXT = 5,
    DBVALUE_VECTOR2 = 6,
    DBVALUE_VECTOR3 = 7,
    DBVALUE_VECTOR4 = 8,
    DBVALUE_RECORDLINK = 9,
    DBVALUE_STRUCT = 10,
};

// What a text value stands for.
enum EDatabaseValueKind : std::int32_t
{
    DBKIND_PLAIN = 0,
    DBKIND_FILE = 1,
    DBKIND_EFFECT = 2,
};

class IDatabaseCreatorMgr
{
public:
    virtual ~IDatabaseCreatorMgr() = default;

    [[nodiscard]] virtual CreatorHandle CreateDatabase() = 0;
    virtual void ReleaseDatabase(CreatorHandle database) = 0;
    // Writes the whole database through `out`. Returns false when it could not.
    [[nodiscard]] virtual bool SaveDatabase(CreatorHandle database, IZROutConverter* out) = 0;

    // `path` holds the names of the category and its parents, outermost first, joined by '/'. `schema` is
    // empty for a category that holds only sub-categories.
    [[nodiscard]] virtual CreatorHandle CreateCategory(CreatorHandle database, const char* path,
                                                       const char* schema) = 0;
    [[nodiscard]] virtual CreatorHandle CreateRecord(CreatorHandle category, const char* name) = 0;
    // A struct has one value a row and no setter; its members are created on the same record under
    // "<struct>.<row>.<member>", rows counted from 0.
    [[nodiscard]] virtual CreatorHandle CreateAttribute(CreatorHandle record, const char* name, std::int32_t type,
                                                        std::int32_t kind, std::int32_t valueCount) = 0;

    // `index` counts from 0 and is below the attribute's value count. A value that is never set reads as
    // zero, false, the empty text or no link.
    virtual void SetInteger(CreatorHandle attribute, std::int32_t index, std::int32_t value) = 0;
    virtual void SetFloat(CreatorHandle attribute, std::int32_t index, float value) = 0;
    virtual void SetText(CreatorHandle attribute, std::int32_t index, const char* value) = 0;
    virtual void SetWideText(CreatorHandle attribute, std::int32_t index, const char16_t* value) = 0;
    virtual void SetVector2(CreatorHandle attribute, std::int32_t index, const float value[2]) = 0;
    virtual void SetVector3(CreatorHandle attribute, std::int32_t index, const float value[3]) = 0;
    virtual void SetVector4(CreatorHandle attribute, std::int32_t index, const float value[4]) = 0;
    virtual void SetBoolean(CreatorHandle attribute, std::int32_t index, bool value) = 0;
    // `record` is a handle from CreateRecord, or 0 for a link to a record that is not in the output.
    virtual void SetRecordLink(CreatorHandle attribute, std::int32_t index, CreatorHandle record) = 0;
};

// Builds the two files by which a server's administrator overrides values: a text to edit and the limits.
class IDatabaseCreatorUnpackedMgr
{
public:
    virtual ~IDatabaseCreatorUnpackedMgr() = default;

    [[nodiscard]] virtual CreatorHandle CreateDatabase() = 0;
    virtual void ReleaseDatabase(CreatorHandle database) = 0;
    [[nodiscard]] virtual bool SaveDatabase(CreatorHandle database, const char* databasePath,
                                            const char* constraintsPath) = 0;
    // `data` is the schema's type-specific text, `typeName` its type word. `one` is always 1. `valueCount` is
    // -1 for a list of any length.
    [[nodiscard]] virtual CreatorHandle CreateAttribute(CreatorHandle database, const char* help, std::int32_t type,
                                                        const char* fullName, const char* data,
                                                        const char* typeName, std::int32_t one,
                                                        std::int32_t valueCount) = 0;

    [[nodiscard]] virtual bool SetIntegerLimits(CreatorHandle attribute, std::int32_t minimum,
                                                std::int32_t maximum) = 0;
    [[nodiscard]] virtual bool SetFloatLimits(CreatorHandle attribute, float minimum, float maximum) = 0;
    // Lengths count UTF-16 units; a maximum of -1 means no limit.
    [[nodiscard]] virtual bool SetTextLimits(CreatorHandle attribute, std::int32_t minimum, std::int32_t maximum) = 0;

    // Each call appends one value.
    [[nodiscard]] virtual bool SetInteger(CreatorHandle attribute, std::int32_t value) = 0;
    [[nodiscard]] virtual bool SetFloat(CreatorHandle attribute, float value) = 0;
    [[nodiscard]] virtual bool SetText(CreatorHandle attribute, const char* value) = 0;
    [[nodiscard]] virtual bool SetBoolean(CreatorHandle attribute, bool value) = 0;
    [[nodiscard]] virtual bool SetVector2(CreatorHandle attribute, const float value[2]) = 0;
    [[nodiscard]] virtual bool SetVector3(CreatorHandle attribute, const float value[3]) = 0;
    [[nodiscard]] virtual bool SetVector4(CreatorHandle attribute, const float value[4]) = 0;
};

// Names and forms of the two exports.
inline constexpr const char* kGetIDatabaseCreatorMgr = "GetIDatabaseCreatorMgr";
inline constexpr const char* kGetIDatabaseCreatorUnpackedMgr = "GetIDatabaseCreatorUnpackedMgr";
using GetIDatabaseCreatorMgrFn = IDatabaseCreatorMgr* (*)();
using GetIDatabaseCreatorUnpackedMgrFn = IDatabaseCreatorUnpackedMgr* (*)();
