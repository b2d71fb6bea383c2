// The host of a command that no question may hold up: every message goes to standard error and is kept for
// the report, and a question takes the answer that changes nothing. Progress is drawn on a terminal.
#pragma once

#include "host/ConsoleQuestions.h"

#include <string>
#include <vector>

class CMessageCollector final : public IQuestions
{
public:
    CMessageCollector() { m_Console.SetUnattended(); }

    [[nodiscard]] EAnswer Ask(const CQuestion& question) override;
    [[nodiscard]] std::unique_ptr<IProgress> CreateProgress(std::u16string_view title) override
    {
        return m_Console.CreateProgress(title);
    }
    void PumpMessages() override {}

    struct SMessage
    {
        std::u16string m_sTitle;
        std::u16string m_sText;
    };
    // In the order in which they were told.
    [[nodiscard]] const std::vector<SMessage>& GetMessages() const { return m_Messages; }

private:
    CConsoleQuestions m_Console;
    std::vector<SMessage> m_Messages;
};
