#include "SettingsSheet.h"

#include "CorvaneMgr.h"
#include "Editor.h"
#include "FormatText.h"
#include "Profile.h"
#include "RunState.h"
#include "SettingsBuildDlg.h"
#include "SettingsDatabaseDlg.h"
#include "SettingsGeneralDlg.h"
#include "UiModule.h"
#include "host/Questions.h"

CSettingsSheet::CSettingsSheet(ICorvaneApplication& application, QWidget* parent)
    : CPageSheet("SettingsSheet", tr("Settings"), parent), m_Application(application)
{
    AddPage(new CSettingsGeneralDlg(application), tr("General"));
    AddPage(new CSettingsDatabaseDlg(application), tr("Database"));
    AddPage(new CSettingsBuildDlg(application), tr("Build"));
    // A page shows what is true also after the database has gone or the build was chosen elsewhere.
    m_EventHandle = application.GetManager().AddObserver(
        [this](const CCorvaneEvent& event)
        {
            if (event.GetCode() == ECorvaneEvent::LoadEnd || event.GetCode() == ECorvaneEvent::CloseEnd ||
                event.GetCode() == ECorvaneEvent::ActiveBuildChanged)
                RefreshUnmodified();
            return 0;
        });
}

void CSettingsSheet::RefreshUnmodified()
{
    for (CSheetPage* page : GetPages())
        if (!page->IsModified())
            page->Refresh();
}

bool CSettingsSheet::Apply()
{
    const bool good = CPageSheet::Apply();
    // Expert mode opens fields of another page.
    RefreshUnmodified();
    const CCorvaneContext& context = m_Application.GetContext();
    if (!context.m_Profile.Save())
        context.m_Questions.Tell(u"Write Error",
                                 FormatText(u"The settings could not be written to the following file:\n\n%s",
                                            context.m_Profile.GetPath()),
                                 EIcon::Stop);
    return good;
}

void ShowSettings(IEditorFrame& frame)
{
    ICorvaneApplication& application = frame.GetEditor().GetApplication();
    const CStateScope running(application.GetContext().m_Run, APP_SETTINGS);
    CSettingsSheet sheet(application, frame.GetWindow());
    sheet.exec();
}
