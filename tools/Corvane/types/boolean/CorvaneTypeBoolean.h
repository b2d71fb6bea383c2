// A Boolean attribute: "True" or "False". Every other text reads as false; only a default is brought into
// one of the two spellings, a stored value is kept as it stands.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"

class CCorvaneTypeBoolean final : public CCorvaneType
{
public:
    using AttribData = CCorvaneSchemaAttribData;
    static constexpr CGuid kTypeGuid{
        {0x7B, 0xA8, 0xB5, 0x00, 0x3F, 0xEE, 0x4C, 0xAE, 0xB6, 0xB3, 0xD0, 0xCF, 0x90, 0x5C, 0x30, 0x0F}};

    // An empty default is true; one that is neither word is reported and is true as well.
    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Boolean"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // The effective value; an index past the end reads the default's first.
    [[nodiscard]] bool GetBoolean(std::size_t index) const;
    // False for an index past the end.
    [[nodiscard]] bool SetBoolean(std::size_t index, bool value);
};
