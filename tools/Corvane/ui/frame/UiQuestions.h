// The host of a run with windows: message boxes and progress boxes over the window that the user looks at.
#pragma once

#include "WindowPump.h"
#include "host/Questions.h"

class CUiQuestions final : public IQuestions
{
public:
    [[nodiscard]] EAnswer Ask(const CQuestion& question) override;
    [[nodiscard]] std::unique_ptr<IProgress> CreateProgress(std::u16string_view title) override;
    void PumpMessages() override { m_Pump.Run(); }
    [[nodiscard]] bool HasWindow() const override { return true; }

    [[nodiscard]] CWindowPump& GetPump() { return m_Pump; }

private:
    CWindowPump m_Pump;
};
