#include "FindingPlace.h"

#include "CorvaneMgr.h"
#include "CorvaneType.h"

SFindingPlace DescribePlace(const CCorvaneAttrib* attrib)
{
    SFindingPlace place;
    if (!attrib)
        return place;
    if (const auto* type = dynamic_cast<const CCorvaneType*>(attrib))
        place.m_sTypeName = type->GetTypeName();
    place.m_sAttribute = attrib->GetName();
    if (const CCorvaneRecord* record = attrib->GetOwnerRecord())
    {
        record->GetManager().GetRecordDisplayPath(record, place.m_sRecord);
        place.m_sFile = record->GetFile();
    }
    return place;
}
