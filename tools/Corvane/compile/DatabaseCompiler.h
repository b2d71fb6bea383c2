// The compile: turns the loaded database into the one packed file that the game reads, through the game's
// creator library. Runs on the main thread; only the post-build step's wait has a thread of its own.
#pragma once

#include "PostBuildStep.h"

#include <cstdint>
#include <string>
#include <string_view>

class CCompileProgress;
class CCorvaneMgr;
class CValidateCore;

enum ECompileFlags : std::uint32_t
{
    COMPILE_SERVER = 0x01,        // Check out for submission; clear: overwrite for local testing.
    COMPILE_SYNCHRONIZE = 0x02,   // Synchronize to the server's database first.
    COMPILE_SUBMIT = 0x04,        // Submit all changes.
    COMPILE_SAVE = 0x08,          // Save the database first.
    COMPILE_SHOW_MODIFIED = 0x10, // Show the attributes modified for the build.
};

// What a compile shows beyond questions. The defaults show nothing and go on, as a batch run does.
class ICompileView
{
public:
    virtual ~ICompileView() = default;
    // The findings of a failed validation. `modal` false puts them into the main window's pane.
    virtual void ShowFindings(const CValidateCore&, bool /*modal*/) {}
    virtual void ShowModifiedAttributes(std::uint32_t /*build*/) {}
    // "Test Build": false aborts the submission.
    [[nodiscard]] virtual bool ConfirmTestBuild(std::u16string_view /*target*/) { return true; }
};

class CDatabaseCompiler
{
public:
    // `manager` is not owned. `view` may be null; it is not owned either.
    explicit CDatabaseCompiler(CCorvaneMgr& manager, ICompileView* view = nullptr);

    // The outer procedure with source control around the build. False has told why.
    [[nodiscard]] bool CompileDatabase(std::uint32_t flags, std::u16string_view target, std::uint32_t build);
    // The inner procedure. An empty target gives <root directory><database name>.Gamdb00p.
    [[nodiscard]] bool BuildDatabase(std::u16string_view target, std::uint32_t build, std::uint32_t flags);

    // The step that the last build started, as long as it still runs; empty text otherwise.
    [[nodiscard]] std::u16string GetRunningPostBuildStep() const { return m_PostBuild.GetRunningCommand(); }
    // Tells the failure of a step that ended after its build had returned. For a host's idle time and its
    // end.
    void TellPostBuildOutcome();
    // How long a build waits for its post-build step without input, in milliseconds.
    void SetPostBuildWait(int milliseconds) { m_PostBuild.SetWait(milliseconds); }

private:
    [[nodiscard]] bool PrepareTarget(std::u16string_view target, bool server, bool& checkedOut);
    [[nodiscard]] bool Synchronize(std::uint32_t build);
    [[nodiscard]] bool Submit(std::u16string_view target, std::uint32_t flags, bool checkedOut);
    [[nodiscard]] bool GoOnWithFindings(const CValidateCore& findings, bool server);
    void OfferFindings(const CValidateCore& findings, std::u16string_view text, bool modal);
    void RunPostBuildStep(CCompileProgress& progress);
    [[nodiscard]] std::u16string ResolveTarget(std::u16string_view target) const;

    CCorvaneMgr& m_Manager;
    ICompileView* m_pView;
    CPostBuildStep m_PostBuild;
};
