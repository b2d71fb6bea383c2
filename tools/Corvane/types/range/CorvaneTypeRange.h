// A Range attribute: a minimum and a maximum, both 32-bit floating-point numbers.
//
// A default outside the limits is reported and brought to the nearer ones. A stored value outside them, or
// with its minimum above its maximum, is kept and reported by Validate.
#pragma once

#include "CorvaneType.h"
#include "range/CorvaneTypeRangeData.h"

#include <cstddef>
#include <cstdint>

class CCorvaneTypeRange final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeRangeData;
    static constexpr CGuid kTypeGuid{
        {0x2D, 0x88, 0x59, 0x24, 0x00, 0x3E, 0x4F, 0x76, 0xAF, 0x31, 0x6A, 0x9C, 0x4B, 0x5D, 0xEF, 0x43}};

    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    bool Validate(IValidationSink* pCore) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Range"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // The effective value; an index past the end reads the default's first.
    [[nodiscard]] SRange GetRange(std::size_t index) const;
    // False for an index past the end. Neither limits nor order are checked.
    [[nodiscard]] bool SetRange(std::size_t index, const SRange& range);
    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeRangeData* GetRangeAttribData() const;
};
