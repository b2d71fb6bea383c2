#include "ShellRun.h"

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
// A child that hangs fails its test instead of the whole run.
constexpr unsigned kDeadline = 20;

[[noreturn]] void Become(const std::string& program, const std::filesystem::path& directory, int output,
                         std::vector<std::string>& arguments)
{
    std::vector<char*> texts = {const_cast<char*>(program.c_str())};
    for (std::string& argument : arguments)
        texts.push_back(argument.data());
    texts.push_back(nullptr);
    ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    ::setenv("XDG_CONFIG_HOME", (directory / "config").c_str(), 1);
    ::setenv("XDG_STATE_HOME", (directory / "state").c_str(), 1);
    ::unsetenv("DISPLAY");
    ::unsetenv("WAYLAND_DISPLAY");
    ::alarm(kDeadline);
    if (::chdir(directory.c_str()) == 0)
        ::execv(program.c_str(), texts.data());
    ::_exit(127);
}
} // namespace

CShellRun::CShellRun()
{
    std::filesystem::create_directories(m_Scratch.GetPath() / "bin");
    std::filesystem::copy_file(CORVANE_PROGRAM, m_Scratch.GetPath() / "bin/corvane");
    WriteLocator(CREATOR_LIBRARY);
    WriteRoot();
    m_Scratch.WriteUtf16(
        "p/Db/Thing.schema",
        u"[Schema]\r\nName=Thing\r\nHelp=\r\nParent=\r\n\r\n"
        u"[Attrib.Count.0]\r\nType=Integer\r\nData=min=0;max=10\r\nDefault=1\r\nValues=1\r\n\r\n"
        u"[Attrib.Later.10]\r\nType=Integer\r\nDefault=1\r\nValues=1\r\n\r\n");
    m_Scratch.WriteUtf16("p/Db/Things/cvd.category", u"[Category]\r\nSchema=Thing\r\nSystem=True\r\n");
    WriteCount(u"3");
}

void CShellRun::WriteLocator(std::string_view creator) const
{
    m_Scratch.WriteBytes("p/x.proj00", "[Project Binaries]\nGameDatabase=" + std::string(creator) + "\n");
}

void CShellRun::WriteRoot(std::u16string_view more) const
{
    m_Scratch.WriteUtf16("p/Db/Root.Gamdb00s", u"[General]\r\nName=Shell\r\nBuild=Packed.Gamdb00p\r\n"
                                               u"Database={7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C9AA}\r\n" +
                                                   std::u16string(more));
}

void CShellRun::WriteCount(std::u16string_view value) const
{
    m_Scratch.WriteUtf16("p/Db/Things/One.record",
                         u"[Record]\r\nSchema=Thing\r\nName=One\r\n\r\n[Attrib.Count]\r\nValue.0000=" +
                             std::u16string(value) + u"\r\n");
}

pid_t CShellRun::Start(std::vector<std::string> arguments)
{
    for (std::string& argument : arguments)
    {
        if (argument.starts_with('~'))
            argument.replace(0, 1, m_Scratch.GetPath().string());
    }
    const std::string program = (m_Scratch.GetPath() / "bin/corvane").string();
    const std::string log = (m_Scratch.GetPath() / "output.txt").string();
    const pid_t child = ::fork();
    if (child != 0)
        return child;
    const int output = ::open(log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    Become(program, m_Scratch.GetPath(), output, arguments);
}

SRunResult CShellRun::Finish(pid_t child) const
{
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    SRunResult result;
    result.m_nStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    result.m_sOutput = m_Scratch.ReadBytes("output.txt");
    return result;
}

std::u16string CShellRun::ReadProfile() const
{
    return m_Scratch.Exists(kProfile) ? m_Scratch.ReadUtf16(kProfile) : std::u16string();
}
