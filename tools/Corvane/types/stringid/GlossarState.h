// The string table of one database, through the run-time library that the game's tools give: loaded and
// opened at the first use, closed at the end of the next load and with the manager. Without the library or
// the table there is nothing to look up, and everything else goes on.
#pragma once

#include "ObserverList.h"
#include "TypeState.h"
#include "iglossarmgr.h"

#include <functional>
#include <string>
#include <string_view>

class CCorvaneMgr;

class CGlossarState final : public ITypeState
{
public:
    explicit CGlossarState(CCorvaneMgr& manager);
    ~CGlossarState() override;
    CGlossarState(const CGlossarState&) = delete;
    CGlossarState& operator=(const CGlossarState&) = delete;

    // The library's interface; null when it is missing, which is told once until the next load has ended. It
    // is looked for beside the string table, beside the program and in the module directory.
    [[nodiscard]] IGlossarMgr* GetIGlossarMgr();
    // The open table; 0 when the root file names none, which is no error, and without the library. A missing
    // file is told at each call, one that cannot be used once until the next load has ended.
    [[nodiscard]] HGLOSSAR GetGlossarDatabase();
    // Whether the table that GetGlossarDatabase gave holds the identifier.
    [[nodiscard]] bool HasString(const char* identifier) const;
    // Tells every identifier of that table that begins with `prefix`, in the order of the table; UTF-8, valid
    // during the call. False when there was none.
    bool ListStrings(const char* prefix, const std::function<void(const char* identifier)>& tell) const;

private:
    [[nodiscard]] HGLOSSAR Open(IGlossarMgr& glossar, std::u16string_view path);
    [[nodiscard]] HGLOSSAR FailOpen(std::u16string_view title, std::u16string_view text);
    [[nodiscard]] const std::u16string& GetPath() const;
    void Reset();

    CCorvaneMgr& m_Manager;
    IGlossarMgr* m_pGlossar = nullptr;
    HGLOSSAR m_hDatabase = 0;
    bool m_bLibraryReported = false;
    bool m_bDatabaseReported = false;
    CObserverHandle m_Observer;
};
