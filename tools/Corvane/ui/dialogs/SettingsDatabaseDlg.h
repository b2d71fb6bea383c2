// The build numbers of the open database. They are the user's choice in expert mode only.
#pragma once

#include "SettingsBaseDlg.h"

class CBuildNumberEdit;
class CCorvaneMgr;

class CSettingsDatabaseDlg final : public CSettingsBaseDlg
{
public:
    explicit CSettingsDatabaseDlg(ICorvaneApplication& application);
    void Refresh() override;

private:
    [[nodiscard]] bool Write() override;
    [[nodiscard]] CCorvaneMgr& GetManager() const;
    void UseGameBuild(bool use);
    void UpdateActiveBuild();

    CBuildNumberEdit* m_pGameBuild;
    CBuildNumberEdit* m_pActiveBuild;
    QCheckBox* m_pUseGameBuild;
};
