// What the Enum attributes of one database share: the files that name their values, each read once however
// many attributes name it, and the list of all Enum attribute data, which a search over enumerations shows.
#pragma once

#include "TypeState.h"
#include "enum/EnumFileReader.h"

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

class CCorvaneMgr;
class CCorvaneTypeEnumData;
class IFileSystem;

class CEnumState final : public ITypeState
{
public:
    using DataList = std::list<const CCorvaneTypeEnumData*>;

    explicit CEnumState(CCorvaneMgr& manager);

    // The values of an enum file, named by its canonical path. They are shared as long as any attribute holds
    // them and the file does not change. A failure leaves `values` as they were.
    [[nodiscard]] CFileError GetFileValues(const std::u16string& path,
                                           std::shared_ptr<const CEnumValueList>& values);
    // In the order of construction. Attribute data may outlive the database, and leaves by the list that it
    // holds.
    [[nodiscard]] const std::shared_ptr<DataList>& GetData() const { return m_pData; }

private:
    struct SSharedFile
    {
        std::weak_ptr<const CEnumValueList> m_pValues;
        SFileStamp m_Stamp;
    };

    IFileSystem& m_Files;
    std::unordered_map<std::u16string, SSharedFile> m_Shared;
    std::shared_ptr<DataList> m_pData = std::make_shared<DataList>();
};
