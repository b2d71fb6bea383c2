// Attribute data of a Flags: what the bits mean, from tokens "Flag<1 to 32>=<name>|<description>" of the Data
// text. A bad number and a second declaration of one bit are told, and dropped.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "flags/FlagsDataList.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

struct SFlag
{
    std::int32_t m_nIndex; // 1 to 32: the flag is bit m_nIndex - 1.
    std::u16string m_sName;
    std::u16string m_sDescription; // With "\r" and "\n" as two-character escapes; may be empty.
};

class CCorvaneTypeFlagsData final : public CCorvaneSchemaAttribData
{
public:
    explicit CCorvaneTypeFlagsData(const SAttribDataConstruct& construct);
    ~CCorvaneTypeFlagsData() override;

    void ParseDataToken(std::u16string_view token) override;
    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;

    // In order of declaration.
    [[nodiscard]] std::span<const SFlag> GetFlags() const { return m_Flags; }

private:
    CCorvaneTypeFlagsData(const CCorvaneTypeFlagsData& other);

    void Tell(std::u16string_view title, std::u16string_view format, std::int32_t index) const;

    std::vector<SFlag> m_Flags;
    std::shared_ptr<CFlagsDataList::Items> m_pItems;
    CFlagsDataList::Items::iterator m_Item;
};
