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

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

namespace fs = std::filesystem;

namespace
{
class CShellScript : private CSampleCopy
{
public:
    std::string Execute(const std::string& line)
    {
        const std::size_t end = std::min(line.find(' '), line.size());
        const std::string command = line.substr(0, end);
        const std::string text = line.substr(std::min(end + 1, line.size()));
        if (command != "file" && command != "bytes" && command != "edit" && command != "run")
        {
            m_sText += ToWide(ReplaceAll(line, "~", m_sHome)) + u"\r\n";
            return "";
        }
        if (!m_sFile.empty())
            m_Scratch.WriteUtf16(m_sFile, m_sText);
        m_sFile = command == "file" ? text : "";
        m_sText.clear();
        if (command == "bytes")
            WriteLine(text);
        else if (command == "edit")
            Edit(text);
        return command == "run" ? Run(text) : "";
    }

private:
    void WriteLine(const std::string& text) const
    {
        const std::size_t end = std::min(text.find(' '), text.size());
        m_Scratch.WriteBytes(text.substr(0, end), text.substr(std::min(end + 1, text.size())) + '\n');
    }
    void Edit(const std::string& text) const
    {
        std::istringstream parts(text);
        std::string file, section, key, value;
        std::getline(parts, file, ';');
        std::getline(parts, section, ';');
        std::getline(parts, key, '=');
        std::getline(parts, value);
        SetValue(file, ToWide(section), ToWide(key), ToWide(value));
    }
    std::string Run(const std::string& command)
    {
        const int status =
            RunShell("cd '" + m_sHome + "' && export HOME=$PWD XDG_CONFIG_HOME=$PWD/config PATH=" +
                     fs::path(CORVANE_PROGRAM).parent_path().string() + ":$PATH && { " + command + "\n}");
        std::string answer = status != 0 ? "exit " + std::to_string(status) + '\n' : "";
        answer += MarkLines(m_Scratch.ReadBytes("output"));
        answer += MarkLines(m_Scratch.ReadBytes("error"), "! ");
        return ReplaceAll(answer, m_sHome, "~");
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
