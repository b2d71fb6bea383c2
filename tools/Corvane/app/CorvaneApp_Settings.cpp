// The settings that the application keeps in the profile and their observers.
#include "CorvaneApp.h"

namespace
{
constexpr std::u16string_view kGeneral = u"General";
} // namespace

void CCorvaneApp::LoadGeneralSettings()
{
    m_Run.Set(APP_OPEN_LAST, m_Profile.GetInteger(kGeneral, u"OpenLast", 1) != 0);
    m_Run.Set(APP_EXPAND, m_Profile.GetInteger(kGeneral, u"Expand", 1) != 0);
}

void CCorvaneApp::LoadBuildSettings()
{
    m_Run.Set(APP_EXPERT, m_Profile.GetInteger(u"Build", u"User.Interface", 0) != 0);
    m_Manager.ChooseActiveBuild();
}

void CCorvaneApp::SaveSettings()
{
    m_Profile.SetString(kGeneral, u"BasePath", m_Run.GetBasePathWithSeparator());
    m_Profile.SetInteger(kGeneral, u"OpenLast", m_Run.Test(APP_OPEN_LAST) ? 1 : 0);
    m_Profile.SetInteger(kGeneral, u"Expand", m_Run.Test(APP_EXPAND) ? 1 : 0);
}

int CCorvaneApp::OnSettings(ESettingsEvent event)
{
    switch (event)
    {
    case ESettingsEvent::General:
        LoadGeneralSettings();
        break;
    case ESettingsEvent::Build:
        LoadBuildSettings();
        break;
    case ESettingsEvent::Presentation:
        m_Manager.Notify(
            CCorvaneEvent(ECorvaneEvent::AttributesChanged, static_cast<CCorvaneRecord*>(nullptr)));
        break;
    case ESettingsEvent::BasePath:
        break;
    }
    return 0;
}
