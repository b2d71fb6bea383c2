#include "ChildRun.h"

#include "Descriptor.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr const char* kSelf = "/proc/self/exe";

[[noreturn]] void BecomeChild(std::vector<char*>& words, const char* configuration, int output)
{
    if (::dup2(output, STDOUT_FILENO) >= 0 && ::setenv("XDG_CONFIG_HOME", configuration, 1) == 0)
        ::execv(kSelf, words.data());
    ::_exit(127);
}

std::string ReadAll(int descriptor)
{
    std::string text;
    std::array<char, 4096> block{};
    for (;;)
    {
        const ssize_t count = ::read(descriptor, block.data(), block.size());
        if (count > 0)
            text.append(block.data(), static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return text;
    }
}

bool EndsWell(pid_t child)
{
    int status = 0;
    while (::waitpid(child, &status, 0) < 0)
    {
        if (errno != EINTR)
            return false;
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
} // namespace

std::optional<std::string> RunSelf(const std::vector<std::string>& arguments,
                                   const std::filesystem::path& configuration)
{
    std::vector<std::string> texts{kSelf};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    for (std::string& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);

    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::nullopt;
    CDescriptor reading;
    CDescriptor writing;
    reading.Reset(ends[0]);
    writing.Reset(ends[1]);
    const pid_t child = ::fork();
    if (child < 0)
        return std::nullopt;
    if (child == 0)
        BecomeChild(words, configuration.c_str(), writing.Get());
    writing.Reset(-1);
    std::string text = ReadAll(reading.Get());
    if (!EndsWell(child))
        return std::nullopt;
    return text;
}
