// The database that a sub-command works on, loaded without asking anybody.
//
// It goes with the object and is never closed as a user would close it, so that neither a file of the
// database nor the user's own settings of it are touched.
#pragma once

#include "CorvaneSession.h"
#include "MessageCollector.h"

#include <span>
#include <string>
#include <string_view>

class CLoadedDatabase
{
public:
    // `root` is the root file as the command line names it.
    explicit CLoadedDatabase(std::u16string_view root);

    // False has told why.
    [[nodiscard]] bool Load();
    [[nodiscard]] bool IsLoaded() const { return m_bLoaded; }
    [[nodiscard]] CCorvaneMgr& GetManager() { return m_Session.GetManager(); }
    [[nodiscard]] IFileSystem& GetFiles() { return m_Session.GetFiles(); }
    // The full path of the root file.
    [[nodiscard]] const std::u16string& GetRootFile() const { return m_sRootFile; }
    // What was told so far.
    [[nodiscard]] std::span<const CMessageCollector::SMessage> GetMessages() const
    {
        return m_Questions.GetMessages();
    }

private:
    std::u16string m_sRootFile;
    CMessageCollector m_Questions;
    CCorvaneSession m_Session;
    bool m_bLoaded = false;
};

inline constexpr std::string_view kNotLoaded = "The database could not be loaded.";
// Ends a sub-command whose database did not load: the message, and before it the JSON report when one was
// wanted. The result is the exit status.
[[nodiscard]] int TellNotLoaded(const CLoadedDatabase& database, bool json);
