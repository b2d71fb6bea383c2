// An Effect attribute: the name of a visual effect, which one of the project's effect files must list. The
// empty text is no effect and reads as "<none>".
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"

class CEffectList;

class CCorvaneTypeEffect final : public CCorvaneType
{
public:
    using AttribData = CCorvaneSchemaAttribData;
    static constexpr CGuid kTypeGuid{
        {0xA7, 0x42, 0xA3, 0x56, 0xDF, 0x50, 0x49, 0x32, 0xB6, 0x4E, 0x00, 0xFD, 0x1D, 0x03, 0x6F, 0x9A}};

    // A default that is not listed is reported and becomes "<none>".
    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    // "<none>" is stored as the empty text.
    [[nodiscard]] bool SetValue(std::size_t index, std::u16string_view text) override;
    [[nodiscard]] std::u16string_view GetValue(std::size_t index) const override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] bool SaveToDependency(IDependencySink& sink, std::uint32_t build) override;
    bool Validate(IValidationSink* pCore) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Effect"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // What the values may be. Null only for an attribute that was never initialised.
    [[nodiscard]] CEffectList* GetEffectList() const;

private:
    // The value as the outputs have it: empty for no effect.
    [[nodiscard]] std::u16string_view GetOutputText(std::size_t index) const;
};
