// A user who waits for a modal dialog: acts once on the first that comes up while the object lives, and must
// end it. When none comes, nothing happens, and nothing is left behind for a later one.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <functional>
#include <utility>

class CNextDialog
{
public:
    explicit CNextDialog(std::function<void(QDialog&)> act)
    {
        QObject::connect(&m_Timer, &QTimer::timeout, &m_Timer,
                         [this, act = std::move(act)]
                         {
                             auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                             if (dialog == nullptr)
                                 return;
                             m_Timer.stop();
                             m_bActed = true;
                             act(*dialog);
                         });
        m_Timer.start(0);
    }

    [[nodiscard]] bool HasActed() const { return m_bActed; }

private:
    QTimer m_Timer;
    bool m_bActed = false;
};
