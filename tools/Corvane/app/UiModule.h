// The border between the program, which links no toolkit, and the module with its windows.
//
// The interactive run loads libcorvane-ui from beside the program or from its module directory and calls the
// one exported factory. Both sides are built from one source tree and are always of the same version.
#pragma once

#include <string_view>

class CCorvaneDoc;
class CCorvaneMgr;
class CRecentFileList;
class CUndoMgr;
class IQuestions;
class IServices;
struct CCorvaneContext;

// What the windows ask of the program. Lives longer than the user interface.
class ICorvaneApplication
{
public:
    [[nodiscard]] virtual const CCorvaneContext& GetContext() = 0;
    [[nodiscard]] virtual CCorvaneMgr& GetManager() = 0;
    [[nodiscard]] virtual CUndoMgr& GetUndo() = 0;
    [[nodiscard]] virtual CRecentFileList& GetRecentFiles() = 0;
    // The main document; never null once start-up has reached the user interface.
    [[nodiscard]] virtual CCorvaneDoc* GetDocument() = 0;
    // Opens a root file in place of the open database. Null when the file cannot be opened or the user keeps
    // the open one; what went wrong has been told.
    virtual CCorvaneDoc* OpenDocumentFile(std::u16string_view path) = 0;
    // The main window is about to close: asks for unsaved changes, and saves. False when the user cancels or
    // the save fails; the window must stay then.
    [[nodiscard]] virtual bool BeginClose() = 0;

protected:
    ~ICorvaneApplication() = default;
};

// The windows. Owned by the program, which gives them back through Release.
class ICorvaneUi
{
public:
    // Where every question goes from now on. Lives as long as the interface.
    [[nodiscard]] virtual IQuestions& GetQuestions() = 0;
    // Where everything is asked of the system from now on. Lives as long as the interface.
    [[nodiscard]] virtual IServices& GetServices() = 0;
    // Shows the main window and returns when the user has closed it; the result is the exit status.
    [[nodiscard]] virtual int Run() = 0;
    virtual void Release() = 0;

protected:
    virtual ~ICorvaneUi() = default;
};

// Null when there is no display or the windows cannot be made; the module has told why on standard error.
using FCreateCorvaneUi = ICorvaneUi* (*)(ICorvaneApplication& application);
inline constexpr const char* kCreateCorvaneUi = "CreateCorvaneUi";
inline constexpr std::u16string_view kUiModuleFile = u"libcorvane-ui.so";
