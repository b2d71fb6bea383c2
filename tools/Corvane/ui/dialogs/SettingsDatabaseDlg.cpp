#include "SettingsDatabaseDlg.h"

#include "CorvaneMgr.h"
#include "DialogParts.h"
#include "RunState.h"
#include "UiModule.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QFormLayout>

CSettingsDatabaseDlg::CSettingsDatabaseDlg(ICorvaneApplication& application)
    : CSettingsBaseDlg(application, "SettingsDatabaseDlg"), m_pGameBuild(new CBuildNumberEdit),
      m_pActiveBuild(new CBuildNumberEdit),
      m_pUseGameBuild(new QCheckBox(tr("Always &Use Game Build Number")))
{
    SetNames(*m_pGameBuild, "GameBuild", tr("Game Build Number"));
    SetNames(*m_pActiveBuild, "ActiveBuild", tr("Active Build Number"));
    SetNames(*m_pUseGameBuild, "UseGameBuild", tr("Always Use Game Build Number"));
    // The number is the game's own; it can be copied.
    m_pGameBuild->setReadOnly(true);
    auto* form = new QFormLayout;
    form->addRow(tr("&Game Build Number:"), m_pGameBuild);
    form->addRow(tr("Active &Build Number:"), m_pActiveBuild);
    QBoxLayout& builds = AddGroup(tr("Builds"));
    builds.addLayout(form);
    builds.addWidget(m_pUseGameBuild);
    AddStretch();
    connect(m_pActiveBuild, &QLineEdit::textEdited, this, [this] { SetModified(); });
    connect(m_pUseGameBuild, &QCheckBox::clicked, this, &CSettingsDatabaseDlg::UseGameBuild);
    CSettingsDatabaseDlg::Refresh();
}

CCorvaneMgr& CSettingsDatabaseDlg::GetManager() const
{
    return GetApplication().GetManager();
}

void CSettingsDatabaseDlg::Refresh()
{
    CSettingsBaseDlg::Refresh();
    CCorvaneMgr& manager = GetManager();
    const bool expert = GetApplication().GetContext().m_Run.Test(APP_EXPERT);
    setEnabled(manager.IsOpen());
    m_pGameBuild->SetBuild(manager.GetBuildNumber());
    m_pGameBuild->setEnabled(expert);
    m_pUseGameBuild->setChecked(!expert || manager.IsGameBuildUsed());
    m_pUseGameBuild->setEnabled(expert);
    m_pActiveBuild->SetBuild(manager.GetActiveBuild());
    UpdateActiveBuild();
}

// Kept at once, as its effect on the field beside it shows at once.
void CSettingsDatabaseDlg::UseGameBuild(bool use)
{
    GetManager().UseGameBuild(use);
    UpdateActiveBuild();
    SetModified();
}

void CSettingsDatabaseDlg::UpdateActiveBuild()
{
    const bool game = m_pUseGameBuild->isChecked();
    if (game)
        m_pActiveBuild->setText(m_pGameBuild->text());
    m_pActiveBuild->setEnabled(!game);
}

bool CSettingsDatabaseDlg::Write()
{
    CCorvaneMgr& manager = GetManager();
    if (!manager.IsOpen())
        return true;
    manager.SetActiveBuild(m_pActiveBuild->GetBuild());
    manager.WriteBuildSettings();
    GetApplication().GetContext().m_Run.m_Settings.Notify(ESettingsEvent::General, {});
    GetApplication().GetContext().m_Run.m_Settings.Notify(ESettingsEvent::Build, {});
    return true;
}
