// Which attributes of a record are available for a build, as the manager answers it, for one record after the
// other.
//
// The answer hangs on what all records of a schema share: each entry's name, build and data, and the entry
// before it. So it is kept for each place of the list, and the manager is asked again only where a record
// differs from the one before. A filter must not outlive one walk: it sees no change of a schema.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class CCorvaneAttrib;
class CCorvaneMgr;
class CCorvaneRecord;
class CCorvaneSchemaAttribData;

class CBuildFilter
{
public:
    // `manager` is not owned.
    CBuildFilter(const CCorvaneMgr& manager, std::uint32_t build) : m_Manager(manager), m_nBuild(build) {}

    // Makes `record` the one that is asked about.
    void TakeRecord(const CCorvaneRecord& record);
    // `index` is a place in the list that the record had when it was taken.
    [[nodiscard]] bool IsAvailable(std::size_t index) const { return m_Places[index].m_bAvailable; }

private:
    struct SPlace
    {
        const CCorvaneSchemaAttribData* m_pData = nullptr;
        // All attributes that stand for one entry share the object. Null where no other record can share.
        const std::u16string* m_pName = nullptr;
        std::uint32_t m_nBuild = 0;
        bool m_bAvailable = false;
    };

    static SPlace Describe(const CCorvaneRecord& record, const CCorvaneAttrib& attrib);

    const CCorvaneMgr& m_Manager;
    std::uint32_t m_nBuild;
    std::vector<SPlace> m_Places;
};
