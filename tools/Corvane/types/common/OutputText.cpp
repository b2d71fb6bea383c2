#include "common/OutputText.h"

#include "CorvaneSchemaAttribData.h"
#include "Unicode.h"

#include <algorithm>
#include <cstdint>

const char* CNarrowText::Convert(std::u16string_view text)
{
    if (ConvertShort(text))
        return m_Short;
    ToNarrow(text, m_sLong);
    return m_sLong.c_str();
}

bool CNarrowText::ConvertShort(std::u16string_view text)
{
    if (text.size() > kShortUnits)
        return false;
    char16_t seen = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        seen = static_cast<char16_t>(seen | text[i]);
        m_Short[i] = static_cast<char>(text[i]);
    }
    m_Short[text.size()] = 0;
    return seen < 0x80;
}

const char16_t* CWideText::Convert(std::u16string_view text)
{
    if (text.size() > kShortUnits)
    {
        m_sLong.assign(text);
        return m_sLong.c_str();
    }
    *std::copy(text.begin(), text.end(), m_Short) = 0;
    return m_Short;
}

bool IsWideText(const CCorvaneSchemaAttribData* data)
{
    return data && data->TestFlag(ATTRIB_FLAG_UNICODE);
}

void CTextSender::Send(IDatabaseCreatorMgr& creator, CreatorHandle attribute, std::size_t index,
                       std::u16string_view text)
{
    const auto place = static_cast<std::int32_t>(index);
    if (m_bWide)
        creator.SetWideText(attribute, place, m_Wide.Convert(text));
    else
        creator.SetText(attribute, place, m_Narrow.Convert(text));
}
