#include "WindowPump.h"

#include "ProgressDlg.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace
{
constexpr qint64 kBetweenRuns = 15;    // Milliseconds: a screen shows no more.
constexpr qint64 kBeforeShowing = 300; // Work that ends sooner shows no box.

bool IsInput(QEvent::Type type)
{
    switch (type)
    {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::NonClientAreaMouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}
} // namespace

CWindowPump::CWindowPump()
{
    QCoreApplication::instance()->installEventFilter(this);
}

void CWindowPump::Add(CProgressDlg& box)
{
    if (m_Boxes.empty())
        m_SinceBegin.start();
    m_Boxes.push_back(&box);
    connect(&box, &QObject::destroyed, this, [this, gone = &box] { std::erase(m_Boxes, gone); });
}

void CWindowPump::Run()
{
    if (m_bRunning || (m_Since.isValid() && m_Since.elapsed() < kBetweenRuns))
        return;
    if (!m_Boxes.empty() && !m_Boxes.back()->isVisible() && m_SinceBegin.elapsed() >= kBeforeShowing)
        m_Boxes.back()->show();
    m_pModalBefore = QApplication::activeModalWidget();
    m_bRunning = true;
    QCoreApplication::processEvents();
    m_bRunning = false;
    m_Since.start();
}

void CWindowPump::Cancel()
{
    for (CProgressDlg* box : m_Boxes)
        box->Cancel();
}

bool CWindowPump::eventFilter(QObject* receiver, QEvent* event)
{
    if (!m_bRunning || IsOfBox(receiver))
        return false;
    // A modal dialog that a timer opened during this run has a loop of its own, and keeps input from all
    // others.
    if (QApplication::activeModalWidget() != m_pModalBefore)
        return false;
    const QEvent::Type type = event->type();
    // Only the user's own wish: windows whose object has gone close themselves.
    const bool closes =
        type == QEvent::Quit || (type == QEvent::Close && event->spontaneous() && receiver->isWindowType());
    if (closes)
    {
        Cancel();
        event->ignore();
    }
    return closes || IsInput(type);
}

bool CWindowPump::IsOfBox(const QObject* receiver) const
{
    const auto belongs = [receiver](const CProgressDlg* box)
    {
        const auto* widget = qobject_cast<const QWidget*>(receiver);
        return widget != nullptr ? widget->window() == box
                                 : receiver == box->windowHandle() || receiver->parent() == box;
    };
    return std::any_of(m_Boxes.begin(), m_Boxes.end(), belongs);
}
