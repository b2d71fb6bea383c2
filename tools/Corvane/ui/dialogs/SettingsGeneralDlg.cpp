#include "SettingsGeneralDlg.h"

#include "Context.h"
#include "DialogParts.h"
#include "Profile.h"
#include "RunState.h"
#include "UiModule.h"

#include <QBoxLayout>
#include <QCheckBox>

CSettingsGeneralDlg::CSettingsGeneralDlg(ICorvaneApplication& application)
    : CSettingsBaseDlg(application, "SettingsGeneralDlg"),
      m_pReactivate(new QCheckBox(tr("Re-activate source control &prompt messages")))
{
    QBoxLayout& general = AddGroup(tr("Databases and Records"));
    AddOption(general, kOpenLast);
    AddOption(general, kExpand);
    QBoxLayout& tree = AddGroup(tr("Tree"));
    AddOption(tree, kSingleClickActivate);
    AddOption(tree, kSingleClickExpand);
    AddOption(tree, kTrackSelect);
    QBoxLayout& control = AddGroup(tr("Source Control"));
    SetNames(*m_pReactivate, "Reactivate", m_pReactivate->text().remove(u'&'));
    connect(m_pReactivate, &QCheckBox::clicked, this, [this] { SetModified(); });
    control.addWidget(m_pReactivate);
    AddStretch();
    CSettingsBaseDlg::Refresh();
}

void CSettingsGeneralDlg::Refresh()
{
    CSettingsBaseDlg::Refresh();
    m_pReactivate->setChecked(false);
}

bool CSettingsGeneralDlg::Write()
{
    const CCorvaneContext& context = GetApplication().GetContext();
    if (m_pReactivate->isChecked())
    {
        context.m_Profile.SetInteger(u"Source Control", u"Synchronize.Dialog.Ask", 0);
        context.m_Profile.SetInteger(u"Source Control", u"WorkOffline.Dialog.ForceAsk", 1);
    }
    context.m_Run.m_Settings.Notify(ESettingsEvent::General, {});
    return true;
}
