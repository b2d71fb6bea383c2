// The database system as a silent pack run wires it, without the program around it.
#pragma once

#include "CorvaneMgr.h"
#include "CorvaneTypeMgr.h"
#include "Module.h"
#include "Profile.h"
#include "RunState.h"
#include "SourceGate.h"
#include "UndoMgr.h"
#include "host/SilentQuestions.h"
#include "host/SystemServices.h"

#include <filesystem>
#include <string>

class CBenchHost
{
public:
    // `files` is not owned. The profile goes to `scratch`; the database's per-user file goes to the user's
    // configuration directory, which the caller has pointed elsewhere.
    CBenchHost(IFileSystem& files, const std::filesystem::path& scratch);
    ~CBenchHost();

    [[nodiscard]] bool Load(const std::filesystem::path& rootFile);
    [[nodiscard]] bool Pack(const std::filesystem::path& target);
    void Close();
    [[nodiscard]] CCorvaneMgr& GetManager() { return m_Manager; }
    [[nodiscard]] CUndoMgr& GetUndo() { return m_Undo; }
    [[nodiscard]] CRunState& GetRunState() { return m_Run; }

private:
    CSystemServices m_Services;
    CSilentQuestions m_Questions;
    CRunState m_Run;
    CProfile m_Profile;
    CModuleFinder m_Modules;
    CCorvaneTypeMgr m_Types;
    CorvaneSchemaAttribDataMgr m_AttribData;
    CSourceGate m_Gate;
    CUndoMgr m_Undo;
    CCorvaneMgr m_Manager;
};
