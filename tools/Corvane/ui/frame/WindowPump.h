// Lets the windows breathe while the core works on the same thread.
//
// Everything is painted and every timer runs, but the user's input reaches the progress box alone: no command
// may start inside another one. A wish to close a window, or to end the program, asks the work to cancel.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <vector>

class CProgressDlg;
class QWidget;

class CWindowPump final : public QObject
{
    Q_OBJECT

public:
    CWindowPump();

    // One more box of work that runs, as long as it lives.
    void Add(CProgressDlg& box);
    // Work that shows its progress is under way.
    [[nodiscard]] bool IsWorking() const { return !m_Boxes.empty(); }
    // The events that wait. Called often: does nothing as long as the last call is only just over.
    void Run();
    // Asks all work to end.
    void Cancel();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    [[nodiscard]] bool IsOfBox(const QObject* receiver) const;

    std::vector<CProgressDlg*> m_Boxes; // The innermost last.
    QElapsedTimer m_Since;              // The last run.
    QElapsedTimer m_SinceBegin;         // The outermost box was added.
    QWidget* m_pModalBefore = nullptr;  // Only compared.
    bool m_bRunning = false;
};
