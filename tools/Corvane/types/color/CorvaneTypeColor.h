// A Color attribute: alpha, red, green and blue.
//
// A part of a default above 255 becomes 255 without a report; stored values are never checked.
#pragma once

#include "CorvaneType.h"
#include "color/ColorText.h"
#include "color/CorvaneTypeColorData.h"

#include <cstddef>
#include <cstdint>

class CCorvaneTypeColor final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeColorData;
    static constexpr CGuid kTypeGuid{
        {0x76, 0xA3, 0x05, 0xF5, 0xBD, 0x52, 0x49, 0x75, 0xB1, 0xD5, 0xB4, 0xEC, 0x7B, 0x78, 0x2E, 0xBB}};

    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Color"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // The effective value, packed as ColorText.h tells; an index past the end reads the default's first.
    [[nodiscard]] std::uint32_t GetColor(std::size_t index) const;
    // False for an index past the end.
    [[nodiscard]] bool SetColor(std::size_t index, std::uint32_t color);
    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeColorData* GetColorAttribData() const;

private:
    // That of the data, or of a schema that names none.
    [[nodiscard]] EColorEncoding GetEncoding() const;
};
