// A Text attribute: one line of text, stored as it was entered. Its default is taken as it stands.
#pragma once

#include "CorvaneType.h"
#include "text/CorvaneTypeStringData.h"

class CCorvaneTypeString final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeStringData;
    static constexpr CGuid kTypeGuid{
        {0xFC, 0x14, 0x10, 0xD7, 0xB3, 0x98, 0x4E, 0x4C, 0x9E, 0xE1, 0xEA, 0x1A, 0xEF, 0x35, 0x6B, 0x12}};

    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Text"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeStringData* GetStringAttribData() const;
};
