// The surroundings of a database: what the model and the services meet the world through. Built by the
// application, or by a test with fakes; everything in it outlives the manager that holds it.
#pragma once

class CModuleFinder;
class CProfile;
class CRunState;
class IFileSystem;
class IQuestions;
class IServices;

struct CCorvaneContext
{
    IFileSystem& m_Files;
    IQuestions& m_Questions;
    IServices& m_Services;
    CRunState& m_Run;
    CProfile& m_Profile;
    const CModuleFinder& m_Modules;
};
