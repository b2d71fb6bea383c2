// The host of a run without windows that is not silent: messages go to standard error. On a terminal a
// question is asked there; without one it is printed with the answer that the host takes, which is the one
// that changes nothing. On a terminal long work draws one progress line.
#pragma once

#include "host/Questions.h"

#include <cstdio>

class CConsoleQuestions final : public IQuestions
{
public:
    // Streams are not owned. `interactive` tells that a person sits at both of them.
    CConsoleQuestions(std::FILE* in, std::FILE* out, bool interactive);
    // On standard input and standard error; interactive when both are terminals.
    CConsoleQuestions();
    // From now on nobody is asked, as if there were no terminal; progress is drawn all the same.
    void SetUnattended() { m_bUnattended = true; }

    [[nodiscard]] EAnswer Ask(const CQuestion& question) override;
    [[nodiscard]] std::unique_ptr<IProgress> CreateProgress(std::u16string_view title) override;
    void PumpMessages() override {}

private:
    friend class CConsoleProgress;
    [[nodiscard]] EAnswer ReadAnswer(const CQuestion& question);
    // The progress line; nothing without a terminal.
    void DrawLine(std::u16string_view line);
    void ClearLine();

    std::FILE* m_pIn;
    std::FILE* m_pOut;
    bool m_bInteractive;
    bool m_bUnattended = false;
    std::size_t m_nLineLength = 0; // Of the progress line that stands on the screen.
};
