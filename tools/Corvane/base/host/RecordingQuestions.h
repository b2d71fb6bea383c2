// A host for tests: keeps every question and gives prepared answers, so that dialogs are tested without a
// window.
#pragma once

#include "host/Questions.h"

#include <functional>
#include <map>
#include <vector>

class CRecordingQuestions final : public IQuestions
{
public:
    [[nodiscard]] EAnswer Ask(const CQuestion& question) override;
    [[nodiscard]] std::unique_ptr<IProgress> CreateProgress(std::u16string_view title) override;
    void PumpMessages() override {}
    [[nodiscard]] bool HasWindow() const override { return m_bWindow; }

    // Answers to questions with this title, in order; the last one repeats. Others get the unattended answer.
    void Prepare(std::u16string_view title, std::vector<EAnswer> answers);
    [[nodiscard]] const std::vector<CQuestion>& GetQuestions() const { return m_Questions; }
    // How many questions with this title came.
    [[nodiscard]] std::size_t Count(std::u16string_view title) const;
    void Clear() { m_Questions.clear(); }

    // Every text and percentage that progress was told, as "title: text" and "n%".
    [[nodiscard]] const std::vector<std::u16string>& GetProgress() const { return m_Progress; }
    // Asked at each pump; true cancels. Empty means never.
    std::function<bool(std::u16string_view lastText)> m_Cancel;
    // The host claims to have a window.
    bool m_bWindow = false;

private:
    friend class CRecordingProgress;
    std::vector<CQuestion> m_Questions;
    std::map<std::u16string, std::vector<EAnswer>> m_Answers;
    std::vector<std::u16string> m_Progress;
};
