#include "stringid/GlossarState.h"

#include "CallGuarded.h"
#include "CorvaneMgr.h"
#include "FormatText.h"
#include "InStream.h"
#include "Module.h"
#include "Path.h"
#include "host/Questions.h"

#include <utility>

namespace
{
// The name that locators and messages know; the module finder translates it to this system's.
constexpr std::u16string_view kLibrary = u"GlossarRuntime.dll";
} // namespace

CGlossarState::CGlossarState(CCorvaneMgr& manager)
    : m_Manager(manager), m_Observer(manager.AddObserver(
                              [this](const CCorvaneEvent& event)
                              {
                                  if (event.GetCode() == ECorvaneEvent::LoadEnd)
                                      Reset();
                                  return 0;
                              }))
{
}

CGlossarState::~CGlossarState()
{
    Reset();
}

void CGlossarState::Reset()
{
    m_bLibraryReported = false;
    m_bDatabaseReported = false;
    IGlossarMgr* const glossar = std::exchange(m_pGlossar, nullptr);
    const HGLOSSAR database = std::exchange(m_hDatabase, 0);
    if (database == 0)
        return;
    const auto close = [&]
    {
        glossar->Close(database);
        return true;
    };
    static_cast<void>(CallGuarded(close)); // Closed or not, the handle is not used again.
}

IGlossarMgr* CGlossarState::GetIGlossarMgr()
{
    if (m_pGlossar || m_bLibraryReported)
        return m_pGlossar;
    std::u16string error;
    CModule library =
        m_Manager.GetContext().m_Modules.Load(JoinPath(GetDirectoryPart(GetPath()), kLibrary), error);
    if (const auto getGlossar = library.FindFunction<GetIGlossarMgrFn>(kGetIGlossarMgr))
        m_pGlossar = CallGuarded(getGlossar);
    if (m_pGlossar)
    {
        library.KeepLoaded(); // As long as its interface lives, which is to the end of the process.
        return m_pGlossar;
    }
    m_bLibraryReported = true;
    m_Manager.GetContext().m_Questions.Tell(kLibrary, FormatText(u"Failed to locate '%s'.", kLibrary));
    return nullptr;
}

HGLOSSAR CGlossarState::GetGlossarDatabase()
{
    const std::u16string& path = GetPath();
    if (m_hDatabase != 0 || path.empty())
        return m_hDatabase;
    IGlossarMgr* const glossar = GetIGlossarMgr();
    if (!glossar)
        return 0;
    if (!m_Manager.GetContext().m_Files.Exists(path))
    {
        m_Manager.GetContext().m_Questions.Tell(
            u"File Not Found",
            FormatText(u"The following packed string keeper database file was not found:\n\n%s", path));
        return 0;
    }
    // A table that was refused is not read again for each attribute.
    if (!m_bDatabaseReported)
        m_hDatabase = Open(*glossar, path);
    return m_hDatabase;
}

HGLOSSAR CGlossarState::Open(IGlossarMgr& glossar, std::u16string_view path)
{
    CFileError error;
    const CInStreamRef stream = OpenInStream(m_Manager.GetContext().m_Files, path, error);
    if (!stream)
        return FailOpen(u"Failed to open packed string keeper database",
                        FormatText(u"Failed to open the following packed string database.\n\n%s", path));
    const HGLOSSAR database = CallGuarded([&] { return glossar.Open(stream.get()); });
    if (database == 0)
        return FailOpen(
            u"Invalid String Keeper Object",
            FormatText(u"Failed to create string keeper object from the folowing file.\n\n%s", path));
    return database;
}

HGLOSSAR CGlossarState::FailOpen(std::u16string_view title, std::u16string_view text)
{
    m_bDatabaseReported = true;
    m_Manager.GetContext().m_Questions.Tell(title, text);
    return 0;
}

bool CGlossarState::HasString(const char* identifier) const
{
    return m_hDatabase != 0 && CallGuarded([&] { return m_pGlossar->HasString(m_hDatabase, identifier); });
}

bool CGlossarState::ListStrings(const char* prefix, const std::function<void(const char*)>& tell) const
{
    using FTell = std::function<void(const char*)>;
    const GlossarListFn forward = [](const char* identifier, void* context)
    {
        if (identifier != nullptr)
            (*static_cast<const FTell*>(context))(identifier);
    };
    void* const context = const_cast<FTell*>(&tell); // The border knows no const; nothing changes it.
    return m_hDatabase != 0 &&
           CallGuarded([&] { return m_pGlossar->ListStrings(m_hDatabase, prefix, forward, context); });
}

const std::u16string& CGlossarState::GetPath() const
{
    return m_Manager.GetRootFile().m_sStringDatabase;
}
