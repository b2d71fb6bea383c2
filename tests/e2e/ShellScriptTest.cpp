// Runs the scripts "*.script" of this folder: golden files whose commands run the built programs as a shell
// would, in a directory that holds a copy of the sample.
//   file <path>                               the lines up to the next command are its text, in UTF-16
//   bytes <path> <text>                       a file of one line, in UTF-8
//   edit <file>;<section>;<key>=<value>       a value in a file of the sample's database
//   run <shell command>                       answers with the status unless it is 0, and what it printed
// Lines of the output of errors show behind "! ", empty lines not at all. The directory is the home of the
// commands and stands as '~' in texts and answers.
#include "GoldenText.h"
#include "SampleCopy.h"
#include "Unicode.h"

#include <gtest/gtest.h>
#include <regex>

namespace fs = std::filesystem;

namespace
{
class CShellScript : private CSampleCopy
{
public:
    std::string Execute(const std::string& line)
    {
        std::smatch parts;
        if (!std::regex_match(line, parts, std::regex("(file|bytes|edit|run) ([^ ]*) ?(.*)")))
        {
            m_sText += ToWide(std::regex_replace(line, std::regex("~"), m_sHome)) + u"\r\n";
            return "";
        }
        if (!m_sFile.empty())
            m_Scratch.WriteUtf16(m_sFile, m_sText);
        m_sFile.clear();
        m_sText.clear();
        if (parts[1] == "file")
            m_sFile = parts[2];
        else if (parts[1] == "bytes")
            m_Scratch.WriteBytes(parts[2].str(), parts[3].str() + '\n');
        else if (parts[1] == "edit")
            Edit(line);
        else
            return Run(line.substr(4));
        return "";
    }

private:
    void Edit(const std::string& line)
    {
        std::smatch parts;
        ASSERT_TRUE(std::regex_match(line, parts, std::regex("edit ([^;]*);([^;]*);([^=]*)=(.*)"))) << line;
        SetValue(parts[1], ToWide(parts[2].str()), ToWide(parts[3].str()), ToWide(parts[4].str()));
    }
    std::string Run(const std::string& command)
    {
        const int status =
            RunShell("cd '" + m_sHome + "' && export HOME=$PWD XDG_CONFIG_HOME=$PWD/config PATH=" +
                     fs::path(CORVANE_PROGRAM).parent_path().string() + ":$PATH && { " + command + "\n}");
        std::string answer = status != 0 ? "exit " + std::to_string(status) + '\n' : "";
        answer += std::regex_replace(m_Scratch.ReadBytes("output"), std::regex("\n\n+"), "\n");
        answer += std::regex_replace(m_Scratch.ReadBytes("error"), std::regex("([^\n]+)\n+"), "! $1\n");
        return std::regex_replace(answer, std::regex(m_sHome), "~");
    }

    const std::string m_sHome = m_Scratch.GetPath();
    std::string m_sFile;
    std::u16string m_sText;
};

class ShellScript : public testing::TestWithParam<fs::path>
{
};
} // namespace

TEST_P(ShellScript, SaysWhatTheFileSays)
{
    CShellScript script;
    CheckGolden(GetParam(), [&](const std::string& line) { return script.Execute(line); });
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, ShellScript, testing::ValuesIn(FindGoldenFiles(E2E_DIRECTORY, ".script")),
                         [](const auto& entry) { return entry.param.stem().string(); });
