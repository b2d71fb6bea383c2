// Attribute data of a Struct: its struct file, named by the Data text relative to the folder of the declaring
// schema or struct file.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "MemberStore.h"
#include "struct/StructFile.h"

class CCorvaneTypeStructData final : public CCorvaneSchemaAttribData, public IMemberStore
{
public:
    explicit CCorvaneTypeStructData(const SAttribDataConstruct& construct);

    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;
    [[nodiscard]] IMemberStore* GetMemberStore() override { return this; }
    // Null when the file could not be read; such a struct has no members.
    [[nodiscard]] CStructFile* GetStructFile() const { return m_pStructFile.Get(); }
    // Brings every live attribute of the file in line with its members.
    void SynchronizeStructAttributes();

    [[nodiscard]] std::size_t GetMemberCount() const override;
    [[nodiscard]] CCorvaneSchemaAttribData& GetMemberData(std::size_t index) const override;
    [[nodiscard]] const std::u16string& GetFile() const override;
    void RemoveMember(std::size_t index) override;

private:
    [[nodiscard]] CRef<CStructFile> OpenFile(const SAttribDataConstruct& construct) const;

    CRef<CStructFile> m_pStructFile;
};
