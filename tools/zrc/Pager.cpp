#include "Pager.h"

#include "Descriptor.h"
#include "Process.h"
#include "Streams.h"
#include "Unicode.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <iterator>
#include <spawn.h>
#include <sys/wait.h>

CPager::~CPager()
{
    if (m_nId == 0)
        return;
    ::close(m_nInput);
    int status = 0;
    while (::waitpid(m_nId, &status, 0) < 0 && errno == EINTR)
    {
    }
}

bool CPager::Start()
{
    const char* const chosen = std::getenv("PAGER");
    if (chosen == nullptr || *chosen == 0)
        return StartProgram({"less", "-R"}) || StartProgram({"more"});
    const std::vector<std::u16string> words = SplitCommand(ToWide(chosen));
    std::vector<std::string> narrow;
    std::transform(words.begin(), words.end(), std::back_inserter(narrow),
                   [](const std::u16string& word) { return ToNarrow(word); });
    return !narrow.empty() && StartProgram(std::move(narrow));
}

bool CPager::Write(std::string_view text)
{
    return WriteDescriptor(m_nInput, text);
}

bool CPager::StartProgram(std::vector<std::string> words)
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return false;
    CDescriptor readEnd;
    CDescriptor writeEnd;
    readEnd.Reset(ends[0]);
    writeEnd.Reset(ends[1]);
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, readEnd.Get(), STDIN_FILENO);
    // What this program ignores is not ignored by the pager.
    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    sigset_t defaults;
    sigemptyset(&defaults);
    for (const int signal : {SIGPIPE, SIGXFSZ, SIGINT})
        sigaddset(&defaults, signal);
    ::posix_spawnattr_setsigdefault(&attributes, &defaults);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    const int code =
        ::posix_spawnp(&m_nId, pointers.front(), &actions, &attributes, pointers.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    if (code != 0)
    {
        m_nId = 0;
        return false;
    }
    std::signal(SIGINT, SIG_IGN);
    m_nInput = writeEnd.Release();
    return true;
}
