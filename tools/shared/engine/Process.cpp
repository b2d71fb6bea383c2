#include "Process.h"

#include "FileSystem.h"
#include "NameCompare.h"
#include "Path.h"
#include "Unicode.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace
{
bool IsBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t';
}

// What `posix_spawn` needs beside the words: the child reads nothing, stands in its directory and does not
// inherit what this program has done to its signals.
class CSpawnSetup
{
public:
    explicit CSpawnSetup(const std::string& directory)
    {
        ::posix_spawn_file_actions_init(&m_Actions);
        ::posix_spawnattr_init(&m_Attributes);
        ::posix_spawn_file_actions_addopen(&m_Actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_addchdir_np(&m_Actions, directory.c_str());
        sigset_t defaults;
        sigset_t mask;
        sigemptyset(&mask);
        sigemptyset(&defaults);
        for (const int number : {SIGPIPE, SIGXFSZ, SIGINT, SIGTERM, SIGHUP})
            sigaddset(&defaults, number);
        ::posix_spawnattr_setsigdefault(&m_Attributes, &defaults);
        ::posix_spawnattr_setsigmask(&m_Attributes, &mask);
        ::posix_spawnattr_setflags(&m_Attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~CSpawnSetup()
    {
        ::posix_spawnattr_destroy(&m_Attributes);
        ::posix_spawn_file_actions_destroy(&m_Actions);
    }
    CSpawnSetup(const CSpawnSetup&) = delete;
    CSpawnSetup& operator=(const CSpawnSetup&) = delete;

    // 0 or the cause of failure, that of a program that cannot be executed included.
    int Start(const std::string& program, std::vector<char*>& words, pid_t& id) const
    {
        return ::posix_spawn(&id, program.c_str(), &m_Actions, &m_Attributes, words.data(), environ);
    }

private:
    posix_spawn_file_actions_t m_Actions{};
    posix_spawnattr_t m_Attributes{};
};

// The names under which a program may lie: its own, and for "tool.exe" the plain "tool" as well.
std::vector<std::u16string> GetProgramNames(std::u16string_view word)
{
    std::vector<std::u16string> names{std::u16string(word)};
    const std::u16string_view extension = SplitPath(word).extension;
    if (EqualNames(extension, u".exe"))
        names.emplace_back(word.substr(0, word.size() - extension.size()));
    return names;
}

bool IsFile(IFileSystem& files, std::u16string_view path)
{
    SFileInfo info;
    return files.GetInfo(path, info).IsOk() && info.m_bExists && !info.m_bDirectory;
}

std::string FindOnSearchPath(const std::string& name)
{
    const char* path = std::getenv("PATH");
    std::string_view rest = path != nullptr ? path : "";
    while (!rest.empty())
    {
        const std::size_t length = std::min(rest.find(':'), rest.size());
        const std::string candidate = std::string(rest.substr(0, length)) + '/' + name;
        if (length != 0 && ::access(candidate.c_str(), X_OK) == 0)
            return candidate;
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return {};
}

// The operating system's path of the program, or the empty text. An absolute one, since the child changes
// its directory before it starts.
std::string FindProgram(IFileSystem& files, std::u16string_view word, std::u16string_view directory)
{
    const std::vector<std::u16string> names = GetProgramNames(word);
    for (const std::u16string& name : names)
    {
        const std::u16string path = IsAbsolutePath(name) ? name : JoinPath(directory, name);
        if (IsFile(files, path))
            return files.GetNativePath(path);
    }
    const bool bare = word.find_first_of(u"\\/") == std::u16string_view::npos;
    for (const std::u16string& name : names)
    {
        std::string found = bare ? FindOnSearchPath(ToNarrow(name)) : std::string();
        if (!found.empty())
            return found;
    }
    return {};
}

std::u16string Explain(std::u16string_view name, int code)
{
    return std::u16string(name) + u": " + CFileError::FromErrno(code).GetText();
}

std::string MakeAbsolute(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
    return real != nullptr ? std::string(real.get()) : path;
}
} // namespace

std::vector<std::u16string> SplitCommand(std::u16string_view command)
{
    std::vector<std::u16string> words;
    std::u16string word;
    bool quoted = false;
    bool begun = false;
    for (const char16_t unit : command)
    {
        if (unit == u'"')
        {
            quoted = !quoted;
            begun = true;
        }
        else if (quoted || !IsBlank(unit))
        {
            word += unit;
            begun = true;
        }
        else if (begun)
        {
            words.push_back(std::exchange(word, {}));
            begun = false;
        }
    }
    if (begun)
        words.push_back(std::move(word));
    return words;
}

bool CProcess::Start(IFileSystem& files, std::u16string_view command, std::u16string_view directory,
                     std::u16string& error)
{
    m_nId = 0;
    error.clear();
    const std::vector<std::u16string> words = SplitCommand(command);
    if (words.empty() || words.front().empty())
    {
        error = u"the command is empty";
        return false;
    }
    if (!files.IsDirectory(directory))
    {
        error = Explain(directory, ENOENT);
        return false;
    }
    std::string program = FindProgram(files, words.front(), directory);
    if (program.empty())
    {
        error = Explain(words.front(), ENOENT);
        return false;
    }
    // A relative path would be read from the child's directory.
    program = MakeAbsolute(program);
    std::vector<std::string> narrow{program};
    std::transform(words.begin() + 1, words.end(), std::back_inserter(narrow),
                   [](const std::u16string& word) { return ToNarrow(word); });
    std::vector<char*> pointers;
    for (std::string& word : narrow)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    pid_t id = 0;
    const int code = CSpawnSetup(files.GetNativePath(directory)).Start(program, pointers, id);
    if (code != 0)
    {
        error = Explain(words.front(), code);
        return false;
    }
    m_nId = id;
    return true;
}

std::optional<int> CProcess::Wait()
{
    int status = 0;
    pid_t result = -1;
    if (m_nId > 0)
    {
        do
            result = ::waitpid(m_nId, &status, 0);
        while (result < 0 && errno == EINTR);
    }
    if (result <= 0)
        return std::nullopt;
    if (WIFSIGNALED(status))
        return 128 + WTERMSIG(status);
    return WEXITSTATUS(status);
}
