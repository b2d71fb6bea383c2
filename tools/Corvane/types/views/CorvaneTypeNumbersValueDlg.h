// The editor of a type whose values are a few numbers: a field for each, in equal columns with a label. A
// click that opens the editor decides which field gets the caret.
#pragma once

#include "CorvaneTypeValueDlg.h"
#include "NumberEdit.h"

#include <vector>

class CCorvaneTypeNumbersValueDlg : public CCorvaneTypeValueDlg
{
public:
    void TakeFocus(const QPoint& click) override;

protected:
    using CCorvaneTypeValueDlg::CCorvaneTypeValueDlg;

    // `label` is the field's accessible name too. A hidden field keeps its number and takes no room.
    void AddField(const QString& name, const QString& label, FNumberRule rule, bool shown = true);
    [[nodiscard]] CNumberEdit& GetField(std::size_t index) const { return *m_Fields[index]; }

    void resizeEvent(QResizeEvent* event) override;

private:
    std::vector<CNumberEdit*> m_Fields;
    std::vector<QWidget*> m_Columns; // Of the fields that show.
};
