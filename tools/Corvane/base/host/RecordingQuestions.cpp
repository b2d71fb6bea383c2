#include "host/RecordingQuestions.h"

#include "FormatText.h"

#include <algorithm>

class CRecordingProgress final : public IProgress
{
public:
    CRecordingProgress(CRecordingQuestions& host, std::u16string_view title) : m_Host(host), m_sTitle(title)
    {
    }

    void SetText(std::u16string_view text) override
    {
        m_sText = text;
        m_Host.m_Progress.push_back(m_sTitle + u": " + m_sText);
    }
    void SetPercent(int percent) override { m_Host.m_Progress.push_back(FormatText(u"%d%%", percent)); }
    [[nodiscard]] bool Pump() override
    {
        m_bCancelled = m_bCancelled || (m_Host.m_Cancel && m_Host.m_Cancel(m_sText));
        return m_bCancelled;
    }

private:
    CRecordingQuestions& m_Host;
    std::u16string m_sTitle;
    std::u16string m_sText;
    bool m_bCancelled = false;
};

EAnswer CRecordingQuestions::Ask(const CQuestion& question)
{
    m_Questions.push_back(question);
    const auto prepared = m_Answers.find(question.m_sTitle);
    if (prepared == m_Answers.end() || prepared->second.empty())
        return question.m_Unattended;
    std::vector<EAnswer>& answers = prepared->second;
    const EAnswer answer = answers.front();
    if (answers.size() > 1)
        answers.erase(answers.begin());
    return answer;
}

std::unique_ptr<IProgress> CRecordingQuestions::CreateProgress(std::u16string_view title)
{
    return std::make_unique<CRecordingProgress>(*this, title);
}

void CRecordingQuestions::Prepare(std::u16string_view title, std::vector<EAnswer> answers)
{
    m_Answers[std::u16string(title)] = std::move(answers);
}

std::size_t CRecordingQuestions::Count(std::u16string_view title) const
{
    return static_cast<std::size_t>(std::count_if(m_Questions.begin(), m_Questions.end(),
                                                  [&](const CQuestion& question)
                                                  { return question.m_sTitle == title; }));
}
