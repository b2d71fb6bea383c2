#include "sound/CorvaneTypeSound.h"

#include "CorvaneMgr.h"
#include "host/Services.h"

CRef<CCorvaneType> CCorvaneTypeSound::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeSound>(record);
}

bool CCorvaneTypeSound::Execute(std::u16string_view path)
{
    const CCorvaneTypeFileData* data = GetFileAttribData();
    return data && !path.empty() && data->GetManager().GetContext().m_Services.PlaySoundFile(path);
}
