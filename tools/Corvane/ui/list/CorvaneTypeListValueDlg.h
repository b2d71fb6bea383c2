// An editor that offers a list of words: opened over the cell, it drops below it. A click on a word or Enter
// takes it; a text that is none of them stays until one is chosen.
#pragma once

#include "CorvaneTypeValueDlg.h"

#include <QStringList>

class QListView;
class QStringListModel;

class CCorvaneTypeListValueDlg : public CCorvaneTypeValueDlg
{
public:
    CCorvaneTypeListValueDlg(CCorvaneTypeView& view, const QStringList& words, const QString& objectName,
                             QWidget* parent);

    // As high as ten words, inside the surface.
    [[nodiscard]] QRect GetPlacement(const QRect& cell) const override;
    void TakeFocus(const QPoint& click) override;

protected:
    // Words are compared without regard to case; the first one counts.
    void ShowText(const QString& text) override;
    [[nodiscard]] QString ReadText() const override;

private:
    QStringList m_Words;
    QString m_sOther; // What to give back while no word is chosen.
    QListView* m_pWords;
};
