// A page of the settings sheet: the switches that it shows are read when it opens and written when it is
// applied; then the settings observers are told, so that everybody reads them again.
#pragma once

#include "SettingsOptions.h"
#include "SheetPage.h"

#include <vector>

class ICorvaneApplication;
class QBoxLayout;
class QCheckBox;

class CSettingsBaseDlg : public CSheetPage
{
public:
    // After a refusal the page shows what is true now.
    [[nodiscard]] bool Apply() final;
    void Refresh() override;

protected:
    CSettingsBaseDlg(ICorvaneApplication& application, const char* objectName);

    // Writes what is no switch and tells the observers. The switches have been written.
    [[nodiscard]] virtual bool Write() = 0;

    QCheckBox& AddOption(QBoxLayout& layout, const SSettingsOption& option);
    // A group at the end of the page.
    [[nodiscard]] QBoxLayout& AddGroup(const QString& title);
    void AddStretch();
    [[nodiscard]] ICorvaneApplication& GetApplication() const { return m_Application; }

private:
    struct SOption
    {
        SSettingsOption m_Option;
        QCheckBox* m_pBox;
    };

    ICorvaneApplication& m_Application;
    QBoxLayout* m_pLayout;
    std::vector<SOption> m_Options;
};
