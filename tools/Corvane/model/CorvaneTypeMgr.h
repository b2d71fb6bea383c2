// The registries that turn a schema's type word into objects: one for attribute instances, one for attribute
// data. Both are filled once, by the list of types, before anything is loaded. Words are compared without
// regard to case.
#pragma once

#include "CorvaneRef.h"
#include "Guid.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneMgr;
class CCorvaneRecord;
class CCorvaneSchema;
class CCorvaneSchemaAttribData;
class CCorvaneType;

class CCorvaneTypeMgr
{
public:
    using FCreate = CRef<CCorvaneType> (*)(std::u16string_view defaultText,
                                           CCorvaneSchemaAttribData& attribData,
                                           CCorvaneRecord* parentRecord);
    struct SEntry
    {
        std::u16string m_sName;
        FCreate m_Create;
    };

    // A word that is already there fires an assertion and changes nothing.
    void RegisterType(std::u16string_view name, FCreate create);
    // Null for an unknown word.
    [[nodiscard]] CRef<CCorvaneType> CreateType(std::u16string_view name, std::u16string_view defaultText,
                                                CCorvaneSchemaAttribData& attribData,
                                                CCorvaneRecord* parentRecord) const;
    // In order of registration.
    [[nodiscard]] std::span<const SEntry> GetEntries() const { return m_Entries; }

private:
    std::vector<SEntry> m_Entries;
};

// What a data factory is given.
struct SAttribDataConstruct
{
    std::u16string_view m_sName;
    std::u16string_view m_sData;
    std::u16string_view m_sHelp;
    std::u16string_view m_sFile; // The schema or struct file that declares the attribute.
    std::int32_t m_nValues = 1;
    std::uint32_t m_nBuild = 0;
    bool m_bUnicode = false;
    bool m_bDeleted = false;
    bool m_bInherit = true;
    CCorvaneMgr* m_pManager = nullptr;
    CCorvaneSchema* m_pSchema = nullptr; // Null for a member of a struct file.
};

class CorvaneSchemaAttribDataMgr
{
public:
    using FCreate = CRef<CCorvaneSchemaAttribData> (*)(const SAttribDataConstruct& construct);

    void RegisterAttribData(std::u16string_view name, FCreate create);
    // Null for an unknown word.
    [[nodiscard]] CRef<CCorvaneSchemaAttribData>
    CreateAttribData(std::u16string_view name, const SAttribDataConstruct& construct) const;

private:
    struct SEntry
    {
        std::u16string m_sName;
        FCreate m_Create;
    };
    std::vector<SEntry> m_Entries;
};

// The factory of a data class that is built from the construction record alone.
template <class T>
CRef<CCorvaneSchemaAttribData> CreateCorvaneAttribData(const SAttribDataConstruct& construct)
{
    return CRef<CCorvaneSchemaAttribData>(new T(construct));
}
