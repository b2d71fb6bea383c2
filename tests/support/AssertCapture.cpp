#include "AssertCapture.h"

#include <algorithm>

CAssertCapture* CAssertCapture::s_pCurrent = nullptr;

CAssertCapture::CAssertCapture() : m_pOuter(s_pCurrent), m_pBefore(ZRSetAssertHandler(&Handle))
{
    s_pCurrent = this;
}

CAssertCapture::~CAssertCapture()
{
    ZRSetAssertHandler(m_pBefore);
    s_pCurrent = m_pOuter;
}

bool CAssertCapture::Has(const std::string& text) const
{
    return std::any_of(m_Entries.begin(), m_Entries.end(),
                       [&](const SEntry& e) { return e.expression == text || e.message == text; });
}

int CAssertCapture::Handle(const char* expression, const char*, int, const char*, const char* message)
{
    s_pCurrent->m_Entries.push_back({expression, message});
    return ZRASSERT_CONTINUE;
}
