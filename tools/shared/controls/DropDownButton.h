// A tool button with an arrow that opens a menu, which is filled anew each time that it opens.
#pragma once

#include <QToolButton>
#include <functional>

class CDropDownButton final : public QToolButton
{
public:
    // The button runs the action; a null action opens the menu from the whole button. `fill` gets an empty
    // menu.
    CDropDownButton(QAction* action, std::function<void(QMenu&)> fill, QWidget* parent = nullptr);
};
