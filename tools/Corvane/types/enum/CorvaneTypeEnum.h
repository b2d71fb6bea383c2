// An Enum attribute: a text that is one of the words of a list, compared without regard to case.
//
// A default that the list does not hold is reported and becomes the list's first word; a stored value that it
// does not hold is kept and reported by Validate.
#pragma once

#include "CorvaneType.h"
#include "enum/CorvaneTypeEnumData.h"

class CCorvaneTypeEnum final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeEnumData;
    static constexpr CGuid kTypeGuid{
        {0x4C, 0xBC, 0x94, 0x09, 0x19, 0x3D, 0x49, 0x2A, 0xBC, 0x2E, 0x5B, 0x80, 0xC2, 0xBE, 0x4C, 0x9C}};

    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    // False for every text when the list is empty.
    [[nodiscard]] bool IsValueValid(std::u16string_view text) const override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    bool Validate(IValidationSink* pCore) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Enum"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeEnumData* GetEnumAttribData() const;
};
