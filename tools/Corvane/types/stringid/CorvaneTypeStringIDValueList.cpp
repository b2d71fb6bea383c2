#include "stringid/CorvaneTypeStringIDValueList.h"

#include "Unicode.h"
#include "stringid/GlossarState.h"

void CCorvaneTypeStringIDValueList::Update(CGlossarState& glossar, std::u16string_view prefix)
{
    constexpr std::size_t kUsualCount = 1000;
    constexpr std::size_t kUsualLength = 64;
    m_sNames.clear();
    m_Ends.clear();
    m_sNames.reserve(kUsualCount * kUsualLength);
    m_Ends.reserve(kUsualCount);
    glossar.ListStrings(ToNarrow(prefix).c_str(),
                        [this](const char* identifier)
                        {
                            m_sNames += identifier;
                            m_Ends.push_back(m_sNames.size());
                        });
}

std::u16string CCorvaneTypeStringIDValueList::GetIdentifier(std::size_t index) const
{
    const std::size_t begin = index == 0 ? 0 : m_Ends[index - 1];
    return ToWide(std::string_view(m_sNames).substr(begin, m_Ends[index] - begin));
}
