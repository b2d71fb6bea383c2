// What the whole program knows of its own run: the application state word, the switches that outlive the
// command line, the base path and the exit status.
#pragma once

#include "ObserverList.h"

#include <cstdint>
#include <string>
#include <string_view>

enum EAppState : std::uint32_t
{
    APP_CLOSING = 0x01,
    APP_OPEN_LAST = 0x02,
    APP_EXPAND = 0x04,
    APP_RELOADING =
        0x08, // A database is being opened or reloaded: no per-item questions, no file is touched.
    APP_SOURCE_CONTROL = 0x10,
    APP_EXPERT = 0x20,
    APP_SETTINGS = 0x40, // A database is being opened or the settings sheet runs.
    APP_MOVING = 0x80,
    APP_LOADING = 0x100,
};

// What settings observers are told.
enum class ESettingsEvent
{
    BasePath = 0, // With the path, its last separator included.
    General = 1,
    Build = 2,
    Presentation = 3, // How values are shown.
};

inline constexpr std::int32_t kExitOk = 0;
inline constexpr std::int32_t kExitCriticalFindings = 1;
inline constexpr std::int32_t kExitFailed = static_cast<std::int32_t>(0x80004005);
inline constexpr std::int32_t kResultCancelled = static_cast<std::int32_t>(0x80004004);

class CRunState
{
public:
    [[nodiscard]] bool Test(std::uint32_t bits) const { return (m_dwState & bits) != 0; }
    [[nodiscard]] std::uint32_t GetState() const { return m_dwState; }
    void Set(std::uint32_t bits, bool on = true)
    {
        m_dwState = on ? (m_dwState | bits) : (m_dwState & ~bits);
    }

    // No message is shown and nobody is asked.
    bool m_bSilent = false;
    // Where validation writes its findings; empty for nowhere.
    std::u16string m_sLogPath;
    std::int32_t m_nExitStatus = kExitOk;

    // Keeps the path without and with its last separator and tells the observers. An empty path clears both.
    void SetBasePath(std::u16string_view path);
    [[nodiscard]] const std::u16string& GetBasePath() const { return m_sBasePath; }
    [[nodiscard]] const std::u16string& GetBasePathWithSeparator() const { return m_sBasePathWithSeparator; }

    // Observers of (event, value).
    CObserverList<ESettingsEvent, std::u16string_view> m_Settings;

private:
    std::uint32_t m_dwState = 0;
    std::u16string m_sBasePath;
    std::u16string m_sBasePathWithSeparator;
};

// Sets state bits for a scope and restores them as they were.
class CStateScope
{
public:
    CStateScope(CRunState& state, std::uint32_t bits) : m_State(state), m_dwBits(bits & ~state.GetState())
    {
        m_State.Set(m_dwBits);
    }
    ~CStateScope() { m_State.Set(m_dwBits, false); }
    CStateScope(const CStateScope&) = delete;
    CStateScope& operator=(const CStateScope&) = delete;

private:
    CRunState& m_State;
    std::uint32_t m_dwBits;
};
