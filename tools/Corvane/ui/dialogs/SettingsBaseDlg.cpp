#include "SettingsBaseDlg.h"

#include "Context.h"
#include "DialogParts.h"
#include "Profile.h"
#include "QtText.h"
#include "Theme.h"
#include "UiModule.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGroupBox>

bool ReadOption(const CProfile& profile, const SSettingsOption& option)
{
    return profile.GetInteger(option.m_sSection, option.m_sKey, option.m_nDefault) != 0;
}

void WriteOption(CProfile& profile, const SSettingsOption& option, bool on)
{
    profile.SetInteger(option.m_sSection, option.m_sKey, on ? 1 : 0);
}

CSettingsBaseDlg::CSettingsBaseDlg(ICorvaneApplication& application, const char* objectName)
    : m_Application(application), m_pLayout(new QVBoxLayout(this))
{
    setObjectName(QString::fromLatin1(objectName));
    m_pLayout->setContentsMargins(CTheme::kMargin, CTheme::kMargin, CTheme::kMargin, CTheme::kMargin);
    m_pLayout->setSpacing(CTheme::kSpacing);
}

bool CSettingsBaseDlg::Apply()
{
    CProfile& profile = m_Application.GetContext().m_Profile;
    for (const SOption& option : m_Options)
        WriteOption(profile, option.m_Option, option.m_pBox->isChecked());
    const bool good = Write();
    Refresh();
    return good;
}

void CSettingsBaseDlg::Refresh()
{
    const CProfile& profile = m_Application.GetContext().m_Profile;
    for (const SOption& option : m_Options)
        option.m_pBox->setChecked(ReadOption(profile, option.m_Option));
    ClearModified();
}

QCheckBox& CSettingsBaseDlg::AddOption(QBoxLayout& layout, const SSettingsOption& option)
{
    auto* box = new QCheckBox(ToQString(option.m_sLabel));
    SetNames(*box, option.m_sObjectName, box->text().remove(u'&'));
    connect(box, &QCheckBox::clicked, this, [this] { SetModified(); });
    layout.addWidget(box);
    m_Options.push_back({option, box});
    return *box;
}

QBoxLayout& CSettingsBaseDlg::AddGroup(const QString& title)
{
    auto* group = new QGroupBox(title);
    auto* layout = new QVBoxLayout(group);
    layout->setSpacing(CTheme::kSpacing);
    m_pLayout->addWidget(group);
    return *layout;
}

void CSettingsBaseDlg::AddStretch()
{
    m_pLayout->addStretch();
}
