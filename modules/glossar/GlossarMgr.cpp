#include "GlossarMgr.h"

#include "izrinstream.h"

#include <new>

CGlossarMgr::~CGlossarMgr()
{
    for (const auto& [handle, database] : m_Databases)
        database.m_pStream->Release();
}

HGLOSSAR CGlossarMgr::Open(IZRInStream* stream)
{
    if (stream == nullptr)
        return 0;
    const std::optional<CCatalogue> catalogue =
        CCatalogue::Open({static_cast<const std::byte*>(stream->GetData()), stream->GetSize()});
    if (!catalogue)
        return 0;
    try
    {
        m_Databases.emplace(m_nLast + 1, SDatabase{*catalogue, stream});
    }
    catch (const std::bad_alloc&)
    {
        return 0; // No exception crosses the border.
    }
    stream->AddRef();
    return ++m_nLast;
}

void CGlossarMgr::Close(HGLOSSAR database)
{
    const auto found = m_Databases.find(database);
    if (found == m_Databases.end())
        return;
    found->second.m_pStream->Release();
    m_Databases.erase(found);
}

bool CGlossarMgr::HasString(HGLOSSAR database, const char* identifier)
{
    const CCatalogue* catalogue = Find(database);
    return catalogue != nullptr && identifier != nullptr && catalogue->HasIdentifier(identifier);
}

bool CGlossarMgr::ListStrings(HGLOSSAR database, const char* prefix, GlossarListFn callback, void* context)
{
    const CCatalogue* catalogue = Find(database);
    if (catalogue == nullptr || prefix == nullptr || callback == nullptr)
        return false;
    return catalogue->ForEachIdentifier(prefix, [&](std::string_view identifier)
                                        { callback(identifier.data(), context); });
}

const CCatalogue* CGlossarMgr::Find(HGLOSSAR database) const
{
    const auto found = m_Databases.find(database);
    return found != m_Databases.end() ? &found->second.m_Catalogue : nullptr;
}
