// Shows and edits a File: the path, and on the selected row a button that opens the file. Ctrl+Return does so
// too, also where the value must not be edited.
#pragma once

#include "CorvaneTypeView.h"
#include "file/CorvaneTypeFileSelectDlg.h"

class CCorvaneTypeFile;

class CCorvaneTypeFileView : public CCorvaneTypeView
{
public:
    // `executeIcon` is a name that lives as long as the process.
    CCorvaneTypeFileView(CCorvaneTypeFile& attrib, ITypeViewList& list, const char* executeIcon = "execute");

    [[nodiscard]] EViewUpdate OnKeyDown(QKeyEvent& event) override;
    [[nodiscard]] EViewUpdate OnLButtonDown(const QRect& rect, const QPoint& point,
                                            Qt::KeyboardModifiers modifiers) override;
    [[nodiscard]] EViewUpdate OnLButtonDblClk(const QRect& rect, const QPoint& point) override;
    [[nodiscard]] QString GetToolTip(const QRect& rect, const QPoint& point) const override;

protected:
    void DrawValue(QPainter& painter, const QRect& cell, int item) override;
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;

private:
    // The row shows the button: it is selected, and there is a file to open.
    [[nodiscard]] bool HasButton(int item) const;
    [[nodiscard]] bool IsOnButton(const QRect& rect, const QPoint& point) const;
    void ExecuteActive();

    CCorvaneTypeFile& m_Attrib;
    const char* m_sExecuteIcon;
    CCorvaneTypeFileSelectDlg m_Strip;
};
