// An Integer attribute: signed 32-bit numbers in decimal.
//
// A text that is no number reads as 0. A default outside the limits is reported and brought to the nearer
// one; a stored value outside them is kept and reported by Validate.
#pragma once

#include "CorvaneType.h"
#include "integer/CorvaneTypeIntegerData.h"

#include <cstdint>

class CCorvaneTypeInteger final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeIntegerData;
    static constexpr CGuid kTypeGuid{
        {0x26, 0x2F, 0xCC, 0x6C, 0x51, 0x80, 0x42, 0x9D, 0xA7, 0x29, 0xFD, 0xFC, 0xCA, 0x38, 0x28, 0x74}};

    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    bool Validate(IValidationSink* pCore) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Integer"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // The effective value; an index past the end reads the default's first.
    [[nodiscard]] std::int32_t GetInteger(std::size_t index) const;
    // False for an index past the end. The limits are not checked.
    [[nodiscard]] bool SetInteger(std::size_t index, std::int32_t value);
    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeIntegerData* GetIntegerAttribData() const;
};
