// The default library of string tables: compiled gettext catalogues, used in place.
#pragma once

#include "Catalogue.h"
#include "iglossarmgr.h"

#include <unordered_map>

class CGlossarMgr final : public IGlossarMgr
{
public:
    CGlossarMgr() = default;
    // Gives back the streams of the catalogues that are still open.
    ~CGlossarMgr() override;
    CGlossarMgr(const CGlossarMgr&) = delete;
    CGlossarMgr& operator=(const CGlossarMgr&) = delete;

    [[nodiscard]] HGLOSSAR Open(IZRInStream* stream) override;
    void Close(HGLOSSAR database) override;
    [[nodiscard]] bool HasString(HGLOSSAR database, const char* identifier) override;
    bool ListStrings(HGLOSSAR database, const char* prefix, GlossarListFn callback, void* context) override;

private:
    struct SDatabase
    {
        CCatalogue m_Catalogue;
        IZRInStream* m_pStream; // One reference.
    };

    [[nodiscard]] const CCatalogue* Find(HGLOSSAR database) const;

    std::unordered_map<HGLOSSAR, SDatabase> m_Databases;
    HGLOSSAR m_nLast = 0;
};
