#include "BuildFilter.h"

#include "CorvaneMgr.h"

void CBuildFilter::TakeRecord(const CCorvaneRecord& record)
{
    const auto list = record.GetAttributeList();
    m_Places.resize(list.size());
    // The entry before has a say too, so that the answer behind a difference is asked for again.
    bool beforeDiffers = false;
    for (std::size_t i = 0; i < list.size(); ++i)
    {
        SPlace& known = m_Places[i];
        SPlace place = Describe(record, *list[i]);
        const bool differs = place.m_pName == nullptr || place.m_pName != known.m_pName ||
                             place.m_pData != known.m_pData || place.m_nBuild != known.m_nBuild;
        if (differs || beforeDiffers)
        {
            place.m_bAvailable = m_Manager.IsAttributeAvailableForBuild(list[i].Get(), m_nBuild);
            known = place;
        }
        beforeDiffers = differs;
    }
}

CBuildFilter::SPlace CBuildFilter::Describe(const CCorvaneRecord& record, const CCorvaneAttrib& attrib)
{
    SPlace place;
    place.m_pData = attrib.GetAttribData();
    place.m_nBuild = attrib.GetBuild();
    if (attrib.GetParentRecord() == &record && attrib.GetParentAttrib() == nullptr)
        place.m_pName = &attrib.GetName();
    return place;
}
