// The editor of a Text: one line without a limit of its length. A text of many thousand units is edited in
// several rows, which are one line all the same.
#pragma once

#include "CorvaneTypeValueDlg.h"

class QPlainTextEdit;

class CCorvaneTypeStringValueDlg final : public CCorvaneTypeValueDlg
{
public:
    CCorvaneTypeStringValueDlg(CCorvaneTypeView& view, QWidget* parent);

    [[nodiscard]] QRect GetPlacement(const QRect& cell) const override;
    void TakeFocus(const QPoint& click) override;

protected:
    void ShowText(const QString& text) override;
    [[nodiscard]] QString ReadText() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddRows();

    QPlainTextEdit* m_pRows = nullptr; // In the place of the line while the text is long.
};
