#include "host/ConsoleQuestions.h"

#include "host/Interrupt.h"

#include "NameCompare.h"
#include "Unicode.h"

#include <algorithm>
#include <span>
#include <unistd.h>
#include <vector>

namespace
{
struct SAnswerWord
{
    EAnswer m_Answer;
    std::u16string_view m_sWord;
};

// Their first letters differ within each set of buttons, so that one letter is an answer.
std::vector<SAnswerWord> GetWords(const CQuestion& question)
{
    const std::u16string_view yes = question.m_sYes.empty() ? u"Yes" : std::u16string_view(question.m_sYes);
    const std::u16string_view no = question.m_sNo.empty() ? u"No" : std::u16string_view(question.m_sNo);
    switch (question.m_Buttons)
    {
    case EButtons::OkCancel:
        return {{EAnswer::Ok, u"OK"}, {EAnswer::Cancel, u"Cancel"}};
    case EButtons::YesNo:
        return {{EAnswer::Yes, yes}, {EAnswer::No, no}};
    case EButtons::YesNoCancel:
        return {{EAnswer::Yes, yes}, {EAnswer::No, no}, {EAnswer::Cancel, u"Cancel"}};
    case EButtons::AbortRetryIgnore:
        return {{EAnswer::Abort, u"Abort"}, {EAnswer::Retry, u"Retry"}, {EAnswer::Ignore, u"Ignore"}};
    case EButtons::Ok:
        break;
    }
    return {{EAnswer::Ok, u"OK"}};
}

// What is asked: the title with the text, then what only some questions have.
std::u16string GetQuestionText(const CQuestion& question)
{
    std::u16string text = question.m_sTitle + u": " + question.m_sText + u"\n";
    for (const std::u16string* more : {&question.m_sFile, &question.m_sWarning})
    {
        if (!more->empty())
            text += u"\n" + *more + u"\n";
    }
    return text;
}

std::u16string GetPrompt(std::span<const SAnswerWord> words)
{
    std::u16string prompt;
    for (const SAnswerWord& word : words)
    {
        prompt += prompt.empty() ? u"  (" : u"/";
        prompt += word.m_sWord;
    }
    return prompt + u") ";
}

std::u16string_view GetWord(std::span<const SAnswerWord> words, EAnswer answer)
{
    const auto found = std::find_if(words.begin(), words.end(),
                                    [&](const SAnswerWord& word) { return word.m_Answer == answer; });
    return found == words.end() ? u"none" : found->m_sWord;
}

// The word that `line` is the beginning of, or null.
const SAnswerWord* FindAnswer(std::span<const SAnswerWord> words, std::u16string_view line)
{
    if (line.empty())
        return nullptr;
    const auto found =
        std::find_if(words.begin(), words.end(),
                     [&](const SAnswerWord& word) { return BeginsWithName(word.m_sWord, line); });
    return found == words.end() ? nullptr : &*found;
}

void Print(std::FILE* out, std::u16string_view text)
{
    std::fputs(ToNarrow(text).c_str(), out);
    std::fflush(out);
}

// False at the end of the input and at an interrupt.
bool ReadLine(std::FILE* in, std::u16string& line)
{
    std::string bytes;
    int unit = std::fgetc(in);
    if (unit == EOF)
        return false;
    for (; unit != EOF && unit != '\n'; unit = std::fgetc(in))
        bytes.push_back(static_cast<char>(unit));
    const std::size_t first = bytes.find_first_not_of(" \t\r");
    const std::size_t last = bytes.find_last_not_of(" \t\r");
    line = first == std::string::npos ? std::u16string()
                                      : ToWide(std::string_view(bytes).substr(first, last - first + 1));
    return true;
}

// The progress line leaves the last column of a common terminal free, so that it never wraps.
constexpr std::size_t kLineWidth = 79;
} // namespace

// Draws "title: text  n%" over the line before; drawn again only when it would look different.
class CConsoleProgress final : public IProgress
{
public:
    CConsoleProgress(CConsoleQuestions& host, std::u16string_view title) : m_Host(host), m_sTitle(title) {}
    ~CConsoleProgress() override { m_Host.ClearLine(); }

    void SetText(std::u16string_view text) override
    {
        m_sText = text;
        Draw();
    }
    void SetPercent(int percent) override
    {
        if (percent == m_nPercent)
            return;
        m_nPercent = percent;
        Draw();
    }
    [[nodiscard]] bool Pump() override { return CInterrupt::IsRaised(); }

private:
    void Draw()
    {
        const std::u16string percent = u"  " + ToWide(std::to_string(m_nPercent)) + u"%";
        std::u16string line = m_sTitle + u": " + m_sText;
        line.resize(std::min(line.size(), kLineWidth - percent.size()));
        m_Host.DrawLine(line + percent);
    }

    CConsoleQuestions& m_Host;
    std::u16string m_sTitle;
    std::u16string m_sText;
    int m_nPercent = 0;
};

CConsoleQuestions::CConsoleQuestions(std::FILE* in, std::FILE* out, bool interactive)
    : m_pIn(in), m_pOut(out), m_bInteractive(interactive)
{
}

CConsoleQuestions::CConsoleQuestions()
    : CConsoleQuestions(stdin, stderr, ::isatty(STDIN_FILENO) != 0 && ::isatty(STDERR_FILENO) != 0)
{
}

EAnswer CConsoleQuestions::Ask(const CQuestion& question)
{
    ClearLine();
    Print(m_pOut, GetQuestionText(question));
    if (question.m_Buttons == EButtons::Ok)
        return EAnswer::Ok;
    if (m_bInteractive && !m_bUnattended)
        return ReadAnswer(question);
    Print(m_pOut,
          std::u16string(u"  Answer: ").append(GetWord(GetWords(question), question.m_Unattended)) + u"\n");
    return question.m_Unattended;
}

EAnswer CConsoleQuestions::ReadAnswer(const CQuestion& question)
{
    const std::vector<SAnswerWord> words = GetWords(question);
    std::u16string line;
    do
    {
        Print(m_pOut, GetPrompt(words));
        if (!ReadLine(m_pIn, line))
        {
            Print(m_pOut, u"\n");
            return question.m_Unattended;
        }
        if (const SAnswerWord* word = FindAnswer(words, line))
            return word->m_Answer;
    } while (true);
}

std::unique_ptr<IProgress> CConsoleQuestions::CreateProgress(std::u16string_view title)
{
    return std::make_unique<CConsoleProgress>(*this, title);
}

void CConsoleQuestions::DrawLine(std::u16string_view line)
{
    if (!m_bInteractive)
        return;
    std::u16string padded(line);
    padded.resize(std::max(line.size(), m_nLineLength), u' ');
    Print(m_pOut, u"\r" + padded);
    m_nLineLength = line.size();
}

void CConsoleQuestions::ClearLine()
{
    if (m_nLineLength == 0)
        return;
    Print(m_pOut, u"\r" + std::u16string(m_nLineLength, u' ') + u"\r");
    m_nLineLength = 0;
}
