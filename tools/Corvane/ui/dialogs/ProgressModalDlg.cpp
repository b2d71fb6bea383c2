#include "ProgressModalDlg.h"

#include "DialogParts.h"
#include "QtText.h"
#include "zrassert.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <atomic>
#include <exception>
#include <mutex>
#include <string>
#include <thread>

// The worker's side of the dialog. Only the last text and position are kept, and at most one message is on
// its way, so that a fast worker cannot flood the window.
class CProgressModalDlg::CEvents final : public IWorkerEvents
{
public:
    explicit CEvents(CProgressModalDlg& dialog) : m_Dialog(dialog) {}
    ~CEvents() override
    {
        Cancel();
        Join();
    }

    // The worker's thread.
    void SetStatus(std::u16string_view text) override
    {
        {
            const std::lock_guard lock(m_Mutex);
            m_sStatus = text;
        }
        Post();
    }
    void SetPosition(int percent) override
    {
        if (m_nPercent.exchange(percent) != percent)
            Post();
    }
    [[nodiscard]] bool IsCancelled() override { return m_bCancelled.load(std::memory_order_relaxed); }

    // The main thread.
    void Start(const FWorker& worker)
    {
        m_Thread = std::thread([this, &worker] { Work(worker); });
    }
    void Cancel() { m_bCancelled.store(true, std::memory_order_relaxed); }
    void Join()
    {
        if (m_Thread.joinable())
            m_Thread.join();
    }
    // What was told since; clears the way for the next message.
    void Take(std::u16string& status, int& percent)
    {
        m_bPosted.store(false);
        const std::lock_guard lock(m_Mutex);
        status = m_sStatus;
        percent = m_nPercent.load();
    }
    // After the end.
    [[nodiscard]] std::int32_t GetResult() const
    {
        if (m_pThrown)
            std::rethrow_exception(m_pThrown);
        return m_nResult;
    }

private:
    void Work(const FWorker& worker)
    {
        try
        {
            m_nResult = worker(*this);
        }
        catch (...)
        {
            m_pThrown = std::current_exception();
        }
        QMetaObject::invokeMethod(
            &m_Dialog, [dialog = &m_Dialog] { dialog->accept(); }, Qt::QueuedConnection);
    }
    void Post()
    {
        if (!m_bPosted.exchange(true))
            QMetaObject::invokeMethod(
                &m_Dialog, [dialog = &m_Dialog] { dialog->ShowState(); }, Qt::QueuedConnection);
    }

    CProgressModalDlg& m_Dialog;
    std::mutex m_Mutex;
    std::u16string m_sStatus = u"Initializing...";
    std::atomic<int> m_nPercent{0};
    std::atomic<bool> m_bPosted{false};
    std::atomic<bool> m_bCancelled{false};
    std::int32_t m_nResult = 0;
    std::exception_ptr m_pThrown;
    std::thread m_Thread;
};

namespace
{
constexpr int kStatusWidth = 360;
} // namespace

CProgressModalDlg::CProgressModalDlg(const QString& title, FWorker pCallback, QWidget* parent)
    : QDialog(parent), m_pCallback(std::move(pCallback)), m_pStatus(new QLabel(tr("Initializing..."))),
      m_pBar(new QProgressBar), m_pEvents(std::make_unique<CEvents>(*this))
{
    setObjectName(QStringLiteral("ProgressModalDlg"));
    setWindowTitle(title.isEmpty() ? tr("Performing operation...") : title);
    QBoxLayout& layout = MakeDialogLayout(*this);
    SetNames(*m_pStatus, "Status", tr("Status"));
    m_pStatus->setTextFormat(Qt::PlainText);
    m_pStatus->setMinimumWidth(kStatusWidth);
    layout.addWidget(m_pStatus);
    SetNames(*m_pBar, "Progress", tr("Progress"));
    m_pBar->setRange(0, 100);
    m_pBar->setValue(0);
    layout.addWidget(m_pBar);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    m_pCancel = buttons->button(QDialogButtonBox::Cancel);
    SetNames(*m_pCancel, "Cancel", tr("Cancel"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout.addWidget(buttons);
    layout.setSizeConstraint(QLayout::SetFixedSize);
}

CProgressModalDlg::~CProgressModalDlg() = default;

std::int32_t CProgressModalDlg::Run()
{
    ZRASSERT(m_pCallback);
    if (!m_pCallback)
        return kResultNoParameters;
    m_pEvents->Start(m_pCallback);
    exec();
    m_pEvents->Join();
    return m_pEvents->GetResult();
}

void CProgressModalDlg::ShowState()
{
    std::u16string status;
    int percent = 0;
    m_pEvents->Take(status, percent);
    m_pStatus->setText(
        m_pStatus->fontMetrics().elidedText(MakeCellText(status), Qt::ElideMiddle, kStatusWidth));
    m_pBar->setValue(percent);
}

// Also Escape and the window's own close button.
void CProgressModalDlg::reject()
{
    m_pEvents->Cancel();
    m_pCancel->setEnabled(false);
}

std::int32_t CModalWorkerRunner::Run(std::u16string_view title, const FWorker& worker)
{
    return CProgressModalDlg(ToQString(title), worker, m_pParent).Run();
}
