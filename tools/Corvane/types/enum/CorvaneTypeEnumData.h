// Attribute data of an Enum: the words that a value may be, from the Data text itself or from an enum file
// that it names relative to the declaring file.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "enum/EnumState.h"
#include "enum/EnumValueList.h"

#include <memory>
#include <span>
#include <string_view>

class CCorvaneTypeEnumData final : public CCorvaneSchemaAttribData
{
public:
    // A file that cannot be read is told and leaves no words.
    explicit CCorvaneTypeEnumData(const SAttribDataConstruct& construct);
    ~CCorvaneTypeEnumData() override;

    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;

    // In the order of their declaration, with duplicates; lives as long as this object.
    [[nodiscard]] std::span<const std::u16string_view> GetValueList() const { return m_pValues->GetValues(); }
    // Whether the list holds the text, without regard to case.
    [[nodiscard]] bool IsValueValid(std::u16string_view text) const { return m_pValues->Contains(text); }

private:
    CCorvaneTypeEnumData(const CCorvaneTypeEnumData& other);
    void ReadEnumFile(const std::u16string& path);
    void Tell(std::u16string_view title, std::u16string_view format, const std::u16string& path) const;
    void TellMissingFile(const std::u16string& path) const;
    void Join();

    std::shared_ptr<const CEnumValueList> m_pValues;
    std::shared_ptr<CEnumState::DataList> m_pAll;
    CEnumState::DataList::iterator m_Place;
};
