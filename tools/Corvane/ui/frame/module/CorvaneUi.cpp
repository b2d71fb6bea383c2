#include "CorvaneUi.h"

#include "Context.h"
#include "RegisterTypeViews.h"
#include "Theme.h"
#include "ToolkitStart.h"
#include "TypeViewRegistry.h"

#include <QApplication>

CCorvaneUi::CCorvaneUi(std::unique_ptr<QApplication> toolkit, ICorvaneApplication& application)
    : m_pToolkit(std::move(toolkit)),
      m_Services(application.GetContext().m_Files, application.GetContext().m_Modules),
      m_Dialogs(application.GetContext().m_Files), m_Frame(application, m_Questions.GetPump(), m_Dialogs),
      m_Signals(m_Frame)
{
    // The main window decides; a record's window may be the last one that is seen.
    QApplication::setQuitOnLastWindowClosed(false);
    m_Frame.m_OnClosed = [this]
    {
        m_bClosed = true;
        QApplication::exit(0);
    };
    m_Frame.show();
}

CCorvaneUi::~CCorvaneUi() = default;

int CCorvaneUi::Run()
{
    return m_bClosed ? 0 : QApplication::exec();
}

extern "C" __attribute__((visibility("default"))) ICorvaneUi*
CreateCorvaneUi(ICorvaneApplication& application)
{
    std::unique_ptr<QApplication> toolkit = StartToolkit();
    if (!toolkit)
        return nullptr;
    CTheme::Get().Install();
    RegisterTypeViews(GetTypeViews());
    return new CCorvaneUi(std::move(toolkit), application);
}
