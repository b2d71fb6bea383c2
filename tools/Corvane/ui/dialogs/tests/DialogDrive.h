// A user for modal dialogs: presses, types and chooses by the names of the controls.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

template <class T> T& GetChild(const QWidget& dialog, const char* name)
{
    T* child = dialog.findChild<T*>(QString::fromLatin1(name));
    if (child == nullptr)
        ADD_FAILURE() << "There is no " << name;
    return *child;
}

inline void Press(const QWidget& dialog, const char* name)
{
    auto& button = GetChild<QAbstractButton>(dialog, name);
    EXPECT_TRUE(button.isEnabled() && button.isVisible()) << name;
    button.click();
}

// Runs the dialog; `user` acts as soon as it is there and must end it.
inline int RunModal(QDialog& dialog, const std::function<void()>& user)
{
    QTimer::singleShot(0, &dialog, user);
    return dialog.exec();
}
