// The windows of a run, as the program knows them.
#pragma once

#include "MainFrame.h"
#include "QtFileDialogs.h"
#include "SignalCloser.h"
#include "UiModule.h"
#include "UiQuestions.h"
#include "UiServices.h"

#include <memory>

class QApplication;

class CCorvaneUi final : public ICorvaneUi
{
public:
    // Shows the main window at once, so that a load is seen.
    CCorvaneUi(std::unique_ptr<QApplication> toolkit, ICorvaneApplication& application);
    ~CCorvaneUi() override;
    CCorvaneUi(const CCorvaneUi&) = delete;
    CCorvaneUi& operator=(const CCorvaneUi&) = delete;

    [[nodiscard]] IQuestions& GetQuestions() override { return m_Questions; }
    [[nodiscard]] IServices& GetServices() override { return m_Services; }
    [[nodiscard]] int Run() override;
    void Release() override { delete this; }

private:
    std::unique_ptr<QApplication> m_pToolkit;
    CUiQuestions m_Questions;
    CUiServices m_Services;
    CQtFileDialogs m_Dialogs;
    CMainFrame m_Frame;
    CSignalCloser m_Signals;
    bool m_bClosed = false;
};
