// Simple or expert mode, and how a compile starts.
#pragma once

#include "SettingsBaseDlg.h"

class QRadioButton;

class CSettingsBuildDlg final : public CSettingsBaseDlg
{
public:
    explicit CSettingsBuildDlg(ICorvaneApplication& application);
    void Refresh() override;

private:
    [[nodiscard]] bool Write() override;

    QRadioButton* m_pSimple;
    QRadioButton* m_pExpert;
};
