// A Float attribute: 32-bit floating-point numbers in decimal.
//
// A text that is no number reads as 0. A default outside the limits is reported and kept all the same, as is
// a stored value, which Validate reports.
#pragma once

#include "CorvaneType.h"
#include "float/CorvaneTypeFloatData.h"

#include <cstdint>

class CCorvaneTypeFloat final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeFloatData;
    static constexpr CGuid kTypeGuid{
        {0x2D, 0x24, 0x0F, 0xA0, 0x35, 0xE9, 0x43, 0x75, 0xA5, 0xDD, 0xF7, 0x83, 0x71, 0xB8, 0xBC, 0x8B}};

    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    bool Validate(IValidationSink* pCore) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Float"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // The effective value; an index past the end reads the default's first.
    [[nodiscard]] float GetFloat(std::size_t index) const;
    // False for an index past the end. The limits are not checked.
    [[nodiscard]] bool SetFloat(std::size_t index, float value);
    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeFloatData* GetFloatAttribData() const;
};
