// A schema's description of one attribute at one build, shared by all instances. Each type derives its own
// class and adds what its Data text holds.
#pragma once

#include "CorvaneRef.h"
#include "CorvaneTypeMgr.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class IMemberStore;

enum EAttribFlags : std::uint32_t
{
    ATTRIB_FLAG_UNICODE = 0x1,
    ATTRIB_FLAG_DELETED = 0x2,
    ATTRIB_FLAG_INHERIT = 0x4,
};

// A variable number of values.
inline constexpr std::int32_t kVariableValues = -1;

class CCorvaneSchemaAttribData : public CCorvaneRef
{
public:
    explicit CCorvaneSchemaAttribData(const SAttribDataConstruct& construct);

    // One piece of the Data text between semicolons. What a type does not know it ignores.
    virtual void ParseDataToken(std::u16string_view token);
    // A new object of the same class with all fields copied.
    [[nodiscard]] virtual CRef<CCorvaneSchemaAttribData> Clone() const;

    [[nodiscard]] bool TestFlag(std::uint32_t flag) const { return (m_dwFlags & flag) != 0; }
    void SetFlag(std::uint32_t flag, bool on) { m_dwFlags = on ? (m_dwFlags | flag) : (m_dwFlags & ~flag); }
    [[nodiscard]] const std::u16string& GetName() const { return m_sName; }
    // The Data text as it was read.
    [[nodiscard]] const std::u16string& GetData() const { return m_sData; }
    [[nodiscard]] const std::u16string& GetHelp() const { return m_sHelp; }
    // -1 for a variable count, else at least 1.
    [[nodiscard]] std::int32_t GetValues() const { return m_nValues; }
    [[nodiscard]] std::uint32_t GetBuild() const { return m_nBuild; }
    void SetBuild(std::uint32_t build);
    [[nodiscard]] CCorvaneMgr& GetManager() const { return *m_pManager; }
    // Null for a member of a struct file, which no schema owns.
    [[nodiscard]] CCorvaneSchema* GetSchema() const { return m_pSchema; }
    // The members that the values consist of; null for a type that has none.
    [[nodiscard]] virtual IMemberStore* GetMemberStore() { return nullptr; }

    // A section name with its hash (HashName), for looking it up in many record files.
    struct SSection
    {
        std::u16string m_sName;
        std::size_t m_nHash = 0;
    };
    // "Attrib.<name>.<build>" and "Attrib.<name>".
    [[nodiscard]] const SSection& GetBuildSection() const { return m_BuildSection; }
    [[nodiscard]] const SSection& GetPlainSection() const { return m_PlainSection; }

protected:
    CCorvaneSchemaAttribData(const CCorvaneSchemaAttribData& other);
    // Hands each piece of the Data text to ParseDataToken; called by the constructor of a class that has
    // tokens. A last empty piece is dropped, an inner one is kept.
    void ParseData();

private:
    std::uint32_t m_dwFlags = 0;
    std::u16string m_sName;
    std::u16string m_sData;
    std::u16string m_sHelp;
    std::int32_t m_nValues = 1;
    std::uint32_t m_nBuild = 0;
    CCorvaneMgr* m_pManager;
    CCorvaneSchema* m_pSchema;
    SSection m_BuildSection;
    SSection m_PlainSection;
};
