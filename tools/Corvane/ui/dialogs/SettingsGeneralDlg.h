// What the editor does at its start, with a new record, and in its trees.
#pragma once

#include "SettingsBaseDlg.h"

class CSettingsGeneralDlg final : public CSettingsBaseDlg
{
public:
    explicit CSettingsGeneralDlg(ICorvaneApplication& application);
    void Refresh() override;

private:
    [[nodiscard]] bool Write() override;

    QCheckBox* m_pReactivate; // A wish for once, not a setting.
};
