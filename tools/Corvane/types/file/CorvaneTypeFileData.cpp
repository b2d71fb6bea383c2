#include "file/CorvaneTypeFileData.h"

CRef<CCorvaneSchemaAttribData> CCorvaneTypeFileData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeFileData(*this));
}
