// Signals that ask the program to end become a wish to close the main window, so that unsaved work is asked
// about.
#pragma once

#include <QObject>

class QSocketNotifier;
class QWidget;

class CSignalCloser final : public QObject
{
public:
    // One in a process. `window` is not owned.
    explicit CSignalCloser(QWidget& window);
    ~CSignalCloser() override;
    CSignalCloser(const CSignalCloser&) = delete;
    CSignalCloser& operator=(const CSignalCloser&) = delete;

private:
    QSocketNotifier* m_pNotifier = nullptr;
};
