#include "AssertLog.h"

#include "host/ClockText.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{
constexpr const char* kCopyright = "Copyright (C) Harrowgate Works";
constexpr const char* kRule = "  ----------------------------------------------------------------------\n";
constexpr std::size_t kLineWidth = 75;
constexpr int kMaxLogs = 1000;

CAssertLog* g_pInstalled = nullptr;

int HandleAssertion(const char* expression, const char* file, int line, const char* function,
                    const char* message)
{
    return g_pInstalled->Log(expression, file, line, function, message);
}

// The owner's permission decides as well as the caller's own, so that a read-only mark holds for everybody.
bool IsWritable(const fs::path& path)
{
    struct stat info = {};
    return ::stat(path.c_str(), &info) == 0 && (info.st_mode & S_IWUSR) != 0 &&
           ::access(path.c_str(), W_OK) == 0;
}

fs::path GetStateDirectory()
{
    const char* configured = std::getenv("XDG_STATE_HOME");
    if (configured != nullptr && configured[0] == '/')
        return fs::path(configured) / "corvane";
    const char* home = std::getenv("HOME");
    return fs::path(home != nullptr ? home : "/") / ".local/state/corvane";
}

fs::path GetLogDirectory(const fs::path& programFile)
{
    fs::path beside = programFile.parent_path();
    if (IsWritable(beside))
        return beside;
    fs::path state = GetStateDirectory();
    std::error_code ignored;
    fs::create_directories(state, ignored);
    return state;
}

// The first name whose file does not exist or may be written; empty when there is none.
fs::path ChooseLogFile(const fs::path& programFile)
{
    const fs::path directory = GetLogDirectory(programFile);
    for (int number = 0; number < kMaxLogs; ++number)
    {
        std::array<char, 24> suffix{};
        std::snprintf(suffix.data(), suffix.size(), "_Assert%.2d.log", number);
        fs::path path = directory / (programFile.stem().string() + suffix.data());
        std::error_code ignored;
        if (!fs::exists(path, ignored) || IsWritable(path))
            return path;
    }
    return {};
}

std::string Centre(std::string_view text)
{
    const std::size_t padding = text.size() < kLineWidth ? (kLineWidth - text.size()) / 2 : 0;
    return std::string(padding, ' ').append(text);
}
} // namespace

CAssertLog::CAssertLog(std::string programFile) : m_sProgramFile(std::move(programFile)) {}

CAssertLog::~CAssertLog()
{
    if (m_bInstalled)
    {
        ZRSetAssertHandler(m_pHandlerBefore);
        g_pInstalled = m_pLogBefore;
    }
    if (m_pFile == nullptr)
        return;
    std::fprintf(m_pFile, "Closed at %s\n", GetClockTime().c_str());
    std::fclose(m_pFile);
}

void CAssertLog::Install()
{
    if (m_bInstalled)
        return;
    m_bInstalled = true;
    m_pLogBefore = g_pInstalled;
    g_pInstalled = this;
    m_pHandlerBefore = ZRSetAssertHandler(&HandleAssertion);
}

int CAssertLog::Log(const char* expression, const char* file, int line, const char* function,
                    const char* message)
{
    const std::lock_guard lock(m_Mutex);
    OpenOnce();
    if (m_pFile == nullptr)
        return ZRASSERT_CONTINUE;
    std::fprintf(m_pFile, "Assertion Failure: %s\n\n", expression);
    std::fprintf(m_pFile, "%s\n\n", message);
    std::fprintf(m_pFile, "Time:\t\t%s\n", GetClockTime().c_str());
    std::fprintf(m_pFile, "File:\t\t%s\n", file);
    std::fprintf(m_pFile, "Line:\t\t%d\n", line);
    std::fprintf(m_pFile, "Function:\t%s\n", function);
    std::fprintf(m_pFile, "Result:\t\t%s\n\n", "Continue");
    std::fputs("\n---\n\n", m_pFile);
    return ZRASSERT_CONTINUE;
}

void CAssertLog::OpenOnce()
{
    if (m_bTried)
        return;
    m_bTried = true;
    const fs::path path = ChooseLogFile(m_sProgramFile);
    if (path.empty())
        return;
    m_pFile = std::fopen(path.c_str(), "we");
    if (m_pFile == nullptr)
        return;
    // Each entry must survive a crash that follows it.
    std::setvbuf(m_pFile, nullptr, _IONBF, 0);
    m_sPath = path.string();
    WriteHead();
}

void CAssertLog::WriteHead()
{
    std::fprintf(m_pFile, "\n%s", kRule);
    std::fprintf(m_pFile, "%s\n", Centre("Assert Log File").c_str());
    std::fprintf(m_pFile, "%s\n", Centre(CORVANE_PRODUCT).c_str());
    std::fprintf(m_pFile, "%s\n", Centre(CORVANE_VERSION).c_str());
    std::fprintf(m_pFile, "%s\n", kRule);
    std::fprintf(m_pFile, "%s\n\n\n", Centre(kCopyright).c_str());
    std::fputs("This file contains a log of asserts that were fired during the execution of\n"
               "the above application.\n\n",
               m_pFile);
    std::fprintf(m_pFile, "Created at %s on %s \n\n---\n\n", GetClockTime().c_str(), GetClockDate().c_str());
}
