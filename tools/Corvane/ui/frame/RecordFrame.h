// One record in a window of its own. Goes with its record; several frames may show the same one.
#pragma once

#include "BaseFrame.h"

class CRecordFrame final : public CBaseFrame
{
    Q_OBJECT

public:
    // `document` shows the record already.
    CRecordFrame(CMainFrame& main, ICorvaneApplication& application, std::shared_ptr<CCorvaneDoc> document);
    ~CRecordFrame() override;

    [[nodiscard]] IEditor& GetEditor() override;
    void BringToFront();

protected:
    [[nodiscard]] std::span<const SHandler> GetHandlers() const override;
    [[nodiscard]] bool IsChecked(int id, bool& checked) const override;
    [[nodiscard]] QString MakeTitle() const override;
    void OnRecordGone() override { close(); }

    void closeEvent(QCloseEvent* event) override;

private:
    void OnValidateRecord();
};
