// A type whose values are record paths and that gives a creator library the handles which the running compile
// keeps. It stands for any type that refers to records.
#pragma once

#include "CorvaneType.h"

class CTestLink final : public CCorvaneType
{
public:
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"TestLink"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override
    {
        return CloneAs<CTestLink>(record);
    }
    [[nodiscard]] const CGuid& GetTypeGuid() const override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr*, CreatorHandle, std::u16string_view,
                                      std::u16string_view) override
    {
        return true;
    }
};
