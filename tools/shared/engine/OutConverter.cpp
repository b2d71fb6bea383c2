#include "OutConverter.h"

#include "zrassert.h"

#include <cstring>
#include <limits>

bool CZROutConverter::WriteString(const char* text)
{
    ZRASSERT(text);
    const std::size_t length = text != nullptr ? std::strlen(text) : 0;
    if (length > std::numeric_limits<std::uint16_t>::max())
    {
        ZRASSERT_FORCED("WriteString : The text is too long for its length field");
        return false;
    }
    return WriteUInt16(static_cast<std::uint16_t>(length)) && Write(text, length);
}
