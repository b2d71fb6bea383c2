// A StringID attribute: the identifier of a text in the game's string table, or "<none>".
//
// The table is only looked at, never written. Without it, or without the library that reads it, values are
// shown and saved as ever and nothing is checked.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"

// Stands for no identifier, in any case.
inline constexpr std::u16string_view kNoStringID = u"<none>";

class CCorvaneTypeStringID final : public CCorvaneType
{
public:
    using AttribData = CCorvaneSchemaAttribData;
    static constexpr CGuid kTypeGuid{
        {0x1C, 0xF6, 0x10, 0x81, 0x41, 0x87, 0x4E, 0x86, 0xB5, 0x43, 0xDD, 0x45, 0xB1, 0xF7, 0xE3, 0xBF}};

    // An empty default is "<none>"; no default is checked.
    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] bool SaveToDependency(IDependencySink& sink, std::uint32_t build) override;
    // An identifier that the table lacks is a warning. False, with nothing reported, when there is nothing to
    // check against.
    bool Validate(IValidationSink* pCore) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"StringID"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;
};
