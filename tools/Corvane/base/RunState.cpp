#include "RunState.h"

#include "Path.h"

void CRunState::SetBasePath(std::u16string_view path)
{
    const bool hasSlash = path.find(u'/') != std::u16string_view::npos;
    m_sBasePath = WithoutLastSeparator(path);
    m_sBasePathWithSeparator = m_sBasePath;
    if (!path.empty())
        m_sBasePathWithSeparator += hasSlash ? u'/' : u'\\';
    m_Settings.Notify(ESettingsEvent::BasePath, m_sBasePathWithSeparator);
}
