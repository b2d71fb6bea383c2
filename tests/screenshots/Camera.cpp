#include "Camera.h"

#include <QApplication>
#include <QPixmap>
#include <QTest>
#include <QTimer>
#include <cstdio>

namespace
{
constexpr int kSettleMs = 60; // For timers that fill lists and trees.
}

void CCamera::Take(const QString& name, QWidget& window)
{
    window.show();
    QTest::qWait(kSettleMs);
    Save(name, window);
}

void CCamera::TakeModal(const QString& name, const std::function<void()>& open,
                        const std::function<void(QWidget&)>& prepare)
{
    if (RunAndTake(name, open, prepare))
        return;
    std::fprintf(stderr, "%s: no window opened\n", qPrintable(name));
    ++m_nFailures;
}

void CCamera::TakeEditor(const QString& name, QWidget& frame, const std::function<void()>& open)
{
    if (!RunAndTake(name, open, {}))
        Take(name, frame);
}

bool CCamera::RunAndTake(const QString& name, const std::function<void()>& open,
                         const std::function<void(QWidget&)>& prepare)
{
    bool taken = false;
    QTimer timer;
    timer.setInterval(kSettleMs);
    QObject::connect(&timer, &QTimer::timeout, &timer,
                     [&]
                     {
                         QWidget* window = QApplication::activeModalWidget();
                         if (window == nullptr)
                             return;
                         if (!taken && prepare)
                         {
                             prepare(*window);
                             QTest::qWait(kSettleMs);
                         }
                         if (!taken)
                             Save(name, *window);
                         taken = true;
                         window->close();
                     });
    timer.start();
    open();
    return taken;
}

void CCamera::Save(const QString& name, QWidget& window)
{
    const QString file = QStringLiteral("%1/%2.png").arg(m_sDirectory, name);
    if (window.grab().save(file))
        return;
    std::fprintf(stderr, "%s could not be written\n", qPrintable(file));
    ++m_nFailures;
}
