// Windows that nobody sees: what the program hands to its user interface, printed for a test.
#include "CorvaneMgr.h"
#include "RecentFileList.h"
#include "UiModule.h"
#include "host/Questions.h"

#include <cstdio>

namespace
{
class CPrintedQuestions final : public IQuestions
{
public:
    [[nodiscard]] EAnswer Ask(const CQuestion& question) override
    {
        for (const char16_t unit : question.m_sTitle)
            std::putchar(static_cast<char>(unit));
        std::puts(" [asked by the windows]");
        return question.m_Unattended;
    }
    [[nodiscard]] std::unique_ptr<IProgress> CreateProgress(std::u16string_view) override
    {
        return std::make_unique<CNoProgress>();
    }
    void PumpMessages() override {}

private:
    class CNoProgress final : public IProgress
    {
    public:
        void SetText(std::u16string_view) override {}
        void SetPercent(int) override {}
        [[nodiscard]] bool Pump() override { return false; }
    };
};

class CTestUi final : public ICorvaneUi
{
public:
    explicit CTestUi(ICorvaneApplication& application) : m_Application(application) {}

    [[nodiscard]] IQuestions& GetQuestions() override { return m_Questions; }
    [[nodiscard]] int Run() override
    {
        std::printf("%s, %zu recent\n", m_Application.GetManager().IsOpen() ? "open" : "closed",
                    m_Application.GetRecentFiles().GetFiles().size());
        return 0;
    }
    void Release() override
    {
        std::puts("released");
        std::fflush(stdout);
        delete this;
    }

private:
    ICorvaneApplication& m_Application;
    CPrintedQuestions m_Questions;
};
} // namespace

extern "C" __attribute__((visibility("default"))) ICorvaneUi*
CreateCorvaneUi(ICorvaneApplication& application)
{
    return new CTestUi(application);
}
