#include "UiQuestions.h"

#include "ProgressDlg.h"
#include "QtText.h"
#include "QuestionDlg.h"

#include <QApplication>
#include <QPointer>
#include <algorithm>

namespace
{
// A box over a modal dialog belongs to that, or it would get no input.
QWidget* GetOwner()
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto shown = std::find_if(windows.begin(), windows.end(),
                                    [](const QWidget* window)
                                    { return window->isVisible() && window->windowType() == Qt::Window; });
    return shown != windows.end() ? *shown : nullptr;
}

// The window that owns the box may go while the work runs, and takes the box along.
class CUiProgress final : public IProgress
{
public:
    CUiProgress(CWindowPump& pump, std::u16string_view title)
        : m_Pump(pump), m_pBox(new CProgressDlg(ToQString(title), GetOwner()))
    {
        m_Pump.Add(*m_pBox);
    }
    ~CUiProgress() override { delete m_pBox; }
    CUiProgress(const CUiProgress&) = delete;
    CUiProgress& operator=(const CUiProgress&) = delete;

    void SetText(std::u16string_view text) override
    {
        if (m_pBox)
            m_pBox->SetText(ToQString(text));
    }
    void SetPercent(int percent) override
    {
        if (m_pBox)
            m_pBox->SetPercent(percent);
    }
    [[nodiscard]] bool Pump() override
    {
        m_Pump.Run();
        return m_pBox && m_pBox->IsCancelled();
    }

private:
    CWindowPump& m_Pump;
    QPointer<CProgressDlg> m_pBox;
};
} // namespace

EAnswer CUiQuestions::Ask(const CQuestion& question)
{
    const QPointer<CQuestionDlg> box = new CQuestionDlg(question, GetOwner());
    box->exec();
    const EAnswer answer = box ? box->GetAnswer() : question.m_Unattended;
    delete box;
    return answer;
}

std::unique_ptr<IProgress> CUiQuestions::CreateProgress(std::u16string_view title)
{
    return std::make_unique<CUiProgress>(m_Pump, title);
}
