// A Time attribute: signed milliseconds in decimal.
//
// A default that is negative without leave is reported and becomes 0; stored values are never checked.
#pragma once

#include "CorvaneType.h"
#include "time/CorvaneTypeTimeData.h"

#include <cstdint>

class CCorvaneTypeTime final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeTimeData;
    static constexpr CGuid kTypeGuid{
        {0x8D, 0x23, 0xB1, 0x92, 0x00, 0x82, 0x4E, 0x59, 0x80, 0xE8, 0x72, 0x8A, 0x55, 0x77, 0x73, 0x0B}};

    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Time"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // Milliseconds of the effective value; an index past the end reads the default's first.
    [[nodiscard]] std::int32_t GetTime(std::size_t index) const;
    // False for an index past the end. The sign is not checked.
    [[nodiscard]] bool SetTime(std::size_t index, std::int32_t milliseconds);
    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeTimeData* GetTimeAttribData() const;
};
