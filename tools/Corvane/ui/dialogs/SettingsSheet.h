// The settings of the editor and of the open database, a page each.
#pragma once

#include "ObserverList.h"
#include "PageSheet.h"

class ICorvaneApplication;
class IEditorFrame;

class CSettingsSheet final : public CPageSheet
{
public:
    CSettingsSheet(ICorvaneApplication& application, QWidget* parent);

private:
    bool Apply() override;
    void RefreshUnmodified();

    ICorvaneApplication& m_Application;
    CObserverHandle m_EventHandle;
};

void ShowSettings(IEditorFrame& frame);
