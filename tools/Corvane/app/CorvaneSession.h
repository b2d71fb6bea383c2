// What every program over a database stands on: the assertion log, the system's files and services, the
// profile, the registered types and one manager, put together in the order in which they need each other.
// A program adds its host, which answers the questions, and what it does.
#pragma once

#include "AssertLog.h"
#include "Context.h"
#include "CorvaneMgr.h"
#include "CorvaneType.h"
#include "CorvaneTypeMgr.h"
#include "DiskFileSystem.h"
#include "HostServices.h"
#include "Module.h"
#include "Profile.h"
#include "RunState.h"
#include "SourceGate.h"
#include "UndoMgr.h"
#include "host/SystemServices.h"

class IQuestions;

class CCorvaneSession
{
public:
    // `questions` is not owned and outlives the session. From here on failed assumptions go to the log, and a
    // file that may not grow further is a failed write and not the end of the process.
    explicit CCorvaneSession(IQuestions& questions);
    ~CCorvaneSession();
    CCorvaneSession(const CCorvaneSession&) = delete;
    CCorvaneSession& operator=(const CCorvaneSession&) = delete;

    [[nodiscard]] IFileSystem& GetFiles() { return m_Files; }
    [[nodiscard]] CProfile& GetProfile() { return m_Profile; }
    [[nodiscard]] const CModuleFinder& GetModules() const { return m_Modules; }
    [[nodiscard]] CRunState& GetRun() { return m_Run; }
    [[nodiscard]] const CCorvaneContext& GetContext() const { return m_Context; }
    // Takes the services of another host; null goes back to the system's. Not owned.
    void SetServices(IServices* services) { m_HostServices.SetServices(services ? *services : m_Services); }
    // Commands open their groups here; a run without a user opens none.
    [[nodiscard]] CUndoMgr& GetUndo() { return m_Undo; }
    [[nodiscard]] CCorvaneMgr& GetManager() { return m_Manager; }

    // Marks the run as closing and asks for unsaved changes. False, with the mark taken back, when the user
    // cancels or the save fails.
    [[nodiscard]] bool BeginClose();

private:
    CAssertLog m_AssertLog;
    CDiskFileSystem m_Files;
    CSystemServices m_Services;
    CHostServices m_HostServices{m_Services};
    CProfile m_Profile;
    CModuleFinder m_Modules;
    CRunState m_Run;
    CCorvaneContext m_Context;
    CCorvaneTypeMgr m_Types;
    CorvaneSchemaAttribDataMgr m_AttribData;
    CSourceGate m_Gate;
    CUndoMgr m_Undo;
    CCorvaneMgr m_Manager;
};
