// The warning ahead of what can do harm in the hands of somebody who does not know the game's builds.
#pragma once

#include <QDialog>

class CProfile;
class QCheckBox;

class CWarningAdvancedSettingsDlg final : public QDialog
{
public:
    // Asks, unless the user has wished not to be warned again. True for OK. `profile` is not owned.
    [[nodiscard]] static bool Confirm(CProfile& profile, QWidget* parent);

    CWarningAdvancedSettingsDlg(CProfile& profile, QWidget* parent);
    // Both OK and Cancel keep the wish in the profile.
    void done(int result) override;

private:
    CProfile& m_Profile;
    QCheckBox* m_pNeverAgain;
};
