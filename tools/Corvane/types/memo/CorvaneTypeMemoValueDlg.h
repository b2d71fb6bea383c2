// The editor of a Memo: plain text of several lines. Enter accepts as everywhere; with Ctrl, Shift or Alt it
// begins a new line.
#pragma once

#include "CorvaneTypeValueDlg.h"

class QPlainTextEdit;

class CCorvaneTypeMemoValueDlg final : public CCorvaneTypeValueDlg
{
public:
    // Typing ends at `maximum` units, a line's end counting as one; -1 for no limit. A longer text that is
    // there already stays.
    CCorvaneTypeMemoValueDlg(CCorvaneTypeView& view, int maximum, QWidget* parent);

    [[nodiscard]] QRect GetPlacement(const QRect& cell) const override;
    void TakeFocus(const QPoint& click) override;

protected:
    // Lines end in CR LF outside.
    void ShowText(const QString& text) override;
    [[nodiscard]] QString ReadText() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void TrimInsertion();

    QPlainTextEdit* m_pEdit;
    int m_nMaximum;
    int m_nInserted = 0; // What the last change put in, and where.
    int m_nPosition = 0;
    bool m_bShowing = false;
};
