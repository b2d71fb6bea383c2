#include "CorvaneRef.h"

#include "zrassert.h"

std::int64_t CCorvaneRef::s_nLive = 0;

CCorvaneRef::~CCorvaneRef()
{
    ZRASSERT(m_nRef == 0);
    --s_nLive;
}

std::int32_t CCorvaneRef::Release()
{
    const std::int32_t count = --m_nRef;
    if (count == 0)
    {
        delete this;
        return 0;
    }
    if (count < 0)
        ZRASSERT_SITE("m_nRef > 0", "");
    return count;
}
