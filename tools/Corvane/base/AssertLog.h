// The assertion log: records each failed assumption with its outcome in a file and lets the program go on.
// No file is made before the first assertion.
#pragma once

#include "zrassert.h"

#include <cstdio>
#include <mutex>
#include <string>

class CAssertLog
{
public:
    // `programFile` is the running program's own file (UTF-8). The log lies beside it when that directory is
    // writable, else in the user's state directory.
    explicit CAssertLog(std::string programFile);
    ~CAssertLog();
    CAssertLog(const CAssertLog&) = delete;
    CAssertLog& operator=(const CAssertLog&) = delete;

    // Makes this log the process's assertion handler until it goes.
    void Install();
    // Writes one entry and returns ZRASSERT_CONTINUE. Any thread may call it.
    int Log(const char* expression, const char* file, int line, const char* function, const char* message);
    // Path of the open log; empty before the first assertion.
    [[nodiscard]] const std::string& GetPath() const { return m_sPath; }

private:
    void OpenOnce();
    void WriteHead();

    std::string m_sProgramFile;
    std::string m_sPath;
    std::mutex m_Mutex; // A worker's assertions meet those of the main thread here.
    std::FILE* m_pFile = nullptr;
    bool m_bTried = false;
    bool m_bInstalled = false;
    // What was in force before Install, put back by the destructor.
    CAssertLog* m_pLogBefore = nullptr;
    ZRAssertHandler m_pHandlerBefore = nullptr;
};
