// Passes every question on to the host of this run, which is known only after the command line was read and,
// with windows, after their module was loaded.
#pragma once

#include "host/Questions.h"

class CHostQuestions final : public IQuestions
{
public:
    // `host` is not owned.
    explicit CHostQuestions(IQuestions& host) : m_pHost(&host) {}
    void SetHost(IQuestions& host) { m_pHost = &host; }

    [[nodiscard]] EAnswer Ask(const CQuestion& question) override { return m_pHost->Ask(question); }
    [[nodiscard]] std::unique_ptr<IProgress> CreateProgress(std::u16string_view title) override
    {
        return m_pHost->CreateProgress(title);
    }
    void PumpMessages() override { m_pHost->PumpMessages(); }
    [[nodiscard]] bool HasWindow() const override { return m_pHost->HasWindow(); }

private:
    IQuestions* m_pHost;
};
