// Windows that nobody sees: what the program hands to its user interface, printed for a test.
#include "CorvaneMgr.h"
#include "RecentFileList.h"
#include "RunState.h"
#include "UiModule.h"
#include "Unicode.h"
#include "host/RecordingQuestions.h"
#include "host/SystemServices.h"

#include <cstdio>

namespace
{
class CTestUi final : public ICorvaneUi
{
public:
    explicit CTestUi(ICorvaneApplication& application) : m_Application(application) {}

    [[nodiscard]] IQuestions& GetQuestions() override { return m_Questions; }
    [[nodiscard]] IServices& GetServices() override { return m_Services; }
    [[nodiscard]] int Run() override
    {
        // A user who made changes keeps the window first, then lets it go.
        m_Application.GetManager().SetDirty(true);
        m_Questions.Prepare(u"Save Changes", {EAnswer::Cancel, EAnswer::No});
        for (int i = 0; i < 2; ++i)
        {
            const bool closes = m_Application.BeginClose();
            if (closes != m_Application.GetContext().m_Run.Test(APP_CLOSING) || closes != (i == 1))
                std::puts("the closing bit is wrong");
        }
        std::printf("%s, %zu recent\n", m_Application.GetManager().IsOpen() ? "open" : "closed",
                    m_Application.GetRecentFiles().GetFiles().size());
        return 0;
    }
    void Release() override
    {
        for (const CQuestion& question : m_Questions.GetQuestions())
            std::printf("%s asked\n", ToNarrow(question.m_sTitle).c_str());
        std::puts("released");
        std::fflush(stdout);
        delete this;
    }

private:
    ICorvaneApplication& m_Application;
    CRecordingQuestions m_Questions;
    CSystemServices m_Services{m_Application.GetContext().m_Files};
};
} // namespace

extern "C" __attribute__((visibility("default"))) ICorvaneUi*
CreateCorvaneUi(ICorvaneApplication& application)
{
    return new CTestUi(application);
}
