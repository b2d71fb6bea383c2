// Work on a thread of its own, under a dialog that keeps the user from changing what the work reads.
//
// The work is a worker in the sense of compile/Worker.h: it only reads the database and talks to the dialog
// through its events alone. Cancel is a wish: the dialog stays until the worker has heard of it.
#pragma once

#include "Worker.h"

#include <QDialog>
#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;

class CProgressModalDlg final : public QDialog
{
public:
    // `pCallback` must not be null.
    CProgressModalDlg(const QString& title, FWorker pCallback, QWidget* parent);
    ~CProgressModalDlg() override;

    // Shows the dialog and returns the worker's result when that has ended; kResultNoParameters without a
    // worker. What the worker throws arrives here.
    [[nodiscard]] std::int32_t Run();
    void reject() override;

private:
    class CEvents;
    void ShowState();

    FWorker m_pCallback;
    QLabel* m_pStatus;
    QProgressBar* m_pBar;
    QPushButton* m_pCancel;
    std::unique_ptr<CEvents> m_pEvents;
};

// Runs the core's workers under such dialogs.
class CModalWorkerRunner final : public IWorkerRunner
{
public:
    // `parent` of the dialogs is not owned and outlives the runner.
    explicit CModalWorkerRunner(QWidget* parent) : m_pParent(parent) {}
    [[nodiscard]] std::int32_t Run(std::u16string_view title, const FWorker& worker) override;

private:
    QWidget* m_pParent;
};
