#include "BenchHost.h"

#include "DatabaseCompiler.h"
#include "Path.h"
#include "RegisterTypes.h"

namespace
{
constexpr std::uint32_t kBuild = 7;
} // namespace

CBenchHost::CBenchHost(IFileSystem& files, const std::filesystem::path& scratch)
    : m_Services(files), m_Profile(files, (scratch / "profile.ini").u16string()),
      m_Modules(files, GetProgramDirectory(), ResolvePath(GetProgramDirectory(), u"../lib/")),
      m_Undo(m_Services), m_Manager({files, m_Questions, m_Services, m_Run, m_Profile, m_Modules}, m_Types,
                                    m_AttribData, m_Gate, m_Undo)
{
    m_Run.m_bSilent = true;
    RegisterCorvaneTypes(m_Types, m_AttribData);
}

CBenchHost::~CBenchHost()
{
    Close();
}

bool CBenchHost::Load(const std::filesystem::path& rootFile)
{
    return m_Manager.OpenDatabase(rootFile.u16string());
}

bool CBenchHost::Pack(const std::filesystem::path& target)
{
    CDatabaseCompiler compiler(m_Manager);
    return compiler.CompileDatabase(0, target.u16string(), kBuild) && m_Run.m_nExitStatus == kExitOk;
}

void CBenchHost::Close()
{
    // A silent host answers no question, so that the close is never refused.
    static_cast<void>(m_Manager.CloseDatabase());
}
