// The host of a silent run: shows nothing and answers Abort to everything.
#pragma once

#include "host/Questions.h"

class CSilentQuestions final : public IQuestions
{
public:
    [[nodiscard]] EAnswer Ask(const CQuestion& question) override;
    [[nodiscard]] std::unique_ptr<IProgress> CreateProgress(std::u16string_view title) override;
    void PumpMessages() override {}
};
