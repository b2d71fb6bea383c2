// Runs the golden files "*.golden" of all types, which lie in the tests folder of each type.
//   Key=text        a key of the attribute's schema section; Type begins a new section
//   default <text>  makes the attribute: its first value, and what the user is told
//   set <text>      sets the value at the next index
//   check, outputs, dependencies
//                   the findings of a validation, the calls of both creator libraries, the dependencies
// Blanks at the end of a line count.
#include "GoldenText.h"
#include "TestAttribute.h"
#include "Unicode.h"

#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace
{
class CGoldenRun
{
public:
    std::string Execute(const std::string& line)
    {
        const std::size_t end = std::min(line.find_first_of(" ="), line.size());
        const std::string command = line.substr(0, end);
        const std::string text = line.substr(std::min(end + 1, line.size()));
        if (command.empty())
            return "";
        if (command == "default")
            return MakeAttribute(text);
        if (command == "check")
            return m_pTest->Check();
        if (command == "outputs")
            return m_pTest->GetOutputs();
        if (command == "dependencies")
            return m_pTest->GetDependencies();
        if (command == "set")
        {
            m_Values.push_back(ToWide(text));
            m_pTest->Set(m_Values);
            return "";
        }
        if (command == "Type")
            m_Keys.clear();
        m_Keys[command] = text;
        return "";
    }

private:
    std::string MakeAttribute(const std::string& text)
    {
        m_Keys["Default"] = text;
        std::vector<std::u16string> keys;
        for (const auto& [key, value] : m_Keys)
            keys.push_back(ToWide(key + "=" + value));
        m_Values.clear();
        m_pTest = nullptr; // One attribute at a time: its assertions are captured.
        m_pTest = std::make_unique<CTestAttribute>(ToWide(m_Keys["Type"]), keys);
        std::string answer = ToNarrow(m_pTest->Get().GetValue(0)) + '\n';
        for (const CQuestion& question : m_pTest->m_Questions.GetQuestions())
            answer += ToNarrow(question.m_sTitle + u": " + question.m_sText) + '\n';
        return answer;
    }

    std::map<std::string, std::string> m_Keys;
    std::vector<std::u16string> m_Values;
    std::unique_ptr<CTestAttribute> m_pTest;
};

} // namespace

class TypeGolden : public testing::TestWithParam<std::filesystem::path>
{
};

TEST_P(TypeGolden, SaysWhatTheFileSays)
{
    CGoldenRun run;
    CheckGolden(GetParam(), [&](const std::string& line) { return run.Execute(line); });
}

INSTANTIATE_TEST_SUITE_P(Types, TypeGolden, testing::ValuesIn(FindGoldenFiles(TYPES_FOLDER, ".golden")),
                         [](const auto& entry) { return entry.param.stem().string(); });
