// A Memo attribute: text with line ends, CR LF each, stored escaped on one line.
//
// What AddValue and SetValue take is the text as a person typed it. The inherited GetValue and InsertValue,
// a schema's default and the record file hold the stored form; only the typed reader and the outputs see
// real line ends. The escapes are those of EncodeMultiLine, with their known loss.
#pragma once

#include "CorvaneType.h"
#include "text/CorvaneTypeStringData.h"

#include <string>

class CCorvaneTypeMemo final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeStringData;
    static constexpr CGuid kTypeGuid{
        {0x18, 0x9A, 0xCC, 0x6A, 0x8B, 0xF5, 0x42, 0x6C, 0xB0, 0xC8, 0xE1, 0x80, 0x91, 0xC0, 0x4B, 0x2B}};

    [[nodiscard]] bool AddValue(std::u16string_view text) override;
    [[nodiscard]] bool SetValue(std::size_t index, std::u16string_view text) override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Memo"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    using CCorvaneType::GetValue;
    // The effective text with real line ends; an index past the end reads the default's first.
    void GetValue(std::size_t index, std::u16string& out) const;
    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeStringData* GetMemoAttribData() const;

private:
    // The same as a view: of the stored text while it holds no escape, else of `buffer`.
    [[nodiscard]] std::u16string_view GetUnescaped(std::size_t index, std::u16string& buffer) const;
};
