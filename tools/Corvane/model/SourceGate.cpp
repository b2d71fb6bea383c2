#include "SourceGate.h"

void CSourceGate::Configure(const CGuid& provider, std::u16string_view project)
{
    m_Provider = provider;
    m_sProject = project;
}
