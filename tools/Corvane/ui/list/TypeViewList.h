// The attribute list as the views of its rows see it: columns, the surface that editors lie on, and what a
// view asks of the list around it.
//
// All coordinates are logical pixels of the surface, whose top moves with the scroll position.
#pragma once

#include <QRect>

class CCorvaneTypeView;
class IEditorFrame;
class QWidget;

// The columns in their order.
enum EListColumn : int
{
    COLUMN_EXPAND,
    COLUMN_NAME,
    COLUMN_TYPE,
    COLUMN_BUILD,
    COLUMN_LOCK_USER,
    COLUMN_LOCK,
    COLUMN_REFERENCE,
    COLUMN_OVERRIDE,
    COLUMN_TODO,
    COLUMN_PLACEHOLDER,
    COLUMN_COUNT,
};

class ITypeViewList
{
public:
    [[nodiscard]] virtual IEditorFrame& GetFrame() = 0;
    // The parent of in-place editors.
    [[nodiscard]] virtual QWidget* GetViewport() = 0;
    // Left edge and width of a column; top and height mean nothing.
    [[nodiscard]] virtual QRect GetColumnRect(EListColumn column) const = 0;
    // The list has the keyboard, or an editor in it does.
    [[nodiscard]] virtual bool IsActive() const = 0;

    // Values or marks of the view's attribute changed: the row is measured again and drawn.
    virtual void OnViewChanged(CCorvaneTypeView& view) = 0;
    // Opens the editor of the selected row's active sub-item, when that can be edited.
    virtual void BeginEdit() = 0;
    // Ends an open edit; nothing happens while none is open.
    virtual void EndEdit(bool commit) = 0;

protected:
    ~ITypeViewList() = default;
};
