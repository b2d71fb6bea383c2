#include "SettingsBuildDlg.h"

#include "Context.h"
#include "DialogParts.h"
#include "Profile.h"
#include "QtText.h"
#include "RunState.h"
#include "UiModule.h"
#include "WarningAdvancedSettingsDlg.h"

#include <QBoxLayout>
#include <QRadioButton>

CSettingsBuildDlg::CSettingsBuildDlg(ICorvaneApplication& application)
    : CSettingsBaseDlg(application, "SettingsBuildDlg"), m_pSimple(new QRadioButton(tr("&Simple Mode"))),
      m_pExpert(new QRadioButton(ToQString(kExpertMode.m_sLabel)))
{
    QBoxLayout& mode = AddGroup(tr("User Interface"));
    SetNames(*m_pSimple, "SimpleMode", tr("Simple Mode"));
    SetNames(*m_pExpert, kExpertMode.m_sObjectName, tr("Expert Mode"));
    for (QRadioButton* button : {m_pSimple, m_pExpert})
    {
        connect(button, &QRadioButton::clicked, this, [this] { SetModified(); });
        mode.addWidget(button);
    }
    AddOption(mode, kNoWarning);
    QBoxLayout& compile = AddGroup(tr("Compile"));
    AddOption(compile, kDefaultGameBuild);
    AddOption(compile, kForceSave);
    AddOption(compile, kDisplayModified);
    AddStretch();
    CSettingsBuildDlg::Refresh();
}

void CSettingsBuildDlg::Refresh()
{
    CSettingsBaseDlg::Refresh();
    const bool expert = GetApplication().GetContext().m_Run.Test(APP_EXPERT);
    m_pSimple->setChecked(!expert);
    m_pExpert->setChecked(expert);
}

bool CSettingsBuildDlg::Write()
{
    const CCorvaneContext& context = GetApplication().GetContext();
    const bool expert = m_pExpert->isChecked();
    const bool entering = expert && !context.m_Run.Test(APP_EXPERT);
    const bool refused = entering && !CWarningAdvancedSettingsDlg::Confirm(context.m_Profile, this);
    if (!refused)
        WriteOption(context.m_Profile, kExpertMode, expert);
    context.m_Run.m_Settings.Notify(ESettingsEvent::General, {});
    context.m_Run.m_Settings.Notify(ESettingsEvent::Build, {});
    return !refused;
}
