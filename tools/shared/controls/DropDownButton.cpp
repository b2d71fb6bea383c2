#include "DropDownButton.h"

#include <QMenu>

CDropDownButton::CDropDownButton(QAction* action, std::function<void(QMenu&)> fill, QWidget* parent)
    : QToolButton(parent)
{
    auto* menu = new QMenu(this);
    connect(menu, &QMenu::aboutToShow, this,
            [menu, fill = std::move(fill)]
            {
                menu->clear();
                fill(*menu);
            });
    setMenu(menu);
    setPopupMode(action == nullptr ? InstantPopup : MenuButtonPopup);
    setFocusPolicy(Qt::TabFocus);
    if (action != nullptr)
        setDefaultAction(action);
}
