// A Flags attribute: masks of 32 bits, whose meanings the schema declares.
//
// Bits without a meaning are kept. Neither defaults nor stored values are checked.
#pragma once

#include "CorvaneType.h"
#include "flags/CorvaneTypeFlagsData.h"

#include <cstddef>
#include <cstdint>

class CCorvaneTypeFlags final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeFlagsData;
    static constexpr CGuid kTypeGuid{
        {0xF2, 0xC4, 0xEB, 0x1A, 0x4C, 0x6A, 0x47, 0xC8, 0xA7, 0x61, 0xEE, 0xA4, 0x6F, 0x12, 0xBB, 0x71}};

    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Flags"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // The effective value; an index past the end reads the default's first.
    [[nodiscard]] std::uint32_t GetFlags(std::size_t index) const;
    // False for an index past the end.
    [[nodiscard]] bool SetFlags(std::size_t index, std::uint32_t mask);
    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeFlagsData* GetFlagsAttribData() const;

private:
    // The outputs have no unsigned numbers: the same 32 bits.
    [[nodiscard]] std::int32_t GetSigned(std::size_t index) const;
};
