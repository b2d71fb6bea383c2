#include "host/SilentQuestions.h"

#include "host/Interrupt.h"

namespace
{
class CSilentProgress final : public IProgress
{
public:
    void SetText(std::u16string_view) override {}
    void SetPercent(int) override {}
    [[nodiscard]] bool Pump() override { return CInterrupt::IsRaised(); }
};
} // namespace

EAnswer CSilentQuestions::Ask(const CQuestion&)
{
    return EAnswer::Abort;
}

std::unique_ptr<IProgress> CSilentQuestions::CreateProgress(std::u16string_view)
{
    return std::make_unique<CSilentProgress>();
}
