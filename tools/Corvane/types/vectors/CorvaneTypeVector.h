// A Vector2, Vector3 or Vector4 attribute: one class for the three words, which differ in how many of the
// four stored numbers count.
//
// A default is completed to four numbers and never reported, nor is a stored value.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "vectors/VectorText.h"

#include <cstddef>
#include <cstdint>

// None is that of an object which still waits for its Assign.
enum class EVectorDimension : std::uint8_t
{
    None = 0,
    Two = 1,
    Three = 2,
    Four = 3,
};

class CCorvaneTypeVector final : public CCorvaneType
{
public:
    using AttribData = CCorvaneSchemaAttribData;
    static constexpr CGuid kTypeGuid{
        {0x24, 0x48, 0xC6, 0x5E, 0xB2, 0x46, 0x45, 0x9C, 0xB0, 0x59, 0xBE, 0x7F, 0xC6, 0xD6, 0x4C, 0x62}};

    explicit CCorvaneTypeVector(EVectorDimension dimension = EVectorDimension::None) : m_nDimension(dimension)
    {
    }

    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    // Both outputs refuse an attribute without a dimension.
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Vector"; }
    [[nodiscard]] std::u16string_view GetSchemaTypeName() const override;
    void Assign(const CCorvaneAttrib& source) override;
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    [[nodiscard]] EVectorDimension GetDimension() const { return m_nDimension; }
    // The effective value; an index past the end reads the default's first.
    [[nodiscard]] VectorValue GetVector(std::size_t index) const;
    // False for an index past the end. All four numbers are stored.
    [[nodiscard]] bool SetVector(std::size_t index, const VectorValue& value);

private:
    EVectorDimension m_nDimension;
};
