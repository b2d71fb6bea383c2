// The box of a long operation: a bar, a line of text and a button to cancel. Modeless, since the work runs on
// the same thread; CWindowPump lets only its own input through meanwhile.
#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

class CProgressDlg final : public QDialog
{
    Q_OBJECT

public:
    CProgressDlg(const QString& title, QWidget* parent);

    void SetText(const QString& text);
    // 0 to 100.
    void SetPercent(int percent);
    // From now on the work is asked to end.
    void Cancel();
    [[nodiscard]] bool IsCancelled() const { return m_bCancelled; }

    // Escape and the window's own button cancel; the box goes when the work ends.
    void reject() override { Cancel(); }

private:
    QLabel* m_pText;
    QProgressBar* m_pBar;
    QPushButton* m_pCancel;
    bool m_bCancelled = false;
};
