// A record as its users see it at one build: the values in force, and for each of them where it comes from.
#pragma once

#include "CorvaneAttrib.h"
#include "DeferState.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneMgr;
class CCorvaneRecord;
class CValueOrigins;

struct SShownValue
{
    std::u16string m_sText;  // In the type's text form.
    bool m_bDefault = false; // The schema's default stands in.
};

// What a value refers to outside its record.
struct SShownReference
{
    std::u16string m_sKind; // "File", "Sound", "Effect", "StringID" or "Record".
    std::u16string m_sResource;
    // Of kind "Record" alone: the display path of the record; empty when there is none.
    std::optional<std::u16string> m_sTarget;
};

struct SShownAttribute
{
    std::u16string m_sName;
    std::u16string m_sType;
    SBuildRange m_Builds;
    bool m_bAvailable = false; // In force at the build.
    bool m_bDeletion = false;  // The entry that marks a deletion.
    EDeferState m_State = EDeferState::None;

    // The records that the values are inherited through, the nearest first; the last one holds them. Empty
    // for values of the record's own.
    std::vector<std::u16string> m_Chain;
    // The record at the end of the chain holds a value of this attribute. Otherwise the default stands in.
    bool m_bStored = false;
    // The build of the older entry whose values were taken over, since the record's file is older than this
    // entry.
    std::optional<std::uint32_t> m_nOlderBuild;

    bool m_bOverride = false;
    bool m_bTodo = false;
    bool m_bPlaceHolder = false;
    bool m_bModified = false;
    std::u16string m_sLockUser; // Empty when not locked.
    std::u16string m_sComment;

    std::vector<SShownValue> m_Values;
    std::vector<SShownReference> m_References;
    bool m_bStruct = false;
    std::vector<std::vector<SShownAttribute>> m_Rows; // Of a struct: the members of each row.
};

struct SShownRecord
{
    std::u16string m_sPath; // The display path.
    std::u16string m_sRecordPath;
    std::u16string m_sFile;
    std::u16string m_sSchema;
    std::u16string m_sComment;
    std::uint32_t m_nBuild = 0;
    // Display paths: the record that this one inherits from and so on upwards; those that inherit from it.
    std::vector<std::u16string> m_Referencers;
    std::vector<std::u16string> m_Referencees;
    std::vector<SShownAttribute> m_Attributes; // In the order of the schema.
};

// `attribute` limits the result to the entries of that name; empty takes all.
[[nodiscard]] SShownRecord ShowRecord(CCorvaneRecord& record, std::uint32_t build,
                                      std::u16string_view attribute);
