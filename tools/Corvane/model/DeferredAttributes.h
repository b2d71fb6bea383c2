// Questions about the whole database that lists of deferred attributes show: which entries are due for their
// final removal at a build and who uses them, and what was changed after it had gone out of force.
//
// The answers hold the objects that they name; they do not follow later changes. Each costs one walk over the
// schemas, struct files and records.
#pragma once

#include "CorvaneRecord.h"
#include "CorvaneSchema.h"
#include "CorvaneSchemaAttribData.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class CCorvaneMgr;

enum class EDeferOperation
{
    Deprecated, // A newer version has taken over.
    Deleted,    // The attribute was deleted; the entries before the deletion, and the one that marks it.
};

struct SDeferredEntry
{
    // Where the entry is declared: a schema, or a struct file through the data of an attribute that uses it.
    // The other one is null.
    CRef<CCorvaneSchema> m_pSchema;
    CRef<CCorvaneSchemaAttribData> m_pStructData;
    std::u16string m_sOwner;                // The schema's name or the struct file's path.
    std::size_t m_nIndex = 0;               // As CCorvaneMgr::DeleteDeferredAttribute takes it.
    CRef<CCorvaneSchemaAttribData> m_pData; // Name, build and flags.
    // The type's word; empty for a struct member that no record has.
    std::u16string m_sType;
    bool m_bModified = false; // A record changed it after it had gone out of force.
};

struct SAttributeUse
{
    CRef<CCorvaneRecord> m_pRecord;
    CRef<CCorvaneAttrib> m_pAttrib;
    std::size_t m_nEntry = 0; // Of SDeferredAttributes::m_Entries.
};

struct SDeferredAttributes
{
    std::vector<SDeferredEntry>
        m_Entries;                     // Schema by schema, then struct files, in the order of their lists.
    std::vector<SAttributeUse> m_Uses; // In the order of the records. A deletion mark is no use.
};

// The entries that no build from `build` on has in force because of `operation`.
[[nodiscard]] SDeferredAttributes FindDeferredAttributes(CCorvaneMgr& manager, EDeferOperation operation,
                                                         std::uint32_t build);

struct SModifiedAttribute
{
    CRef<CCorvaneRecord> m_pRecord;
    CRef<CCorvaneAttrib> m_pAttrib;
};

// What IsAttributeModifiedForBuild affirms, members of struct values included.
[[nodiscard]] std::vector<SModifiedAttribute> FindModifiedAttributes(CCorvaneMgr& manager,
                                                                     std::uint32_t build);
